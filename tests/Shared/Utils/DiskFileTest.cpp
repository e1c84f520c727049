#include "Shared/Utils/DiskFile.h"
#include "Shared/Utils/DiskFolder.h"
#include "Shared/Utils/FileName.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;

std::string Text(const String& text) {
    return std::string(text.View());
}

TEST(DiskFile, PathsBecomeUrlsAndComeBack) {
    const struct {
        const char* Path;
        const char* Url;
        const char* Name;
        const char* Why;
    } rows[] = {
        {"/a/b.tab", "file:///a/b.tab", "b.tab", "nothing to escape"},
        {"/a/my song.tab", "file:///a/my%20song.tab", "my song.tab", "a blank"},
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
    EXPECT_EQ(Text(DiskFile("/a/my song.tab").GetFileName(false)), "my%20song.tab");
}

TEST(DiskFile, NoObjectAnswersNothing) {
    const std::string tooLong =
        "/" + std::string(DiskFile::kLongestUrl - std::string("file:///").size() + 1, 'x');
    for (const DiskFile& file :
         {DiskFile(), DiskFile(String("relative/a.tab")), DiskFile(String()), DiskFile(String(tooLong)),
          DiskFile(DiskFolder(), "name"), DiskFile::FromUrl("http://host/a")}) {
        EXPECT_FALSE(file.Exists());
        EXPECT_EQ(Text(file.GetPath()), "");
        EXPECT_FALSE(file.IsHidden() || file.IsReadOnly() || file.SetHidden(false) ||
                     file.SetReadOnly(false));
        EXPECT_EQ(file.GetSize(), -1);
        EXPECT_TRUE(file.GetCreationDate().IsEmpty() && file.GetModificationDate().IsEmpty());
        EXPECT_TRUE(file.GetParent().GetUrl().IsEmpty());
        EXPECT_FALSE(file.Delete(false) || file.Delete(true) || file.CreateNew());
    }
    FileName name;
    EXPECT_FALSE(DiskFile().ToFileName(name));
    EXPECT_EQ(
        DiskFile(String(tooLong.substr(1).insert(0, "/").substr(0, tooLong.size() - 1))).GetUrl().Length(),
        DiskFile::kLongestUrl);
}

TEST(DiskFile, UrlsNameOnlyWhatAPathCanBe) {
    const struct {
        const char* Url;
        const char* Path;
        const char* Why;
    } rows[] = {
        {"file:///a%20b", "/a b", "an escape"},
        {"FILE://localhost/a%fc", "/a\xFC", "scheme and digits in any case, this computer by name"},
        {"file:///100%", "/100%", "an escape cut short stays"},
        {"file:///1%zz2%2", "/1%zz2%2", "no digits"},
        {"file:///a%2F..%2Fb", "", "no name holds a slash"},
        {"file:///a%00b", "", "or a zero"},
        {"file://elsewhere/a", "", "another computer"},
        {"file:a", "", "not absolute"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Text(DiskFile::FromUrl(row.Url).GetPath()), row.Path) << row.Why;
}

TEST(DiskFile, PartsOfTheName) {
    const struct {
        const char* Path;
        const char* Base;
        const char* Extension;
    } rows[] = {
        {"/x.y/a.b.c", "a.b", "c"}, {"/x.y/abc", "abc", ""},        {"/x/abc.", "abc", ""},
        {"/x/.tab", "", "tab"},     {"/x/a b.T%2E", "a b", "T%2E"}, {"/x/", "", ""},
    };
    for (const auto& row : rows) {
        const DiskFile file{String(row.Path)};
        EXPECT_EQ(Text(file.GetBaseName()), row.Base) << row.Path;
        EXPECT_EQ(Text(file.GetExtension()), row.Extension) << row.Path;
    }
    EXPECT_TRUE(DiskFile("/a/b.TaB").HasExtension("tab"));
    EXPECT_FALSE(DiskFile("/a/b.btab").HasExtension("tab"));
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
    EXPECT_EQ(Text(DiskFile(folder, "a", "b").GetFileName(true)), "a.b");
    EXPECT_EQ(Text(DiskFile(folder, "a", "").GetFileName(true)), "a");
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
        {"/t/x.tmp", "", true, "/t/x.tmp", "nothing to add"},
        {"/t/x", "nvf", false, "/t/x.nvf", "none before"},
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

TEST(DiskFile, SaysWhatIsOnDisk) {
    const Scratch scratch;
    const DiskFile file(String(scratch.Write("a b.tab", "12345")));
    const DiskFolder folder{String(scratch.Path())};
    EXPECT_TRUE(file.Exists());
    EXPECT_EQ(file.GetSize(), 5);
    EXPECT_FALSE(DiskFile(file.GetParent().GetPath()).Exists()) << "a folder is no file";
    EXPECT_EQ(file.GetParent(), folder);
    EXPECT_FALSE(DiskFolder(file.GetPath()).Exists()) << "a file is no folder";
    EXPECT_FALSE(file.IsHidden());
    EXPECT_TRUE(DiskFile(String(scratch.Write(".hidden", ""))).IsHidden());
    EXPECT_FALSE(DiskFile(folder, ".missing").IsHidden());
    EXPECT_TRUE(file.SetHidden(false)) << "nothing had to change";
    FileName name;
    ASSERT_TRUE(file.ToFileName(name));
    EXPECT_EQ(name.GetPath(), file.GetPath());
    EXPECT_EQ(DiskFile("/dev/full").GetSize(), 0) << "there, and without a size";
    EXPECT_EQ(DiskFile(folder, "missing").GetSize(), -1);
}

TEST(DiskFile, ReadOnlyKeepsTheOtherRights) {
    const Scratch scratch;
    const DiskFile file(String(scratch.Write("a", "")));
    chmod(scratch.Path("a").c_str(), 0750);
    EXPECT_FALSE(file.IsReadOnly());
    EXPECT_TRUE(file.SetReadOnly(true));
    EXPECT_TRUE(file.IsReadOnly());
    EXPECT_EQ(RightsOf(scratch.Path("a")), 0550U);
    EXPECT_TRUE(file.SetReadOnly(true));
    EXPECT_TRUE(file.SetReadOnly(false));
    EXPECT_EQ(RightsOf(scratch.Path("a")), 0750U);
}

TEST(DiskFile, DatesAreDateAndTimeInFull) {
    const Environment plain("LC_ALL", "C");
    const Environment zone("TZ", "UTC");
    tzset();
    const Scratch scratch;
    const std::string path = scratch.Write("a", "");
    const timespec times[2] = {{0, 0}, {951827696, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_EQ(Text(DiskFile(String(path)).GetModificationDate()), "Tuesday, 29 February 2000 12:34:56");
    EXPECT_FALSE(DiskFile(String(path)).GetCreationDate().IsEmpty());
    EXPECT_TRUE(DiskFile(String(scratch.Path())).GetModificationDate().IsEmpty());
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

TEST(DiskFile, DeletedWithUndoIsInTheTrash) {
    const Scratch scratch;
    const Environment data("XDG_DATA_HOME", scratch.Path("data"));
    for (const char* const kept : {"my tab", "my tab.2"}) {
        const DiskFile file(String(scratch.Write("my tab", kept)));
        EXPECT_TRUE(file.Delete(true));
        EXPECT_FALSE(file.Exists());
        EXPECT_EQ(ReadAll(scratch.Path("data/Trash/files/") + kept), kept)
            << "a second of the name keeps the first";
        const std::string note = ReadAll(scratch.Path("data/Trash/info/") + kept + ".trashinfo");
        EXPECT_TRUE(note.starts_with("[Trash Info]\nPath=" + scratch.Path() + "/my%20tab\nDeletionDate=2"))
            << note;
    }
}

TEST(DiskFile, TrashKeepsAFileThatHasLostItsNote) {
    const Scratch scratch;
    const Environment data("XDG_DATA_HOME", scratch.Path("data"));
    std::filesystem::create_directories(scratch.Path("data/Trash/files"));
    scratch.Write("data/Trash/files/a", "earlier");
    const DiskFile file(String(scratch.Write("a", "later")));
    EXPECT_FALSE(file.Delete(true));
    EXPECT_TRUE(file.Exists());
    EXPECT_EQ(ReadAll(scratch.Path("data/Trash/files/a")), "earlier");
    EXPECT_TRUE(std::filesystem::is_empty(scratch.Path("data/Trash/info")));
}

TEST(DiskFile, WithoutATrashTheFileStays) {
    const Scratch scratch;
    const DiskFile file(String(scratch.Write("a", "x")));
    const Environment data("XDG_DATA_HOME", scratch.Write("no folder", ""));
    EXPECT_FALSE(file.Delete(true));
    EXPECT_TRUE(file.Exists());
}

TEST(DiskFolder, ParentsAndNames) {
    const DiskFolder folder("/a/b c/");
    EXPECT_EQ(Text(folder.GetName()), "b c");
    EXPECT_EQ(Text(folder.GetParent().GetPath()), "/a");
    EXPECT_EQ(Text(folder.GetParent().GetParent().GetPath()), "/");
    EXPECT_EQ(Text(folder.GetParent().GetParent().GetName()), "");
    EXPECT_TRUE(folder.GetParent().GetParent().GetParent().GetUrl().IsEmpty());
    EXPECT_EQ(Text(DiskFolder().GetName()), "");
}

TEST(DiskFolder, EmptyIsAFolderWithNothingInIt) {
    const Scratch scratch;
    const DiskFolder folder{String(scratch.Path())};
    EXPECT_TRUE(folder.IsEmpty());
    scratch.Write(".hidden", "");
    EXPECT_FALSE(folder.IsEmpty());
    EXPECT_FALSE(DiskFolder(scratch.PathText("missing")).IsEmpty());
    EXPECT_FALSE(DiskFolder(scratch.PathText(".hidden")).IsEmpty());
}

} // namespace
