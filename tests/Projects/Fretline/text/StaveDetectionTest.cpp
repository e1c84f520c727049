#include "Projects/Fretline/text/StaveDetection.h"

#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabStave.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace Fretline {
namespace {

using TestSupport::FakeOutput;
using TestSupport::Repeat;
using TestSupport::TabText;

std::string Dashes(std::size_t count) {
    return Repeat("-", count) + '\n';
}

// A string with its name.
std::string Named(std::size_t count) {
    return std::string("E|") + Dashes(count);
}

// First line "+" line count of each stave.
std::string StavesOf(const TabAnalysis& analysis) {
    std::string text;
    for (const auto& stave : analysis.GetStaves())
        text += std::to_string(stave->GetFirstLine()) + "+" + std::to_string(stave->GetLineCount()) + " ";
    return text;
}

// "7" for a line that is said to be ignored, "2-3" for lines; any other message in full.
std::string DroppedOf(const FakeOutput& output) {
    std::string text;
    for (const FakeOutput::Message& message : output.Messages) {
        int first = 0;
        int last = 0;
        char expected[200] = {};
        if (message.Id == 100 && std::sscanf(message.Text.c_str(), "Line %d", &first) == 1)
            std::snprintf(expected, sizeof expected,
                          "Line %d looks like it isn't a real tab stave line so it has been ignored", first);
        else if (std::sscanf(message.Text.c_str(), "Lines %d to %d", &first, &last) == 2)
            std::snprintf(
                expected, sizeof expected,
                "Lines %d to %d inclusive don't seem to be part of a real stave so they have been ignored",
                first, last);
        const std::string numbers =
            last == 0 ? std::to_string(first) : std::to_string(first) + "-" + std::to_string(last);
        text.append(message.Text == expected ? numbers : message.Text).append(" ");
        EXPECT_TRUE(message.Kind == 4 && message.Repeat) << message;
    }
    return text;
}

TEST(StaveDetection, FindsStavesAndSaysWhatItDrops) {
    const std::string stave = Repeat(Dashes(20), 6);
    const std::string named = Repeat(Named(18), 6);
    const std::string three = Repeat(Dashes(20), 3);
    const std::string four = Repeat(Dashes(20), 4);
    const struct {
        std::string Text;
        const char *Found, *Dropped, *Why;
    } rows[] = {
        {"a title\n\n" + stave + "\n" + stave, "2+6 9+6 ", "", "two staves with a gap between"},
        {std::string("\n") + Dashes(20) + "\n", "", "2-2 ", "a ruler on its own, its number twice"},
        {three, "", "1-3 ", "three lines are dropped, untrimmed"},
        {"a-b-c\n", "", "1-1 ", "two hyphens apart make a candidate"},
        {"a-b\n", "", "", "one does not"},
        {four, "0+4 ", "", "four lines are the fewest"},
        {Repeat(Dashes(20), 7), "0+6 6+1 ", "", "seven are six and one"},
        {Dashes(60) + Repeat(Named(30), 6), "0+6 6+1 ", "",
         "a ruler counts as a string, and letters save the rest"},
        {named + "So far a-way a-way\n", "0+6 ", "7 ", "a lyric below: few hyphens, many blanks"},
        {"So I a-way a-way\n" + named, "1+6 ", "1 ", "a lyric above"},
        {named + "Dear me a-way a-way\n", "0+6 6+1 ", "",
         "a lyric with a note letter in the column of the names"},
        {three + "--\n" + three, "0+6 6+1 ", "", "a line that fails between two that pass stays, unnamed"},
        {"-x x -   .\n- x x -  .\n" + Repeat(Dashes(30), 3), "", "1 2 3-5 ",
         "five lines that shrink to three"},
        {Dashes(3) + Dashes(2) + four + Dashes(2) + Dashes(3), "2+4 ", "1 2 8 7 ",
         "from the top downward, then from the bottom upward"},
        {Dashes(2) + "\n" + Dashes(2) + four + "\n" + Dashes(2), "3+4 ", "1-1 3 9-9 ", "run after run"},
    };
    for (const auto& row : rows) {
        TabText text(row.Text);
        const TabAnalysis analysis(text.File);
        EXPECT_EQ(StavesOf(analysis), row.Found) << row.Why;
        EXPECT_EQ(DroppedOf(text.Output), row.Dropped) << row.Why;
    }
}

TEST(RunStatistics, JudgesAtTheVeryShare) {
    // A second line beside one of 100 hyphens and 20 blanks, or of 30 and 10 where division leaves a rest.
    const struct {
        std::size_t Hyphens, Others, Blanks;
        bool IsBesideShortOne, IsReal;
        const char* Why;
    } rows[] = {
        {65, 0, 55, false, true, "65 of 100 hyphens"},
        {64, 0, 56, false, false, "one less, and 56 blanks where the average of 38 allows 45"},
        {19, 0, 21, true, true, "65% of 30 are 19.5, taken as 19"},
        {18, 0, 22, true, false, "one less, and 22 blanks where the average of 16 allows 19"},
        {0, 90, 30, false, true, "30 blanks: the average is 25 and allows just these"},
        {0, 89, 31, false, false, "31: the average of 25.5 is taken as 25"},
        {0, 26, 14, true, true, "14: the average of 12 allows 14.4, taken as 14"},
        {0, 25, 15, true, false, "15: the average of 12.5 allows no more"},
    };
    for (const auto& row : rows) {
        const std::string first =
            row.IsBesideShortOne ? Repeat("-", 30) + Repeat(" ", 10) : Repeat("-", 100) + Repeat(" ", 20);
        const std::string second =
            Repeat("-", row.Hyphens) + Repeat(".", row.Others) + Repeat(" ", row.Blanks);
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
