#include "tests/Projects/Fretline/stave/BarText.h"

#include "Projects/Fretline/stave/RhythmLines.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Fretline {

namespace {

const std::string kEmptyBar(16, '-');

std::string Padded(std::string line) {
    line.resize(std::max(line.size(), kEmptyBar.size()), ' ');
    return line;
}

} // namespace

TEST(RhythmLines, AreToldFromOtherLines) {
    const struct {
        const char* Line;
        bool Letters, Beats;
        const char* Why;
    } rows[] = {
        {"Q  E E H", true, false, "1024 in all, the last letter alone; E is a chord letter among beats"},
        {"C  G  Am  F", false, false, "chord letters rule out either kind"},
        {"E  E  E", false, false, "three lone Es do not vouch for the line"},
        {"Hi", false, false, "long enough, but not alone"},
        {"Q  Q  Hi  T", true, false, "only the last letter must be alone; one inside a word counts"},
        {"H  E  E  E  C", false, false, "a chord letter at the end rules the line out"},
        {"q   q   q   q", false, true, "small letters are no lengths, but they count as well as digits"},
        {"1 2 3 4", false, false, "the last at 37 per cent of the bar"},
        {"1 + 2 + 3 + 4 +", false, true, "two symbols"},
        {"1 2 3 4 5 6 7 10", false, false, "two adjacent symbols past the second column"},
        {"1 + a 2 + a", false, true, "three symbols, the last at 62 per cent"},
        {"    1   2   3", false, false, "the first stands at 25 per cent"},
        {"11        1", false, true, "adjacent at the very start, with a third"},
        {"1         2", false, true, "nothing stands left of the first column"},
        {"1    +    x", false, false, "three kinds, none of them twice"},
        {"1    A    1", false, false, "a chord letter"},
        {" 11       1", false, false, "adjacent with the right one at column 2"},
        {"", false, false, "nothing"},
    };
    for (const auto& row : rows) {
        BarText text({Padded(row.Line), kEmptyBar, kEmptyBar});
        TabBar& bar = text.BarAt(1, 2);
        ASSERT_EQ(bar.GetWidth(), 16);
        EXPECT_EQ(IsNoteLengthsLine(text.File(), 0, 0, 16), row.Letters) << row.Line << ": " << row.Why;
        EXPECT_EQ(IsBeatPositionsLine(bar, -1), row.Beats) << row.Line << ": " << row.Why;
    }
}

TEST(RhythmLines, AreTriedInOrder) {
    constexpr auto kLetters = RhythmLineKind::NoteLengths;
    constexpr auto kBeats = RhythmLineKind::BeatPositions;
    constexpr auto kNone = RhythmLineKind::None;
    const std::string q = "Q   Q   Q   Q";
    const std::string b = "1   2   3   4";
    const struct {
        std::string Second, First, Below, SecondBelow;
        std::size_t Followers;
        RhythmLineKind Kind;
        int Line;
        const char* Why;
    } rows[] = {
        {"", "", "", "", 9, kNone, -1, "nothing there"},
        {q, "", q, q, 9, kLetters, 0, "two lines above"},
        {"", "", q, q, 9, kLetters, 6, "right below"},
        {"", "", "", q, 9, kLetters, 7, "two lines below"},
        {b, b, b, b, 9, kBeats, 1, "beats in the same order"},
        {"", "", "", b, 9, kBeats, 7, "beats in the same order"},
        {b, b, b, q, 9, kLetters, 7, "even on the last of the lines"},
        {"", "", q, "", 3, kLetters, 6, "as many lines follow as the stave has"},
        {"", "", "", q, 4, kLetters, 7, "the same for the second line below"},
        {"", "", "", b, 3, kNone, -1, "one too few"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> lines = {row.Second, row.First};
        lines.insert(lines.end(), 4, kEmptyBar);
        lines.push_back(row.Below);
        lines.push_back(row.SecondBelow);
        lines.resize(lines.size() + row.Followers);
        BarText text(lines);
        ASSERT_EQ(text.Analysis().GetReadableBars().size(), 1U) << row.Why;
        TabBar& bar = *text.Analysis().GetReadableBars().front();
        bar.ReadBar(nullptr);
        EXPECT_EQ(bar.GetRhythmLine().m_Kind, row.Kind) << row.Why;
        EXPECT_EQ(bar.GetRhythmLine().m_Line, row.Line) << row.Why;
        EXPECT_EQ(bar.HasRhythms(), row.Kind != kNone) << row.Why;
    }
}

} // namespace Fretline
