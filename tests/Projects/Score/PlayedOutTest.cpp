#include "Projects/Score/PlayedOut.h"

#include "Projects/Score/LilyPond.h"
#include "Projects/Score/MusicXml.h"
#include "tests/Projects/Score/SmallScore.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <sstream>

namespace {

using namespace Score;

// One bar from a letter, its name, and its signs: "[" and "]" for a repeat, "3" for its times, "(12)" for an
// ending, "$" for the segno, "@" for the coda, ">" for "To Coda", "." for the fine; "C" or "S" for a jump,
// and after it "f" or "c" for its end.
ModelBar BarOf(const std::string& word) {
    ModelBar bar;
    bar.Labels = {word.substr(0, 1)};
    bool isInEnding = false;
    for (const char sign : word.substr(1)) {
        if (sign == '(' || sign == ')')
            isInEnding = sign == '(';
        else if (isInEnding)
            bar.Repeats.Endings.push_back(sign - '0');
        else if (sign >= '2' && sign <= '9')
            bar.Repeats.Times = sign - '0';
        else if (sign == 'C' || sign == 'S')
            bar.Way.To = sign == 'C' ? Jump::DaCapo : Jump::DalSegno;
        else if (sign == 'f' || sign == 'c')
            bar.Way.Until = sign == 'f' ? JumpEnd::Fine : JumpEnd::Coda;
        bar.Repeats.IsStart |= sign == '[';
        bar.Repeats.IsEnd |= sign == ']';
        bar.Way.HasSegno |= sign == '$';
        bar.Way.HasCoda |= sign == '@';
        bar.Way.HasToCoda |= sign == '>';
        bar.Way.HasFine |= sign == '.';
    }
    return bar;
}

ScoreModel ScoreOf(const std::string& words) {
    ScoreModel score = TestSupport::SmallScore();
    score.Bars.clear();
    std::istringstream stream(words);
    for (std::string word; stream >> word;)
        score.Bars.push_back(BarOf(word));
    return score;
}

std::string Played(const std::string& words) {
    const std::optional<ScoreModel> played = PlayedOut(ScoreOf(words));
    std::string names;
    if (played)
        for (const ModelBar& bar : played->Bars)
            names += bar.Labels.front();
    return names;
}

TEST(PlayedOut, GoesTheWayOfAPlayer) {
    const struct {
        const char *Bars, *Played, *Why;
    } kCases[] = {
        {"a b c", "", "nothing leads back"},
        {"a b] c", "ababc", "from the beginning"},
        {"a b[]3 c", "abbbc", "one bar three times"},
        {"a] b] c", "aabbc", "from the bar after the last end"},
        {"a b[ c(1)] d(2) e", "abcbde", "two endings"},
        {"a[ b(12)] c(3) d", "ababacd", "the first ending twice"},
        {"a[ b(1)] c(2)] d(3) e", "abacade", "three endings"},
        {"a[ b(1) c(1)] d(2) e(2)]", "abcade", "long endings, the last with a sign of its own"},
        {"a[ b(1)] c(2) d[ e(1)] f(2)", "abacdedf", "two repeats with endings"},
        {"a[ b(1)] c(2) d e] f", "abacdedef", "what comes after the endings has a repeat of its own"},
        {"a[ b] c(1)] d(2)", "ababcd", "endings without a start go back to the last end"},
        {"a b. c dCf", "abcdab", "to the fine"},
        {"a b cC", "abcabc", "to the end"},
        {"a b$ c> dSc e@ f", "abcdbcef", "by way of the coda"},
        {"a@ b> cCc", "abcababc", "to a coda that leads to the same place, once"},
        {"a[ b(1)] c(2). dCf", "abacdac", "no repeats after the jump, the last ending at once"},
        {"a[ b]Cf c", "abababc", "a jump at the end of a repeat, without its fine"},
        {"aS b", "a", "without its segno the way ends"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(row.Played, Played(row.Bars)) << row.Why << ": " << row.Bars;
}

TEST(PlayedOut, KeepsMetreAndTempoOverALeap) {
    ScoreModel score = ScoreOf("a b> c dCc e@");
    score.Heading.Tempo = 100;
    score.Bars[2].TimeSignature = ModelTimeSignature{2, 4};
    score.Bars[3].Tempo = 60;
    const std::optional<ScoreModel> played = PlayedOut(score);
    ASSERT_EQ(7U, played->Bars.size());
    EXPECT_EQ(60, played->Bars[3].Tempo);
    EXPECT_EQ(100, played->Bars[4].Tempo) << "back at the beginning";
    EXPECT_EQ(4, played->Bars[4].TimeSignature->Numerator);
    EXPECT_EQ(60, played->Bars[6].Tempo) << "the coda comes after the change";
    EXPECT_EQ(2, played->Bars[6].TimeSignature->Numerator);
    EXPECT_EQ(ModelWay{}, played->Bars[3].Way) << "nothing leads anywhere any more";
}

TEST(MusicXml, SaysWhereTheWayLeads) {
    ScoreModel score = ScoreOf("a$[ b(12)] c(3) d> e. fSc g@");
    score.Bars[6].Tempo = 72;
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
    const char* const kPaths[] = {
        "//measure[1]/direction[direction-type/segno]/sound[@segno='segno']",
        "//measure[2]/barline[@location='left']/ending[@number='1, 2'][@type='start']",
        "//measure[2]/barline[@location='right'][ending[@type='stop']]/repeat",
        "//measure[3]/barline[@location='left']/ending[@number='3'][@type='start']",
        "//measure[3]/barline[@location='right']/ending[@type='discontinue']",
        "//measure[4]/direction[direction-type/words='To Coda']/sound[@tocoda='coda']",
        "//measure[5]/direction[direction-type/words='Fine']/sound[@fine='yes']",
        "//measure[6]/direction[direction-type/words='D.S. al Coda']/sound[@dalsegno='segno']",
        "//measure[7]/direction[direction-type/coda]/sound[@coda='coda']",
        "//measure[7]/direction[.//per-minute='72']/sound[@tempo='72']",
    };
    for (const char* path : kPaths)
        EXPECT_EQ(1U, document.select_nodes(path).size()) << path;
    EXPECT_EQ(4U, document.select_nodes("//ending").size());
}

TEST(LilyPond, SaysWhereTheWayLeads) {
    ScoreModel score = ScoreOf("a$ b(1)] c(2) d>. eCf f@");
    score.Bars[0].Labels.clear();
    const std::string text = LilyPondText(score, "t", Layout::Both, false);
    for (const char* part :
         {"\\segnoMark 1", "#'((volta \"1.\"))", "\\bar \":|.\"\n}", "#'((volta #f) (volta \"2.\"))",
          "#'((volta #f))", "\\jump \"To Coda, Fine\"", "\\jump \"D.C. al Fine\"",
          "\\sectionLabel \\markup { \\musicglyph \"scripts.coda\" \\box \"f\" }"})
        EXPECT_NE(std::string::npos, text.find(part)) << part;
}

} // namespace
