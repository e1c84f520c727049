// Counts that the plug-in does not read as they are, in the step for rhythms.

#include "Projects/TabText/Preparation.h"

#include <gtest/gtest.h>

namespace {

std::string WithRhythm(const std::string& text) {
    const auto* rhythm = TabText::FindPreparationStep("rhythm");
    return TabText::Prepare(text, {&rhythm, 1}).Text;
}

// A stave with notes on its highest string, under its counts.
std::string Counted(const std::string& counts, const std::string& notes) {
    std::string text = counts + "\ne" + notes + "\n";
    for (const char* string : {"B", "G", "D", "A", "E"}) {
        text += string;
        for (const char c : notes)
            text += c == '|' ? '|' : '-';
        text += "\n";
    }
    return text;
}

TEST(Counts, AreThinnedOutWhereTheTimesStay) {
    const struct {
        const char* Counts;
        const char* Thinned;
        const char* Notes;
        const char* Why;
    } rows[] = {
        {"  1e&a2e&a3e&a4e&a", "  1   2   3   4   ", "|0-3--1-0--3-0--1|", "quarters that touch"},
        {"  1&2&3&4& 1&2&3&4&", "  1 2 3 4  1 2 3 4 ", "|0-3--1-0|-3-0--1-|", "halves, two bars"},
        {"  1+2+3+4+ ", "  1+2+3+4+ ", "|0-3--1-0-|", "the last one would be early"},
        {"  1+2+3+4+ ", "  1 2 3 4  ", "|0-3--1---|", "nothing comes after the last beat"},
        {"  1e+a2e+a3e+a4e+a ", "  1 + 2 + 3 + 4 +  ", "|0-3--1-0--3-0-1--|",
         "halves, for the sake of the last one"},
        {"  1 e & a 2 e & a 3 e & a 4 e & a ", "  1       2       3       4       ",
         "|0---3-----1---0-----3---0-----1-|", "four kinds of signs"},
        {"   1 e & a 2 e & a 3 e & a 4 e & a ", "   1   &   2   &   3   &   4   &   ",
         "|-0---3-----1---0-----3---0-----1--|", "so where there is room"},
        {"  1 2 3e&a4 ", "  1 2 3   4 ", "|0-3-0--1-|", "one beat of quarters"},
        {"  1 & 2 & 3e&a4 &", "  1   2   3   4  ", "|0-3-----1-1-0---|", "beats of two widths"},
        {"  1&a2&a3&a4&a", "  1&a2&a3&a4&a", "|0-3--1-0--3-|", "thirds, or not"},
        {"  1e&a2e&a3e&a", "  1e&a2e&a3e&a", "|0-3--1-0--3-|", "a beat too few"},
        {"  1e&a2e&a3e&a4e&a", "  1e&a2e&a3e&a4e&a", "|0-3--1-0--10-0--|", "one note, or two"},
        {"  1e&a2e&a3e&a4e&a -", "  1e&a2e&a3e&a4e&a -", "|0-3--1-0--3-0--1|", "something else there"},
        {"  1e&a2e&a3e&a4e&a    1e&a2e&a3e&a4e&a", "  1e&a2e&a3e&a4e&a    1   2   3   4   ",
         "|0-3--1-0--3-0----3|-0-3--1-0--------|", "a note after the last count"},
        {"  1 & 2 & 3 & 4 &", "  1 & 2 & 3 & 4 &", "|0-3---1-0---3---|", "read as it is"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Counted(row.Thinned, row.Notes), WithRhythm(Counted(row.Counts, row.Notes))) << row.Why;
}

TEST(Counts, AreThoseOfOneStaveAndOfItsMetre) {
    const std::string notes = "|0-3--1-0--3-0--1|";
    const std::string counts = "  1e&a2e&a3e&a4e&a";
    const std::string thin = "  1   2   3   4   ";
    const std::string uncounted = Counted("", "|0-----3---------|");
    const std::string waltz = "|0-3--1-0--3-|";
    const struct {
        std::string Text;
        std::string Prepared;
        const char* Why;
    } rows[] = {
        {"3/4\n" + Counted("  1e&a2e&a3e&a", waltz), "3/4\n" + Counted("  1   2   3   ", waltz),
         "three beats"},
        {"3/4\n" + Counted(counts, notes), "3/4\n" + Counted(counts, notes), "a beat too many"},
        {Counted(counts, notes) + "\n" + Counted(counts, notes),
         Counted(thin, notes) + "\n" + Counted(thin, notes), "two staves"},
        {uncounted + counts + Counted("\n\n", notes), uncounted + thin + Counted("\n\n", notes),
         "below a stave"},
        {uncounted + Counted(counts, notes), uncounted + Counted(counts, notes), "both staves would take it"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Prepared, WithRhythm(row.Text)) << row.Why;
}

} // namespace
