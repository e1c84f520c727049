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

TEST(DiskFile, NoObjectAnswersNothing) {
    const std::string tooLong =
        "/" + std::string(DiskFile::kLongestUrl - std::string("file:///").size() + 1, 'x');
    for (const DiskFile& file :
         {DiskFile(), DiskFile(String("relative/a.tab")), DiskFile(String()), DiskFile(String(tooLong)),
          DiskFile(DiskFolder(), "name"), DiskFile::FromUrl("http://host/a"),
          DiskFile::FromUrl("file:///a%2F..%2Fb"), DiskFile::FromUrl("file:///a%00b")}) {
        EXPECT_FALSE(file.Exists());
        EXPECT_EQ(Text(file.GetPath()), "");
        EXPECT_EQ(file.GetSize(), -1);
        EXPECT_FALSE(file.Delete(false) || file.Delete(true) || file.CreateNew());
    }
    EXPECT_EQ(DiskFile(String(tooLong.substr(0, tooLong.size() - 1))).GetUrl().Length(),
              DiskFile::kLongestUrl);
}

TEST(DiskFile, ChildStaysInItsFolder) {
    const DiskFolder folder("/top/fol der");
    const struct {
        const char* Name;
        const char* Path;
        const char* Why;
    } rows[] = {
        {"a b.tab", "/top/fol der/a b.tab", "a name"},
        {"../up", "/top/fol der/.. up", "a slash becomes a blank"},
        {"..\\up", "/top/fol der/.. up", "so does a backslash"},
        {"x%2Fy?#", "/top/fol der/x%2Fy?#", "an escape is text"},
        {"..", "", "the folder above is no child"},
        {".", "", "nor is the folder itself"},
        {"", "", "nor nothing"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Text(DiskFile(folder, row.Name).GetPath()), row.Path) << row.Why;
        EXPECT_EQ(Text(DiskFolder(DiskFolder("/top/fol der/"), row.Name).GetPath()), row.Path) << row.Why;
    }
    EXPECT_TRUE(DiskFile(folder, String('x', static_cast<int>(DiskFile::kLongestUrl))).GetUrl().IsEmpty());
}

TEST(DiskFile, ChangesItsExtension) {
    const struct {
        const char* Path;
        const char* Extension;
        bool Keep;
        const char* Expected;
        const char* Why;
    } rows[] = {
        {"/t/x.tmp", "nvf", false, "/t/x.nvf", "replaced"},
        {"/t/x.tmp", "nvf", true, "/t/x.tmp.nvf", "added"},
        {"/t/x.tmp", "", false, "/t/x", "no dot left"},
        {"/x.tmp", "nvf", false, "/x.nvf", "in the topmost folder"},
        {"/t d/a%20\\b #.tmp", "nvf", false, "/t d/a%20\\b #.nvf", "the rest of the name stays as it is"},
    };
    for (const auto& row : rows) {
        DiskFile file{String(row.Path)};
        EXPECT_TRUE(file.ChangeExtension(row.Extension, true, row.Keep)) << row.Why;
        EXPECT_EQ(Text(file.GetPath()), row.Expected) << row.Why;
    }
}

TEST(DiskFile, ChangesItsExtensionOnDiskOnlyWhenAsked) {
    const Scratch scratch;
    DiskFile file(String(scratch.Write("a.tmp", "contents")));
    DiskFile named = file;
    named.ChangeExtension("nvf", false, false);
    EXPECT_TRUE(file.Exists());
    EXPECT_FALSE(named.Exists());
    scratch.Write("a.nvf", "in the way");
    EXPECT_TRUE(file.ChangeExtension("nvf", true, false));
    EXPECT_EQ(ReadAll(scratch.Path("a.nvf")), "contents");
    EXPECT_EQ(scratch.CountEntries(), 1U);
    EXPECT_TRUE(file.ChangeExtension("nvf", true, false)) << "onto itself";
    EXPECT_EQ(ReadAll(scratch.Path("a.nvf")), "contents");
    std::filesystem::create_directory(scratch.Path("a.dir"));
    EXPECT_FALSE(file.ChangeExtension("dir", true, false));
    EXPECT_EQ(ReadAll(scratch.Path("a.nvf")), "contents") << "nothing is lost when the name is taken";
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
