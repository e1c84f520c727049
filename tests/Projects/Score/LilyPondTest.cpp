#include "Projects/Score/LilyPond.h"

#include "Projects/Score/LilyPondChords.h"
#include "Projects/Score/LilyPondNotes.h"
#include "tests/Projects/Score/SmallScore.h"

#include <gtest/gtest.h>

using namespace Score;

namespace {

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

} // namespace

TEST(LilyPond, WritesTheWholeScore) {
    const std::string text =
        LilyPondText(TestSupport::SmallScore(), "A \"title\" \\ of ours", Layout::Both, false);
    for (const char* part :
         {"\\version \"2.24.0\"", "title = \"A \\\"title\\\" \\\\ of ours\"", "verseSection = {",
          "\\time 3/4", "\\sectionLabel \\markup { \\box \"Verse 1\" }", "\\stringTuning < e, a, d g b e' >",
          "a4:m \\named \"C(add9)\" c4. | % 0", "\\new ChordNames", "\\clef \"treble_8\"", "\\new TabStaff",
          "\\partial 1*5/8", "| % 0", "| % 1"})
        EXPECT_TRUE(Has(text, part)) << part << " in\n" << text;
    EXPECT_FALSE(Has(LilyPondText(TestSupport::SmallScore(), "", Layout::Notes, false), "TabStaff"));
    EXPECT_TRUE(Has(LilyPondText(TestSupport::SmallScore(), "", Layout::Tab, true), "\\tabFullNotation"));
}

TEST(LilyPond, WritesChordsAboveTheStaves) {
    const struct {
        std::vector<ModelText> Chords;
        const char *Expected, *Why;
    } rows[] = {
        {{}, "s1 ", "a bar without any"},
        {{{0, "F#m7"}}, "fs1:m7 ", "a kind that chord mode has"},
        {{{256, "Bb7"}, {512, "C/G"}}, "s4 bf4:7 c2/g ", "each lasts until the next"},
        {{{0, "Dmaj7"}, {640, "G7#9"}}, "d1*5/8:maj7 \\named \"G7#9\" g4. ", "any other is a text"},
        {{{0, "A"}, {0, "Dsus4"}}, "\\named \"A Dsus4\" a1 ", "two at one place are one text"},
    };
    for (const auto& row : rows) {
        ScoreModel score = TestSupport::ScoreOf({{1024}});
        score.Bars[0].ChordSymbols = row.Chords;
        EXPECT_EQ(row.Expected, LilyPondChords(score.Bars[0], WriteOut(score)[0], 1024)) << row.Why;
    }
    EXPECT_FALSE(Has(LilyPondText(TestSupport::ScoreOf({{1024}}), "", Layout::Both, false), "Chord"));
}

TEST(LilyPond, NamesPitchesAndSigns) {
    EXPECT_EQ("c'", LilyPondPitch({'C', 0, 4}));
    EXPECT_EQ("fs", LilyPondPitch({'F', 1, 3}));
    EXPECT_EQ("ef,,", LilyPondPitch({'E', -1, 1}));
    ScoreModel score = TestSupport::ScoreOf({{256}, {256}, {512}});
    score.Bars[0].Events[0].Notes[0].Techniques = {{Technique::HammerOn, 0}};
    score.Bars[0].Events[1].Notes[0].Techniques = {{Technique::Bend, 6}, {Technique::Dead, 0}};
    score.Bars[0].Repeats.IsStart = true;
    score.Heading.Tempo = 90;
    const std::string text = LilyPondText(score, "x", Layout::Both, false);
    for (const char* part :
         {"<e,\\6>4^\\markup \\tiny \"H\"( <\\deadNote e,\\6>4)^\\markup \\tiny \"bend 1 1/2\"",
          "\\bar \".|:\"", "\\tempo 4 = 90"})
        EXPECT_TRUE(Has(text, part)) << part << " in\n" << text;
}
