#include "Projects/ReferenceHost/RunFolder.h"
#include "tests/support/Environment.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

using namespace ReferenceHost;
using TestSupport::Environment;
using TestSupport::kTempFolderVariable;

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kSmall = 5000;
constexpr std::uintmax_t kLarge = 100'000'000;

const fs::path kMemory = "/dev/shm";

std::string TempFolder() {
    const char* const folder = std::getenv(kTempFolderVariable);
    return folder == nullptr ? std::string() : folder;
}

} // namespace

TEST(RunFolder, KeepsSmallScoresInMemoryAndLargeOnesInTheUsualFolder) {
    if (!fs::is_directory(kMemory))
        GTEST_SKIP() << "no place in memory here";
    const Environment unset(kTempFolderVariable, std::nullopt);
    const fs::path usual = fs::temp_directory_path();
    fs::path places[2];
    {
        const RunFolder folder;
        EXPECT_EQ(kMemory, folder.Path().parent_path());
        const struct {
            std::uintmax_t TextSize;
            fs::path Place;
        } rows[] = {{kSmall, kMemory}, {kLarge, usual}, {kSmall, kMemory}};
        for (const auto& [textSize, place] : rows) {
            const fs::path& ready = folder.MakeReadyFor(textSize);
            EXPECT_EQ(place, ready.parent_path()) << textSize;
            EXPECT_EQ(ready, TempFolder()) << textSize;
            EXPECT_TRUE(fs::is_directory(ready));
            places[textSize == kLarge ? 1 : 0] = ready;
        }
        const TemporaryTab tab = TemporaryTab::Write(folder, "song", std::string(kSmall, '-'));
        EXPECT_EQ(kSmall, fs::file_size(tab.Path()));
        EXPECT_EQ(places[0], tab.Path().parent_path().parent_path());
    }
    for (const fs::path& place : places)
        EXPECT_FALSE(fs::exists(place)) << place;
}

TEST(RunFolder, KeepsEverythingInTheFolderThatTheUserHasChosen) {
    const TestSupport::ScratchFolder chosen;
    const Environment temp(kTempFolderVariable, chosen.Path().string());
    {
        const RunFolder folder;
        for (const std::uintmax_t textSize : {kSmall, kLarge}) {
            EXPECT_EQ(folder.Path(), folder.MakeReadyFor(textSize));
            EXPECT_EQ(folder.Path(), TempFolder());
        }
        EXPECT_EQ(chosen.Path(), folder.Path().parent_path());
    }
    EXPECT_TRUE(chosen.IsEmpty());
    const Environment missing(kTempFolderVariable, (chosen.Path() / "missing").string());
    EXPECT_EQ(fs::path(), RunFolder().Path());
}
