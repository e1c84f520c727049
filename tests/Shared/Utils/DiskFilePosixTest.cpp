#include "Shared/Utils/DiskFile.h"
#include "Shared/Utils/DiskFolder.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;

TEST(DiskFile, PathsBecomeUrlsAndComeBack) {
    const struct {
        const char* Path;
        const char* Url;
        const char* Name;
        const char* Why;
    } rows[] = {
        {"/a/b.tab", "file:///a/b.tab", "b.tab", "nothing to escape"},
        {"/a/100%20.tab", "file:///a/100%2520.tab", "100%20.tab", "an escape that the user typed"},
        {"/a/c#?.tab", "file:///a/c%23%3F.tab", "c#?.tab", "marks of a URL's later parts"},
        {"/a/b\\c", "file:///a/b%5Cc", "b\\c", "a backslash is a character of the name"},
        {"/a/\xFC\x01\x7F", "file:///a/%FC%01%7F", "\xFC\x01\x7F", "bytes that are no UTF-8"},
        {"/a b/-_.~!$&'()*+,;=:@", "file:///a%20b/-_.~!$&'()*+,;=:@", "-_.~!$&'()*+,;=:@",
         "allowed as they are"},
        {"/", "file:///", "", "the topmost folder"},
    };
    for (const auto& row : rows) {
        const DiskFile file{String(row.Path)};
        EXPECT_EQ(Text(file.GetUrl()), row.Url) << row.Why;
        EXPECT_EQ(Text(file.GetPath()), row.Path) << row.Why;
        EXPECT_EQ(Text(file.GetFileName(true)), row.Name) << row.Why;
        EXPECT_EQ(DiskFile::FromUrl(file.GetUrl()), file) << row.Why;
    }
}

TEST(DiskFile, DeletesFilesAndLinksOnly) {
    const Scratch scratch;
    std::filesystem::create_directory(scratch.Path("folder"));
    const DiskFile file(String(scratch.Write("a b", "x")));
    std::filesystem::create_symlink(scratch.Path("a b"), scratch.Path("link"));
    std::filesystem::create_directory_symlink(scratch.Path("folder"), scratch.Path("folder link"));
    EXPECT_FALSE(DiskFile(scratch.PathText("folder")).Delete(false));
    EXPECT_FALSE(DiskFile(scratch.PathText("folder link")).Delete(false));
    EXPECT_TRUE(DiskFile(scratch.PathText("link")).Delete(false));
    EXPECT_TRUE(file.Exists()) << "the link goes, not what it leads to";
    EXPECT_TRUE(file.Delete(false));
    EXPECT_FALSE(file.Delete(false));
    EXPECT_EQ(scratch.CountEntries(), 2U);
}

TEST(DiskFile, TheTrashKeepsEveryFile) {
    const Scratch scratch;
    const Environment data("XDG_DATA_HOME", scratch.Path("data"));
    for (const char* const kept : {"my tab", "my tab.2"}) {
        EXPECT_TRUE(DiskFile(String(scratch.Write("my tab", kept))).Delete(true));
        EXPECT_EQ(ReadAll(scratch.Path("data/Trash/files/") + kept), kept) << "a second of the name";
        const std::string note = ReadAll(scratch.Path("data/Trash/info/") + kept + ".trashinfo");
        EXPECT_TRUE(note.starts_with("[Trash Info]\nPath=" + scratch.Path() + "/my%20tab\nDel")) << note;
    }
    std::filesystem::remove(scratch.Path("data/Trash/info/my tab.trashinfo"));
    EXPECT_FALSE(DiskFile(String(scratch.Write("my tab", "later"))).Delete(true));
    EXPECT_EQ(ReadAll(scratch.Path("my tab")), "later");
    EXPECT_EQ(ReadAll(scratch.Path("data/Trash/files/my tab")), "my tab") << "one that has lost its note";
    EXPECT_FALSE(std::filesystem::exists(scratch.Path("data/Trash/info/my tab.trashinfo")));
}

} // namespace
