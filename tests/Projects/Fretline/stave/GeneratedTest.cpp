#include "tests/Projects/Fretline/stave/BarText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string_view>

namespace Fretline {

namespace {

std::string RandomLine(std::mt19937& random, std::string_view characters, std::size_t length) {
    std::string line(length, ' ');
    for (char& c : line)
        c = characters[random() % characters.size()];
    return line;
}

// A stave with two lines of anything above it and two below.
std::vector<std::string> RandomText(std::mt19937& random) {
    constexpr std::string_view kBesides[] = {"        QHE.-x", "    1+a", "CDEGb#m67()/ sud9 i",
                                             " \xE9\x01QqWTSXE..", "  "};
    const std::size_t length = 8 + random() % 60;
    std::vector<std::string> lines;
    for (int line = 0; line < 8; ++line) {
        const bool inStave = line >= 2 && line < 6;
        const std::string_view beside = kBesides[random() % std::size(kBesides)];
        lines.push_back(RandomLine(random, inStave ? "-----------------01223579x|" : beside, length));
    }
    lines.resize(lines.size() + random() % 8);
    return lines;
}

void ExpectNoGaps(const ScoreBar& scoreBar) {
    int end = 0;
    for (const BarItem& item : scoreBar.m_Items) {
        EXPECT_EQ(item.m_Position, end);
        EXPECT_TRUE(std::ranges::is_sorted(item.m_Notes, {}, &TabNote::m_Diat));
        end = item.m_Position + (1 << item.m_LogDuration);
    }
}

} // namespace

// Whatever the text, score bars have no gaps, and a chord is written at most once, at a column that took it.
TEST(GeneratedBars, AreSound) {
    std::mt19937 random(97);
    for (int round = 0; round < 1500 && !testing::Test::HasFailure(); ++round) {
        const std::vector<std::string> lines = RandomText(random);
        BarText text(lines, round % 3);
        for (TabBar* bar : text.Analysis().GetReadableBars()) {
            bar->ReadBar(nullptr);
            std::size_t written = 0;
            for (const auto& scoreBar : bar->GetScoreBars()) {
                ExpectNoGaps(*scoreBar);
                written += static_cast<std::size_t>(std::ranges::count_if(
                    scoreBar->m_Items, [](const BarItem& item) { return item.m_Chord != nullptr; }));
            }
            const std::vector<ChordReading> readings = bar->GetChordReadings();
            EXPECT_EQ(static_cast<std::size_t>(std::ranges::count_if(readings, &ChordReading::m_Written)),
                      written);
            for (const ChordReading& reading : readings)
                EXPECT_TRUE(reading.m_Attached || !reading.m_Written);
        }
        if (testing::Test::HasFailure())
            for (const std::string& line : lines)
                ADD_FAILURE() << line;
    }
}

} // namespace Fretline
