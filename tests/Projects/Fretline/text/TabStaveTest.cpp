#include "Projects/Fretline/text/TabStave.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/RiffLabel.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Fretline {
namespace {

using TestSupport::TabText;
using Lines = std::vector<std::string>;

std::string Join(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += (&line == &lines.front() ? "" : "\n") + line;
    return text;
}

// The same line for each of `count` strings.
Lines Strings(const std::string& line, int count = 6) {
    return Lines(static_cast<std::size_t>(count), line);
}

// Strings named by the letters, top line first, each letter in front of "|---|".
Lines Named(const std::string& letters) {
    Lines lines;
    for (const char letter : letters)
        lines.push_back(letter + std::string("|---|"));
    return lines;
}

// "|" or "||" and the column of each barline.
std::string BarlinesOf(const TabStave& stave) {
    std::ostringstream text;
    for (const TabBarline& barline : stave.GetBarlines())
        text << (barline.m_Double == 1 ? "||" : "|") << barline.m_Column << ' ';
    return text.str();
}

// Start column, "+" and width of each bar, "-" after one that has a dash.
std::string BarsOf(const TabStave& stave) {
    std::ostringstream text;
    for (const auto& bar : stave.GetBars())
        text << bar->GetStartColumn() << '+' << bar->GetWidth() << (bar->HasDash() ? "- " : " ");
    return text.str();
}

TEST(TabStave, CutsItselfIntoBars) {
    const Lines named = Named("EBGDAE");
    Lines broken = Strings("--|--|--");
    broken[3] = "-----|--";
    Lines staggered = Strings("--|-----");
    staggered[5] = "---|----";
    Lines ragged = Strings("---|");
    ragged[0] = "---| ";
    const std::string longLine(70, '.');
    const auto withLongLine = [&longLine](Lines lines) {
        lines.push_back(longLine);
        return lines;
    };
    const struct {
        Lines Text;
        const char *Barlines, *Bars, *Why;
    } rows[] = {
        {named, "|1 |5 ", "0+1 2+3- 6+0 ", "names, a bar, and nothing after the last barline"},
        {withLongLine(named), "|1 ||5 ", "0+1 2+3- 7+0 ",
         "after the end of the lines are barline columns: the last barline pairs with the first of them"},
        {withLongLine(Strings("---")), "||3 ", "0+3- 5+0 ", "the end of the lines ends the last bar"},
        {withLongLine(Strings(std::string(69, '-'))), "|69 ", "0+69- 70+0 ",
         "one column short of the longest"},
        {Strings("|--|"), "|0 |3 ", "0+0 1+2- 4+0 ",
         "a barline at column 0 leaves a first bar without width"},
        {Strings("-- --"), "|2 ", "0+2- 3+2- ", "a blank cuts like a barline"},
        {Strings("--7x--"), "", "0+6- ", "a fret character is never a barline"},
        {broken, "|5 ", "0+5- 6+2- ", "one line without it: no barline"},
        {staggered, "", "0+8- ", "all lines have one, none in the same column"},
        {ragged, "|3 ", "0+3- 4+1 ", "a blank is not the space after a line"},
    };
    for (const auto& row : rows) {
        TabText text(Join(row.Text));
        const int lineCount = static_cast<int>(row.Text.size()) - (row.Text.back() == longLine ? 1 : 0);
        const TabStave stave(text.File, 0, lineCount);
        EXPECT_EQ(BarlinesOf(stave), row.Barlines) << row.Why;
        EXPECT_EQ(BarsOf(stave), row.Bars) << row.Why;
    }
}

TEST(TabStave, ReadsItsTuning) {
    const std::vector<int> guitar = {80, 90, 100, 110, 118, 128};
    Lines oneNameless = Named("EBGDAE");
    oneNameless[2][0] = ' ';
    Lines lateDash = Strings("-E-");
    lateDash[4] = "xE-";
    const struct {
        Lines Text;
        std::vector<int> Tuning;
        const char* Why;
    } rows[] = {
        {Strings("---", 6), guitar, "no letters"},
        {Strings("---", 4), {56, 66, 76, 86}, "four lines are a bass"},
        {Named("EHGDAE"), guitar, "H is B"},
        {Named("GDAD"), {52, 66, 76, 86}, "a bass with its lowest string down"},
        {Named("EBGDAB"), {70, 90, 100, 110, 118, 128}, "seven up are five down"},
        {Named("ECGDAE"), {80, 90, 100, 110, 96, 128}, "C on B: eleven below, not one above"},
        {Named("EBBDAE"), {80, 90, 100, 118, 118, 128}, "B on G: four above, the most"},
        {Named("EBGGAE"), {80, 90, 86, 110, 118, 128}, "G on D: seven below, not five above"},
        {Strings("DE-", 6), {76, 76, 100, 100, 100, 124}, "the leftmost of two columns"},
        {Strings(" |E-", 6), {80, 80, 104, 104, 104, 128}, "not the first column"},
        {lateDash, {80, 80, 104, 104, 104, 128}, "the first dash of one line is after them"},
    };
    for (const auto& row : rows) {
        TabText text(Join(row.Text));
        EXPECT_EQ(TabStave(text.File, 0, static_cast<int>(row.Text.size())).GetTuning(), row.Tuning)
            << row.Why;
    }
}

} // namespace
} // namespace Fretline
