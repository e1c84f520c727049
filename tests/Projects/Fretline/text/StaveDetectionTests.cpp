#include "Projects/Fretline/text/StaveDetection.h"

#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabStave.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <utility>

namespace Fretline {
namespace {

using TestSupport::FakeOutput;
using TestSupport::Repeat;
using TestSupport::TabText;

FakeOutput::Message LineIgnored(int line) {
    return {100, 4,
            "Line " + std::to_string(line) +
                " looks like it isn't a real tab stave line so it has been ignored",
            true};
}

FakeOutput::Message LinesIgnored(int first, int last) {
    return {101, 4,
            "Lines " + std::to_string(first) + " to " + std::to_string(last) +
                " inclusive don't seem to be part of a real stave so they have been ignored",
            true};
}

std::string Dashes(int count) {
    std::string line(static_cast<std::size_t>(count), '-');
    line += '\n';
    return line;
}

/// A string with its name.
std::string Named(int count) {
    std::string line("E|");
    line += Dashes(count);
    return line;
}

/// First line and line count.
using Staves = std::vector<std::pair<int, int>>;

Staves StavesOf(const TabAnalysis& analysis) {
    Staves staves;
    for (const auto& stave : analysis.GetStaves())
        staves.emplace_back(stave->GetFirstLine(), stave->GetLineCount());
    return staves;
}

TEST(StaveDetection, FindsStavesAndSaysWhatItDrops) {
    const std::string stave = Repeat(Dashes(20), 6);
    const std::string named = Repeat(Named(18), 6);
    const struct {
        std::string Text;
        Staves Found;
        std::vector<FakeOutput::Message> Messages;
        const char* Why;
    } cases[] = {
        {"a title\n\n" + stave + "\n" + stave, {{2, 6}, {9, 6}}, {}, "two staves with a gap between"},
        {std::string("\n") + Dashes(20) + "\n",
         {},
         {LinesIgnored(2, 2)},
         "a ruler on its own, its number twice"},
        {Repeat(Dashes(20), 3), {}, {LinesIgnored(1, 3)}, "three lines are dropped, untrimmed"},
        {"a-b-c\n", {}, {LinesIgnored(1, 1)}, "two hyphens apart make a candidate"},
        {"a-b\n", {}, {}, "one does not"},
        {Repeat(Dashes(20), 4), {{0, 4}}, {}, "four lines are the fewest"},
        {Repeat(Dashes(20), 7), {{0, 6}, {6, 1}}, {}, "seven are six and one"},
        {Dashes(60) + Repeat(Named(30), 6),
         {{0, 6}, {6, 1}},
         {},
         "a ruler has the most hyphens and takes the place of the first string; the letters save the rest"},
        {named + "So far a-way a-way\n",
         {{0, 6}},
         {LineIgnored(7)},
         "a lyric below: few hyphens, many blanks"},
        {"So I a-way a-way\n" + named, {{1, 6}}, {LineIgnored(1)}, "a lyric above"},
        {named + "Dear me a-way a-way\n",
         {{0, 6}, {6, 1}},
         {},
         "a lyric that has a note letter in the column of the names passes for a string"},
        {Repeat(Dashes(20), 3) + "--\n" + Repeat(Dashes(20), 3),
         {{0, 6}, {6, 1}},
         {},
         "a line that fails between two that pass stays, unnamed"},
        {Dashes(3) + Dashes(2) + Repeat(Dashes(20), 4) + Dashes(2) + Dashes(3),
         {{2, 4}},
         {LineIgnored(1), LineIgnored(2), LineIgnored(8), LineIgnored(7)},
         "from the top downward, then from the bottom upward"},
        {Dashes(2) + "\n" + Dashes(2) + Repeat(Dashes(20), 4) + "\n" + Dashes(2),
         {{3, 4}},
         {LinesIgnored(1, 1), LineIgnored(3), LinesIgnored(9, 9)},
         "run after run"},
    };
    for (const auto& row : cases) {
        TabText text(row.Text);
        const TabAnalysis analysis(text.File);
        EXPECT_EQ(StavesOf(analysis), row.Found) << row.Why;
        EXPECT_EQ(text.Output.Messages, row.Messages) << row.Why;
    }
}

TEST(RunStatistics, JudgesAtTheVeryShare) {
    // A second line beside one of 100 hyphens and 20 blanks, or of 30 and 10 where division leaves a rest.
    const struct {
        int Hyphens, Others, Blanks;
        bool IsBesideShortOne, IsReal;
        const char* Why;
    } cases[] = {
        {65, 0, 55, false, true, "65 of 100 hyphens"},
        {64, 0, 56, false, false, "one less, and 56 blanks where the average of 38 allows 45"},
        {19, 0, 21, true, true, "65% of 30 are 19.5, taken as 19"},
        {18, 0, 22, true, false, "one less, and 22 blanks where the average of 16 allows 19"},
        {0, 90, 30, false, true, "30 blanks: the average is 25 and allows just these"},
        {0, 89, 31, false, false, "31: the average of 25.5 is taken as 25"},
        {0, 26, 14, true, true, "14: the average of 12 allows 14.4, taken as 14"},
        {0, 25, 15, true, false, "15: the average of 12.5 allows no more"},
    };
    const auto times = [](char c, int count) { return std::string(static_cast<std::size_t>(count), c); };
    for (const auto& row : cases) {
        const std::string first =
            row.IsBesideShortOne ? times('-', 30) + times(' ', 10) : times('-', 100) + times(' ', 20);
        const std::string second = times('-', row.Hyphens) + times('.', row.Others) + times(' ', row.Blanks);
        ASSERT_EQ(first.size(), second.size());
        std::string lines = first;
        lines += '\n';
        lines += second;
        const TabText text(lines);
        EXPECT_EQ(RunStatistics(text.File, {0, 1}).IsRealStaveLine(1), row.IsReal) << row.Why;
    }
}

} // namespace
} // namespace Fretline
