#include "Projects/Fretline/text/Labels.h"

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
using namespace std::string_view_literals;

std::string TextOf(const RiffLabel* label) {
    return label == nullptr ? "none" : std::string(label->GetText().View());
}

// The label of each readable bar.
std::string LabelsOfBars(const TabAnalysis& analysis) {
    std::string text;
    for (const TabBar* bar : analysis.GetReadableBars())
        text += '[' + TextOf(bar->GetLabel()) + ']';
    return text;
}

TEST(Labels, AreFoundByTheirKeywords) {
    const struct {
        std::string_view Line;
        // "keyword:start-end[text]" of each.
        const char *Found, *Why;
    } rows[] = {
        {"Chorus 2", "chorus:0-8[Chorus 2]", "what stands beside the keyword belongs to it"},
        {"Verse  x", "verse:0-8[Verse  x]", "blanks beside each other count one by one"},
        {"Verse   x", "verse:0-5[Verse]", "three of them end the label"},
        {"a b c Verse", "verse:2-11[b c Verse]", "two blanks to the left as well"},
        {"x   Verse", "verse:4-9[Verse]", "and no more"},
        {"   Verse", "verse:3-8[Verse]", "white space in front is left out"},
        {"x \vVerse\f y", "verse:0-11[x \vVerse\f y]", "white space other than blanks does not count"},
        {"Verse\0x"sv, "verse:0-5[Verse]", "a zero byte ends a label"},
        {"verses preverse", "", "a part of a word is no hit"},
        {"verse1 2verse", "verse:0-13[verse1 2verse]", "digits are no letters, and one place is one label"},
        {"pre-chorus", "chorus:0-10[pre-chorus]", "nor is a hyphen"},
        {"Prechorus", "prechorus:0-9[Prechorus]", "chorus is no hit inside it"},
        {"Intro riff", "intro:0-10[Intro riff]", "the earlier keyword of the table keeps the place"},
        {"fig   coda   bridge", "fig:0-3[fig]coda:6-10[coda]bridge:13-19[bridge]", "every other keyword"},
        {"solo   pattern   outro", "solo:0-4[solo]pattern:7-14[pattern]outro:17-22[outro]", "of the table"},
        {"Verse    Chorus", "verse:0-5[Verse]chorus:9-15[Chorus]", "two labels on a line"},
        {"Chorus    Verse", "verse:10-15[Verse]chorus:0-6[Chorus]", "in the order of the keywords"},
        {"riff riff riff riff",
         "riff:0-14[riff riff riff]riff:0-19[riff riff riff riff]riff:5-19[riff riff riff]",
         "places that overlap are different places"},
        {"rriff", "", "the search does not see it"},
        {"\xE9riff\xE9", "riff:0-6[\xE9riff\xE9]", "bytes beyond ASCII are no letters"},
        {"\xA0 riff \xC3\xA0", "riff:0-9[\xA0 riff \xC3\xA0]", "nor white space in any code page"},
        {"a \0 riff"sv, "riff:0-8[a]", "the text ends at a zero byte, and before blanks in front of it"},
    };
    for (const auto& row : rows) {
        const TabText text(row.Line);
        std::vector<std::unique_ptr<RiffLabel>> labels;
        FindLabelsIn(text.File, 0, labels);
        std::ostringstream found;
        for (const auto& label : labels)
            found << label->m_Keyword.View() << ':' << label->m_StartColumn << '-' << label->m_EndColumn
                  << '[' << TextOf(label.get()) << ']';
        EXPECT_EQ(found.str(), row.Found) << row.Line << ": " << row.Why;
    }
}

TEST(Labels, AttachToTheBarsBelow) {
    // Bars from column 0 to 9 and 11 to 20.
    const std::string stave = Stave("----------|----------");
    const struct {
        std::string Text;
        const char *Bars, *Why;
    } rows[] = {
        {"Intro\nVerse\n" + stave, "[Verse][none]", "the nearest line"},
        {"Intro\n             Verse\n" + stave, "[none][Verse]", "and no other, also over another bar"},
        {"                         Intro\nVerse\n" + stave, "[Verse][none]", "a nearer one"},
        {"Verse\n                         Intro\n" + stave, "[none][none]",
         "which is lost, hides those above it all the same"},
        {"Riff    Fig\n" + stave, "[Fig][none]", "the later of two replaces the earlier"},
        {"Fig    Riff\n" + stave, "[Fig][none]", "later in the order of the keywords"},
        {"Intro\n" + stave + "\n" + stave, "[Intro][none][none][none]", "not to the stave after the next"},
        {"Intro\n" + stave + stave, "[Intro][none][none][none]", "nor to the rest of a cut run"},
        {"---Intro--|----------\n" + stave + "\n" + stave, "[none][none][none][none]", "on a stave line"},
    };
    for (const auto& row : rows) {
        TabText text(row.Text);
        const TabAnalysis analysis(text.File);
        EXPECT_EQ(LabelsOfBars(analysis), row.Bars) << row.Why;
    }
}

} // namespace
} // namespace Fretline
