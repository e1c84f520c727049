#include "Shared/Utils/StandardFolders.h"
#include "Shared/Utils/TempFiles.h"
#include "tests/Shared/Utils/FilesTesting.h"
#include "tests/support/PosixRights.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;
using namespace TestSupport;

TEST(TempFiles, FolderIsTheUsersChoiceWhenItIsOfUse) {
    const Scratch scratch;
    const std::string bytes = scratch.Path("with blank \xC3\xBC \xFC#%20");
    std::filesystem::create_directory(bytes);
    const std::string file = scratch.Write("file", "");
    const struct {
        std::optional<std::string> Variable;
        std::string Expected;
        const char* Why;
    } rows[] = {
        {bytes, bytes, "any bytes"},
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

TEST(StandardFolders, AreThoseOfTheUserAndTheProgram) {
    const Scratch scratch;
    const Environment data("XDG_DATA_HOME", scratch.Path());
    EXPECT_EQ(Text(UserDataFolder(false, false).GetPath()), scratch.Path());
    EXPECT_EQ(Text(UserDataFolder(true, true).GetPath()), scratch.Path("Notavera Software/Notavera"));
    EXPECT_EQ(Text(CommonDataFolder(false, true).GetPath()), "/var/lib/Notavera");
    EXPECT_EQ(scratch.CountEntries(), 0U) << "named, not made";
    EXPECT_TRUE(LogsFolder().Exists());
    EXPECT_EQ(Text(LogsFolder().GetPath()), scratch.Path("Notavera Software/Logs"));
    EXPECT_TRUE(DiskFile(ApplicationFolder(), "test_utils").Exists());
    {
        const Environment unset("XDG_DATA_HOME", std::nullopt), home("HOME", "/somebody");
        EXPECT_EQ(Text(UserDataFolder(false, false).GetPath()), "/somebody/.local/share");
    }
    const Environment unset("XDG_DATA_HOME", "relative"), home("HOME", std::nullopt);
    EXPECT_TRUE(UserDataFolder(false, false).GetUrl().View().ends_with("/.local/share")) << "of the account";
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
    EXPECT_TRUE(CreateTempFile(DiskFolder("/proc")).GetUrl().IsEmpty());
}

TEST(TempFiles, SecondFileCannotBeMadeBeforehandByOthers) {
    const Scratch scratch;
    DiskFile score = CreateTempFile(DiskFolder(String(scratch.Path())));
    EXPECT_EQ(RightsOf(Text(score.GetPath())), 0600U);
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

} // namespace
