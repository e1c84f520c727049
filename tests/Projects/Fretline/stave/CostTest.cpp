#include "tests/Projects/Fretline/stave/BarText.h"

#include "Shared/Utils/tree/TreeNode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace Fretline {

namespace {

using TestSupport::Repeat;

constexpr std::size_t kMany = 100000;

// Far above what these bars take, also under sanitizers, and far below what they would take if the cost grew
// with the square of their size.
class Cost : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_LT(std::chrono::steady_clock::now() - m_Start, std::chrono::seconds(30));
    }

    std::chrono::steady_clock::time_point m_Start = std::chrono::steady_clock::now();
};

} // namespace

TEST_F(Cost, OfManyColumnsInOneRun) {
    // Every column of the first line stays single, so the second line is one long run read from each of them.
    BarText text({std::string(2 * kMany, '9'), std::string(2 * kMany, '0')});
    const TabBar& bar = text.ReadAt(0, 2);
    EXPECT_EQ(bar.GetColumns().size(), 2 * kMany);
    EXPECT_EQ(bar.GetScoreBars().at(0)->m_Items.size(), 2 * kMany);
}

TEST_F(Cost, OfManyChords) {
    BarText text({Repeat("C ", kMany), Repeat("5-", kMany), Repeat("--", kMany)});
    const TabBar& bar = text.ReadAt(1, 2);
    EXPECT_EQ(bar.GetChords().size(), kMany);
    const std::vector<ChordReading> readings = bar.GetChordReadings();
    EXPECT_TRUE(std::ranges::all_of(readings, &ChordReading::m_Written));
}

TEST_F(Cost, OfAChordOfManyTokens) {
    std::string chords = "C";
    chords += Repeat(" m", kMany) + Repeat(" (7", kMany / 2);
    BarText text({chords, Repeat("5-", 2 * kMany), Repeat("--", 2 * kMany)});
    const TabBar& bar = text.ReadAt(1, 2);
    EXPECT_EQ(bar.GetChords().size(), 1U);
    EXPECT_EQ(bar.GetChords().front()->m_Tokens.size(), 2 * kMany);
}

TEST_F(Cost, OfManyScoreBars) {
    BarText text({Repeat("5-", kMany), Repeat("--", kMany)}, kRhythmsAlways);
    TabBar& bar = text.BarAt(0, 2);
    bar.SetBarLength(128);
    Nvr::TreeNode bars(Nvr::String("Bars"));
    Nvr::TreeNode* last = nullptr;
    bar.ImportToScore(&bars, last);
    EXPECT_EQ(bars.GetChildCount(), static_cast<int>(kMany));
    EXPECT_EQ(bar.ScoreBarCount(), bars.GetChildCount());
    EXPECT_TRUE(bar.GetScoreBars().empty() && bar.GetColumns().empty()) << "given back once they are written";
}

TEST_F(Cost, OfManyLetters) {
    BarText text({Repeat(" -Q", kMany), Repeat("--5", kMany), Repeat("---", kMany)});
    const TabBar& bar = text.ReadAt(1, 2);
    ASSERT_EQ(bar.ScoreBarCount(), 1);
    EXPECT_EQ(bar.GetScoreBars().front()->m_Items.size(), kMany);
}

TEST_F(Cost, OfManyColumnsAtOneTime) {
    std::string letters(2 * kMany + 2, ' ');
    letters.front() = 'H';
    letters.back() = 'H';
    BarText text({letters, Repeat("5-", kMany + 1), Repeat("--", kMany + 1)});
    const TabBar& bar = text.ReadAt(1, 2);
    EXPECT_GT(bar.GetColumns().size(), 90 * kMany / 100);
    EXPECT_LT(bar.GetScoreBars().at(0)->m_Items.size(), 50U);
}

TEST_F(Cost, OfManyBeats) {
    BarText text({Repeat("1 ", kMany), Repeat("5-", kMany), Repeat("--", kMany)});
    const TabBar& bar = text.ReadAt(1, 2);
    EXPECT_EQ(bar.GetRhythmLine().m_Kind, RhythmLineKind::BeatPositions);
    EXPECT_EQ(bar.GetBarLength(), 256 * static_cast<int>(kMany));
}

} // namespace Fretline
