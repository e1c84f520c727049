#include "Projects/Fretline/text/TimeSignatures.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabStave.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Fretline {
namespace {

using TestSupport::Stave;
using TestSupport::TabText;

// "numerator/denominator@line:start-slash-end" of each.
std::string TextOf(const TimeSignatureList& list) {
    std::ostringstream text;
    for (const auto& signature : list)
        text << signature->m_Numerator << '/' << signature->m_Denominator << '@' << signature->m_Line << ':'
             << signature->m_StartColumn << '-' << signature->m_Column << '-' << signature->m_EndColumn
             << ' ';
    return text.str();
}

// Of each readable bar: its time signature, or "none", ":" and its length.
std::string BarsOf(const TabAnalysis& analysis) {
    std::ostringstream text;
    for (const TabBar* bar : analysis.GetReadableBars()) {
        if (const TabTimeSignature* signature = bar->GetTimeSignature())
            text << signature->m_Numerator << '/' << signature->m_Denominator;
        else
            text << "none";
        text << ':' << bar->GetBarLength() << ' ';
    }
    return text.str();
}

TEST(TimeSignature, IsFoundInALine) {
    const struct {
        const char *Line, *Found, *Why;
    } rows[] = {
        {"3/4 ", "3/4@0:0-1-2 ", "one digit on either side"},
        {"5/16", "5/16@0:0-1-3 ", "at the very end"},
        {" 12/16x", "12/16@0:1-3-5 ", "two on both sides"},
        {"100/8", "", "a third digit in front is not looked at: 00"},
        {"125/4", "25/4@0:1-3-4 ", "so this is 25"},
        {"3/42", "", "42 is no note value"},
        {"1/3 4/1 0/4 00/8 3/32 3/0", "", "values that are no time signature"},
        {"3/4 6/8", "3/4@0:0-1-2 6/8@0:4-5-6 ", "several in a line"},
        {"D/F 3/4", "3/4@0:4-5-6 ", "the search goes on after a slash without digits"},
        {"/ 3/4", "", "but not after one at column 0"},
        {"3/4 4/", "3/4@0:0-1-2 ", "one in the last column of all ends it"},
        {"6/8/4", "6/8@0:0-1-2 8/4@0:2-3-4 ", "a digit may belong to two"},
    };
    for (const auto& row : rows) {
        const TabText text(row.Line);
        TimeSignatureList found;
        FindTimeSignaturesIn(text.File, 0, found);
        EXPECT_EQ(TextOf(found), row.Found) << row.Why;
    }
}

TEST(TimeSignature, TakesEffectAtTheBarUnderIt) {
    // Bars from column 0 to 7, 9 to 16, 18 to 25.
    const std::string stave = Stave("--------|--------|--------");
    const struct {
        std::string Text;
        const char *Bars, *Why;
    } rows[] = {
        {"3/4\n" + stave, "3/4:768 3/4:768 3/4:768 ", "one is that of every bar"},
        {"3/4       4/4\n" + stave, "3/4:768 4/4:768 4/4:768 ",
         "a later one changes what is written, not the length"},
        {"3/4   4/4\n" + stave, "3/4:768 4/4:768 4/4:768 ", "its slash two columns in front of a bar"},
        {"3/4  4/4\n" + stave, "3/4:768 3/4:768 3/4:768 ", "three columns in front of it: never current"},
        {"3/4           4/4\n" + stave, "3/4:768 3/4:768 3/4:768 ",
         "one column less: above the end of a bar counts for no bar"},
        {"   3/4\n4/4\n" + stave, "3/4:768 3/4:768 3/4:768 ", "of two over a bar, the one of the upper line"},
        {"          3/4\n4/4\n" + stave, "4/4:768 3/4:768 3/4:768 ",
         "the first of the file gives the length, even when another is written first"},
    };
    for (const auto& row : rows) {
        TabText text(row.Text);
        const TabAnalysis analysis(text.File);
        EXPECT_EQ(BarsOf(analysis), row.Bars) << row.Why;
    }
}

} // namespace
} // namespace Fretline
