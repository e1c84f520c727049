#include "Shared/Utils/TempFiles.h"
#include "Shared/Utils/StandardFolders.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>
#include <set>

namespace {

using namespace Nvr;
using namespace FilesTesting;

std::string Text(const String& text) {
    return std::string(text.View());
}

bool IsDigitsBetween(const std::string& before, const std::string& name, const std::string& behind) {
    return name.size() > before.size() + behind.size() && name.starts_with(before) &&
           name.ends_with(behind) &&
           name.find_first_not_of("0123456789", before.size()) ==
               (behind.empty() ? std::string::npos : name.size() - behind.size());
}

TEST(TempFiles, FileIsNewEmptyAndPrivate) {
    const Scratch scratch;
    const Environment temp("TMPDIR", scratch.Path());
    std::set<std::string> names;
    for (int i = 0; i < 20; ++i) {
        const DiskFile file = CreateTempFile();
        ASSERT_TRUE(file.Exists());
        EXPECT_EQ(Text(file.GetParent().GetPath()), scratch.Path());
        EXPECT_EQ(file.GetSize(), 0);
        EXPECT_EQ(RightsOf(Text(file.GetPath())), 0600U);
        const std::string name = Text(file.GetFileName(true));
        EXPECT_TRUE(IsDigitsBetween("nv", name, ".tmp")) << name;
        names.insert(name);
        EXPECT_TRUE(file.Delete(false));
    }
    EXPECT_EQ(names.size(), 20U) << "a name that comes again could be foretold";
    EXPECT_EQ(scratch.CountEntries(), 0U);
}

TEST(TempFiles, FolderIsTheUsersChoiceWhenItIsOfUse) {
    const Scratch scratch;
    for (const char* const name : {"with blank",
                                   "Gr\xC3\xBC\xC3\x9F"
                                   "e",
                                   "\xFC#%20"})
        std::filesystem::create_directory(scratch.Path(name));
    const std::string file = scratch.Write("file", "");
    const struct {
        std::optional<std::string> Variable;
        std::string Expected;
        const char* Why;
    } rows[] = {
        {scratch.Path("with blank"), scratch.Path("with blank"), "a blank"},
        {scratch.Path("Gr\xC3\xBC\xC3\x9F"
                      "e"),
         scratch.Path("Gr\xC3\xBC\xC3\x9F"
                      "e"),
         "UTF-8"},
        {scratch.Path("\xFC#%20"), scratch.Path("\xFC#%20"), "any bytes"},
        {std::nullopt, "/tmp", "not set"},
        {"", "/tmp", "empty"},
        {"relative", "/tmp", "relative"},
        {scratch.Path("missing"), "/tmp", "missing"},
        {file, "/tmp", "no folder"},
    };
    for (const auto& row : rows) {
        const Environment temp("TMPDIR", row.Variable);
        bool ok = false;
        EXPECT_EQ(Text(TempFolder(ok).GetPath()), row.Expected) << row.Why;
        EXPECT_TRUE(ok) << row.Why;
        const DiskFile made = CreateTempFile();
        EXPECT_TRUE(made.Exists()) << row.Why;
        EXPECT_EQ(Text(made.GetParent().GetPath()), row.Expected) << row.Why;
        EXPECT_TRUE(made.Delete(false)) << row.Why;
    }
}

TEST(TempFiles, FolderThatTakesNoFilesIsPassedOver) {
    const Scratch scratch;
    std::filesystem::permissions(scratch.Path(), std::filesystem::perms(0555));
    const Environment temp("TMPDIR", scratch.Path());
    const AsNobody nobody;
    if (nobody.Failed())
        GTEST_SKIP() << "cannot give up rights here";
    const DiskFile made = CreateTempFile();
    EXPECT_EQ(Text(made.GetParent().GetPath()), "/tmp");
    EXPECT_TRUE(made.Delete(false));
}

TEST(TempFiles, NoFolderGivesNoObject) {
    const Scratch scratch;
    EXPECT_TRUE(CreateTempFile(DiskFolder(scratch.PathText("missing"))).GetUrl().IsEmpty());
    EXPECT_TRUE(CreateTempFile(DiskFolder(String(scratch.Write("file", "")))).GetUrl().IsEmpty());
    EXPECT_TRUE(CreateTempFile(DiskFolder()).GetUrl().IsEmpty());
    EXPECT_TRUE(CreateTempFile(DiskFolder("/proc")).GetUrl().IsEmpty());
    EXPECT_TRUE(UniqueFile(DiskFolder()).GetUrl().IsEmpty());
}

TEST(TempFiles, SecondFileCannotBeMadeBeforehandByOthers) {
    const Scratch scratch;
    DiskFile score = CreateTempFile(DiskFolder(String(scratch.Path())));
    score.ChangeExtension("nvf", false, false);
    const std::string path = Text(score.GetPath());
    std::filesystem::create_symlink(scratch.Path("victim"), path);
    EXPECT_FALSE(score.CreateNew()) << "not through a link that leads nowhere";
    EXPECT_FALSE(std::filesystem::exists(scratch.Path("victim")));
    std::filesystem::remove(path);
    EXPECT_TRUE(score.CreateNew());
    EXPECT_EQ(RightsOf(path), 0600U);
    EXPECT_FALSE(score.CreateNew()) << "not over a file";
}

TEST(TempFiles, UniqueFileTakesTheNextFreeName) {
    const Scratch scratch;
    const DiskFolder folder{String(scratch.Path())};
    std::srand(7);
    const DiskFile first = UniqueFile(folder);
    const DiskFile second = UniqueFile(folder);
    EXPECT_FALSE(first.Exists()) << "the file is not created";
    const std::string name = Text(first.GetFileName(true));
    EXPECT_TRUE(IsDigitsBetween("temp", name, "") && name.size() == 14) << name;
    scratch.Write(name, "");
    std::srand(7);
    EXPECT_EQ(UniqueFile(folder), second) << "a name that is taken is passed over";
}

TEST(StandardFolders, FollowTheUsersEnvironment) {
    const Scratch scratch;
    {
        const Environment data("XDG_DATA_HOME", scratch.Path("da ta"));
        EXPECT_EQ(Text(UserDataFolder(false, false).GetPath()), scratch.Path("da ta"));
        EXPECT_EQ(Text(UserDataFolder(true, true).GetPath()),
                  scratch.Path("da ta/Notavera Software/Notavera"));
        EXPECT_FALSE(UserDataFolder(true, false).Exists()) << "not created";
        const DiskFolder logs = LogsFolder();
        EXPECT_TRUE(logs.Exists());
        EXPECT_EQ(Text(logs.GetPath()), scratch.Path("da ta/Notavera Software/Logs"));
        EXPECT_TRUE(LogsFolder().Exists()) << "there already";
    }
    const Environment data("XDG_DATA_HOME", "relative");
    {
        const Environment home("HOME", scratch.Path());
        EXPECT_EQ(Text(UserDataFolder(false, true).GetPath()), scratch.Path(".local/share/Notavera"));
    }
    const Environment home("HOME", std::nullopt);
    EXPECT_FALSE(UserDataFolder(false, false).GetUrl().IsEmpty()) << "the system knows the home folder too";
}

TEST(StandardFolders, ApplicationFolderHoldsTheExecutable) {
    EXPECT_TRUE(DiskFile(ApplicationFolder(),
                         String(std::filesystem::read_symlink("/proc/self/exe").filename().string()))
                    .Exists());
    EXPECT_TRUE(CommonDataFolder(false, false).Exists());
}

} // namespace
