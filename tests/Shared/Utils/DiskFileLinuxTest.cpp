#include "Shared/Utils/DiskFile.h"
#include "Shared/Utils/DiskFolder.h"
#include "Shared/Utils/FileUrl.h"
#include "tests/Shared/Utils/FilesTesting.h"
#include "tests/support/PosixDisk.h"
#include "tests/support/PosixRights.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;
using TestSupport::FullDisk;
using TestSupport::RightsOf;

TEST(DiskFile, PathsBecomeUrlsAndComeBack) {
    const struct {
        const char *Path, *Url, *Name, *Why;
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

TEST(DiskFile, NamesEndAtTheLastDot) {
    const DiskFile file("/t/a.b.t b");
    EXPECT_EQ(Text(file.GetBaseName()) + "|" + Text(file.GetExtension()), "a.b|t b") << "escapes undone";
    EXPECT_TRUE(file.HasExtension("T B"));
    EXPECT_TRUE(DiskFile("/a.b/c").GetExtension().IsEmpty()) << "a dot of the folder's";
    EXPECT_EQ(UnescapeUrl(std::string_view("100%412").substr(0, 5)), "100%4") << "an escape cut short";
}

TEST(DiskFile, TellsWhatIsOnTheDisk) {
    const Scratch scratch;
    const Environment zone("TZ", "UTC");
    const Environment language("LC_ALL", "C");
    const std::string path = scratch.Write("a.tab", "12345");
    const timespec times[] = {{0, UTIME_OMIT}, {1'772'679'845, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    const DiskFile file{String(path)};
    EXPECT_EQ(Text(file.GetModificationDate()), "Thursday, 5 March 2026 03:04:05")
        << "one blank before the day";
    EXPECT_FALSE(file.GetCreationDate().IsEmpty());
    EXPECT_TRUE(DiskFile(scratch.PathText("missing")).GetModificationDate().IsEmpty());
    EXPECT_TRUE(DiskFile(scratch.PathText("missing")).GetCreationDate().IsEmpty());
    EXPECT_FALSE(DiskFolder(String(scratch.Path())).IsEmpty());
    EXPECT_TRUE(file.SetReadOnly(true) && file.IsReadOnly() && RightsOf(path) % 0200 == 0444 % 0200);
    EXPECT_TRUE(file.SetReadOnly(false) && !file.IsReadOnly());
    EXPECT_FALSE(file.SetHidden(true)) << "it would need another name";
    EXPECT_TRUE(DiskFile(String(scratch.Write(".a", ""))).SetHidden(true));
    std::filesystem::create_directory(scratch.Path("folder"));
    const DiskFolder folder(scratch.PathText("folder"));
    EXPECT_TRUE(folder.IsEmpty());
    EXPECT_EQ(Text(folder.GetName()), "folder");
    EXPECT_FALSE(DiskFolder(String(path)).IsEmpty()) << "a file is no folder";
}

TEST(DiskFile, FullDiskLosesNoFile) {
    const Scratch scratch;
    const Environment data("XDG_DATA_HOME", scratch.Path("data"));
    const std::string contents(100, 'x');
    const DiskFile file(String(scratch.Write("a.tab", contents)));
    scratch.Write("a.nvf", "old");
    std::filesystem::create_hard_link(scratch.Path("a.tab"), scratch.Path("a.two"));
    {
        const FullDisk disk(10);
        for (const char* const extension : {"nvf", "two", "new"}) {
            DiskFile moved = file;
            EXPECT_FALSE(moved.ChangeExtension(extension, true, false)) << extension;
        }
        EXPECT_FALSE(file.Delete(true));
    }
    EXPECT_EQ(ReadAll(scratch.Path("a.tab")) + ReadAll(scratch.Path("a.two")), contents + contents);
    EXPECT_EQ(ReadAll(scratch.Path("a.nvf")), "old");
    EXPECT_EQ(scratch.CountEntries(), 4U) << "no new file, and the folder of the trash";
    EXPECT_TRUE(std::filesystem::is_empty(scratch.Path("data/Trash/info")));
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
