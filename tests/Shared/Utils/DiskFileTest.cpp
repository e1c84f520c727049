#include "Shared/Utils/DiskFile.h"
#include "Shared/Utils/DiskFolder.h"
#include "Shared/Utils/FileName.h"
#include "Shared/Utils/FileNameCharacters.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;

TEST(DiskFile, NoObjectAnswersNothing) {
    const std::string urlOfTopmost(DiskFile(String(Native("/"))).GetUrl().View());
    const std::string tooLong =
        Native("/" + std::string(DiskFile::kLongestUrl - urlOfTopmost.size() + 1, 'x'));
    for (const DiskFile& file :
         {DiskFile(), DiskFile(String("relative/a.tab")), DiskFile(String()), DiskFile(String(tooLong)),
          DiskFile(DiskFolder(), "name"), DiskFile::FromUrl("http://host/a"),
          DiskFile::FromUrl(String(urlOfTopmost + "a%2F..%2Fb")),
          DiskFile::FromUrl(String(urlOfTopmost + "a%00b"))}) {
        EXPECT_FALSE(file.Exists());
        EXPECT_EQ(Text(file.GetPath()), "");
        EXPECT_EQ(file.GetSize(), -1);
        EXPECT_FALSE(file.Delete(false) || file.Delete(true) || file.CreateNew());
    }
    EXPECT_EQ(DiskFile(String(tooLong.substr(0, tooLong.size() - 1))).GetUrl().Length(),
              DiskFile::kLongestUrl);
}

TEST(DiskFile, ChildStaysInItsFolder) {
    const DiskFolder folder{String(Native("/top/fol der"))};
    const DiskFolder withSlash{String(Native("/top/fol der/"))};
    const struct {
        const char *Name, *Path, *Why;
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
        EXPECT_EQ(Text(DiskFile(folder, row.Name).GetPath()), Native(row.Path)) << row.Why;
        EXPECT_EQ(Text(DiskFolder(withSlash, row.Name).GetPath()), Native(row.Path)) << row.Why;
    }
    EXPECT_TRUE(DiskFile(folder, String('x', static_cast<int>(DiskFile::kLongestUrl))).GetUrl().IsEmpty());
}

TEST(DiskFile, ChangesItsExtension) {
    const struct {
        const char *Path, *Extension;
        bool Keep;
        const char *Expected, *Why;
    } rows[] = {
        {"/t/x.tmp", "nvf", false, "/t/x.nvf", "replaced"},
        {"/t/x.tmp", "nvf", true, "/t/x.tmp.nvf", "added"},
        {"/t/x.tmp", "", false, "/t/x", "no dot left"},
        {"/x.tmp", "nvf", false, "/x.nvf", "in the topmost folder"},
        {"/t/x.tmp", "a/../../..\\b", false, "/t/x.a .. .. .. b",
         "an extension cannot lead out of the folder"},
        {"/t/..", "", false, "", "nor can what is left of a name"},
        {"/t d/a%20\xFC_ #.tmp", "nvf", false, "/t d/a%20\xFC_ #.nvf", "the rest of the name stays as it is"},
    };
    for (const auto& row : rows) {
        DiskFile file{String(Native(row.Path))};
        EXPECT_TRUE(file.ChangeExtension(row.Extension, false, row.Keep)) << row.Why;
        EXPECT_EQ(Text(file.GetPath()), Native(row.Expected)) << row.Why;
    }
}

TEST(FileName, TellsWhatIsAtThePath) {
    const Scratch scratch;
    const DiskFile file(String(scratch.Write("a b.Tab", "12345")));
    FileName name, missing(scratch.PathText("missing"));
    EXPECT_FALSE(DiskFile().ToFileName(name));
    ASSERT_TRUE(file.ToFileName(name));
    EXPECT_EQ(name.GetPath(), file.GetPath());
    EXPECT_TRUE(name.IsFile() && !name.IsFolder() && name.HasExtension("tAB") && !name.HasExtension(".tab"));
    EXPECT_TRUE(FileName(String(scratch.Path())).IsFolder());
    EXPECT_FALSE(missing.IsFile() || missing.IsFolder() || missing.CopyTo(name) || name.CopyTo(name));
    EXPECT_EQ(name.GetSize(), 5);
    EXPECT_EQ(missing.GetSize(), 0);
    EXPECT_EQ(missing.GetModificationTime(), 2147483647);
    EXPECT_NE(name.GetModificationTime(), 2147483647);
    const FileName target(String(scratch.Write("target", "a longer text that goes")));
    EXPECT_TRUE(name.CopyTo(target));
    EXPECT_EQ(ReadAll(scratch.Path("target")), "12345");
}

TEST(FileNameCharacters, BecomeBlanks) {
    const String name("a<b>c:d\"e/f\\g|h'i(j)k*l?m");
    EXPECT_EQ(ReplaceIllegalCharacters(name), "a b c d e f g h'i(j)k l m");
    EXPECT_EQ(MakeSafeName(name), "a b c d e f g h i j k l m");
    EXPECT_TRUE(HasIllegalCharacters(name) && !HasIllegalCharacters("h'i(j)k"));
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
    std::filesystem::create_hard_link(scratch.Path("a.nvf"), scratch.Path("a.two"));
    DiskFile linked(scratch.PathText("a.nvf"));
    EXPECT_FALSE(linked.ChangeExtension("two", true, false)) << "onto another name of itself";
    EXPECT_EQ(ReadAll(scratch.Path("a.nvf")) + ReadAll(scratch.Path("a.two")), "contentscontents");
}

} // namespace
