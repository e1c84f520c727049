#include "Shared/Utils/FileNames.h"
#include "Shared/Utils/FileName.h"
#include "Shared/Utils/PathText.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;

TEST(FileNames, IllegalCharactersBecomeBlanks) {
    EXPECT_EQ(ReplaceIllegalCharacters("a:b"), "a b");
    EXPECT_EQ(ReplaceIllegalCharacters("<>:\"/\\|*?'().x"), "         '().x");
    EXPECT_EQ(MakeSafeName("<>:\"/\\|*?'().x"), "            .x");
    EXPECT_EQ(MakeSafeName("Gr\xC3\xBC\xC3\x9F"
                           "e"),
              "Gr\xC3\xBC\xC3\x9F"
              "e");
    for (const char c : IllegalFileNameCharacters)
        EXPECT_TRUE(HasIllegalCharacters(String("a") + c)) << c;
    EXPECT_FALSE(HasIllegalCharacters("a'()%#.x"));
    EXPECT_FALSE(HasIllegalCharacters(""));
}

TEST(PathText, SplitsAndJoinsAgain) {
    const struct {
        const char* Path;
        const char* Folder;
        const char* Name;
        const char* Extension;
    } rows[] = {
        {"/a b/c.d/song.v2.tab", "/a b/c.d/", "song.v2", ".tab"},
        {"/a.b/song", "/a.b/", "song", ""},
        {"song.tab", "", "song", ".tab"},
        {"/.tab", "/", "", ".tab"},
        {"/a/b.", "/a/", "b", "."},
        {"/a/..", "/a/", ".", "."},
        {"/a\\b.c", "/", "a\\b", ".c"},
        {"/a/", "/a/", "", ""},
        {"", "", "", ""},
    };
    for (const auto& row : rows) {
        String drive("x");
        String folder;
        String name;
        String extension;
        SplitPath(row.Path, drive, folder, name, extension);
        EXPECT_EQ(drive, "") << row.Path;
        EXPECT_EQ(folder, row.Folder) << row.Path;
        EXPECT_EQ(name, row.Name) << row.Path;
        EXPECT_EQ(extension, row.Extension) << row.Path;
        EXPECT_EQ(JoinPath(drive, folder, name, extension), row.Path);
    }
}

TEST(PathText, JoinPutsInWhatIsMissing) {
    EXPECT_EQ(JoinPath("", "/config", "FretlineOptions", "txt"), "/config/FretlineOptions.txt");
    EXPECT_EQ(JoinPath("", "/config/", "FretlineOptions", ".txt"), "/config/FretlineOptions.txt");
    EXPECT_EQ(JoinPath("", "", "FretlineOptions", ""), "FretlineOptions");
    EXPECT_EQ(JoinPath("", "/", "a", "b"), "/a.b");
}

TEST(FileName, SaysWhatIsOnDisk) {
    const Scratch scratch;
    const FileName file(String(scratch.Write("a.Txt", "123")));
    const FileName folder{String(scratch.Path())};
    const FileName missing(scratch.PathText("missing"));
    EXPECT_TRUE(file.IsFile() && !file.IsFolder());
    EXPECT_TRUE(folder.IsFolder() && !folder.IsFile());
    EXPECT_FALSE(missing.IsFile() || missing.IsFolder());
    EXPECT_EQ(file.GetSize(), 3);
    EXPECT_EQ(missing.GetSize(), 0);
    EXPECT_EQ(missing.GetModificationTime(), 2147483647);
    EXPECT_GT(file.GetModificationTime(), 1'600'000'000);
    EXPECT_LT(file.GetModificationTime(), FileName::kNoModificationTime);
    EXPECT_TRUE(file.HasExtension("tXT"));
    EXPECT_FALSE(file.HasExtension(".txt"));
    EXPECT_TRUE(missing.HasExtension(""));
}

TEST(FileName, CopiesOverAnExistingTarget) {
    const Scratch scratch;
    const std::string contents(200'000, 'x');
    const FileName from(String(scratch.Write("from", contents)));
    chmod(scratch.Path("from").c_str(), 0640);
    const FileName to(String(scratch.Write("to", "old")));
    EXPECT_TRUE(from.CopyTo(to));
    EXPECT_EQ(ReadAll(scratch.Path("to")), contents);
    EXPECT_EQ(RightsOf(scratch.Path("to")), 0640U);
    EXPECT_TRUE(from.CopyTo(FileName(scratch.PathText("new"))));
    EXPECT_EQ(ReadAll(scratch.Path("new")), contents);
    EXPECT_EQ(scratch.CountEntries(), 3U) << "nothing is left beside";
}

TEST(FileName, FailedCopyLosesNothing) {
    const Scratch scratch;
    const FileName file(String(scratch.Write("a", "contents")));
    std::filesystem::create_hard_link(scratch.Path("a"), scratch.Path("same"));
    std::filesystem::create_directory(scratch.Path("folder"));
    const struct {
        const char* From;
        const char* To;
        const char* Why;
    } rows[] = {
        {"a", "a", "itself"},
        {"a", "same", "itself by another name"},
        {"missing", "a", "no source"},
        {"folder", "a", "a folder"},
        {"a", "folder", "onto a folder"},
        {"a", "none/a", "no such folder"},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(FileName(scratch.PathText(row.From)).CopyTo(FileName(scratch.PathText(row.To))))
            << row.Why;
        EXPECT_EQ(ReadAll(scratch.Path("a")), "contents") << row.Why;
        EXPECT_EQ(scratch.CountEntries(), 3U) << row.Why;
    }
    EXPECT_FALSE(file.CopyTo(FileName("/dev/full")));
    EXPECT_FALSE(file.CopyTo(FileName()));
}

} // namespace
