#include "Shared/Utils/DiskFile.h"
#include "Shared/Utils/DiskFolder.h"
#include "Shared/Utils/PathSplitting.h"
#include "Shared/Utils/SafeFileWriter.h"
#include "Shared/Utils/StandardFolders.h"
#include "Shared/Utils/TempFiles.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <array>
#include <gtest/gtest.h>

#include <windows.h>

#include <shlwapi.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;

TEST(PathSplitting, SplitsAndJoinsAgain) {
    const struct {
        const char* Path;
        std::array<const char*, 4> Parts;
    } rows[] = {
        {"C:\\a b\\c.d\\song.v2.tab", {"C:", "\\a b\\c.d\\", "song.v2", ".tab"}},
        {"\\\\server\\a share\\song", {"", "\\\\server\\a share\\", "song", ""}},
        {"c:/a.b/.tab", {"c:", "/a.b/", "", ".tab"}},
        {"C:song.", {"C:", "", "song", "."}},
        {"\\x", {"", "\\", "x", ""}},
        {"", {"", "", "", ""}},
    };
    for (const auto& row : rows) {
        std::array<String, 4> parts;
        SplitPath(row.Path, parts[0], parts[1], parts[2], parts[3]);
        for (std::size_t i = 0; i < parts.size(); ++i)
            EXPECT_EQ(parts[i], row.Parts[i]) << row.Path;
        EXPECT_EQ(JoinPath(parts[0], parts[1], parts[2], parts[3]), row.Path);
    }
    EXPECT_EQ(JoinPath("", "C:\\config", "FretlineOptions", "txt"), "C:\\config\\FretlineOptions.txt");
    EXPECT_EQ(JoinPath("C:", "/", "a", ".b"), "C:/a.b");
}

TEST(DiskFile, PathsBecomeUrlsAndComeBack) {
    const struct {
        const char *Path, *Url, *Parent, *Why;
    } rows[] = {
        {"C:\\a b\\\xDC"
         "bung f\xFCr Gitarre.tab",
         "file:///C:/a%20b/%DCbung%20f%FCr%20Gitarre.tab", "C:\\a b", "letters of the code page"},
        {"c:\\100%20#\xA4", "file:///c:/100%2520%23%A4", "c:\\", "an escape that the user typed"},
        {"\\\\server\\a share\\x", "file://server/a%20share/x", "\\\\server\\a share\\", "on a share"},
        {"\\\\server\\a share", "file://server/a%20share", "", "a share, which no folder holds"},
        {"C:\\", "file:///C:/", "", "a drive"},
        {"\\x", "file:///x", "\\", "on the chosen drive"},
    };
    for (const auto& row : rows) {
        const DiskFile file{String(row.Path)};
        EXPECT_EQ(Text(file.GetUrl()), row.Url) << row.Why;
        EXPECT_EQ(Text(file.GetPath()), row.Path) << row.Why;
        EXPECT_EQ(Text(file.GetParent().GetPath()), row.Parent) << row.Why;
        std::array<char, DiskFile::kLongestUrl> path{};
        DWORD size = static_cast<DWORD>(path.size());
        EXPECT_EQ(PathCreateFromUrlA(row.Url, path.data(), &size, 0), S_OK) << row.Why;
        EXPECT_STREQ(path.data(), row.Path) << "as the shell reads it";
    }
    EXPECT_EQ(Text(DiskFile("C:/a/b").GetPath()), "C:\\a\\b");
    for (const char* const path : {"a\\b", "."})
        EXPECT_TRUE(DiskFile(path).GetUrl().IsEmpty()) << path;
    EXPECT_EQ(Text(DiskFile::FromUrl("FILE://localhost/C:").GetPath()), "C:\\");
    for (const char* const url :
         {"file:///C:/a%5Cb", "file:///C:/a%00b", "file://host:80/a", "file://", "C:\\a"})
        EXPECT_EQ(Text(DiskFile::FromUrl(url).GetPath()), "") << url;
}

TEST(DiskFile, AttributesOfTheSystem) {
    const Scratch scratch;
    const std::string path = scratch.Write("\xDC"
                                           "bung f\xFCr Gitarre.tab",
                                           "old");
    const DiskFile file{String(path)};
    EXPECT_TRUE(file.SetHidden(true) && file.IsHidden());
    EXPECT_TRUE(WriteSafely(path, "new"));
    EXPECT_EQ(ReadAll(path), "new");
    EXPECT_TRUE(file.IsHidden()) << "stays hidden when it is replaced";
    EXPECT_TRUE(file.SetReadOnly(true) && file.IsReadOnly());
    EXPECT_FALSE(WriteSafely(path, "newer"));
    EXPECT_TRUE(file.SetHidden(false) && !file.IsHidden() && file.IsReadOnly());
    EXPECT_EQ(ReadAll(path), "new");
    EXPECT_FALSE(file.GetModificationDate().IsEmpty() || file.GetCreationDate().IsEmpty());
    EXPECT_TRUE(file.Delete(false)) << "read-only as it is";
    EXPECT_TRUE(DiskFolder(String(scratch.Path())).IsEmpty());
}

TEST(DiskFile, RecycledFileIsGone) {
    const Scratch scratch;
    const DiskFile file(String(scratch.Write("my \xFC.tab", "x")));
    EXPECT_TRUE(file.Delete(true));
    EXPECT_FALSE(file.Exists() || file.Delete(true));
    EXPECT_EQ(scratch.CountEntries(), 0U);
}

TEST(FileStream, DevicesAreNotRead) {
    const Scratch scratch;
    for (const std::string& path : {std::string("CON"), std::string("NUL"), scratch.Path("con")})
        EXPECT_FALSE(InFileStream(String(path)).Good()) << path;
}

TEST(SafeFileWriter, FileThatIsInUseStaysAsItIs) {
    const Scratch scratch;
    const std::string path = scratch.Write("a", "old");
    {
        const std::ifstream reader(path);
        EXPECT_FALSE(WriteSafely(path, "new"));
    }
    EXPECT_EQ(ReadAll(path), "old");
    EXPECT_EQ(scratch.CountEntries(), 1U);
    EXPECT_TRUE(WriteSafely(path, "new"));
}

TEST(TempFiles, FolderIsTheUsersChoiceWhenItIsOfUse) {
    const Scratch scratch;
    for (const std::string& chosen : {scratch.Path("missing"), scratch.Write("file", "")}) {
        const Environment temp(TestSupport::kTempFolderVariable, chosen);
        bool ok = false;
        EXPECT_NE(Text(TempFolder(ok).GetPath()), chosen);
        EXPECT_TRUE(ok);
        const DiskFile made = CreateTempFile();
        EXPECT_TRUE(made.Exists() && made.Delete(false));
    }
}

TEST(StandardFolders, AreThere) {
    for (const DiskFolder& folder :
         {ApplicationFolder(), UserDataFolder(false, false), CommonDataFolder(false, false), LogsFolder()})
        EXPECT_TRUE(folder.Exists()) << folder.GetUrl().View();
}

} // namespace
