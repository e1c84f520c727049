#include "Projects/Score/LilyPond.h"

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
    for (const char* part : {"\\version \"2.24.0\"", "title = \"A \\\"title\\\" \\\\ of ours\"",
                             "verseSection = {", "\\time 3/4", "\\mark \\markup \\box \"Verse 1\"",
                             "\\stringTuning < e, a, d g b e' >", "^\\markup \\bold \"Am\"",
                             "\\clef \"treble_8\"", "\\new TabStaff", "\\partial 1*5/8", "| % 0", "| % 1"})
        EXPECT_TRUE(Has(text, part)) << part << " in\n" << text;
    EXPECT_FALSE(Has(LilyPondText(TestSupport::SmallScore(), "", Layout::Notes, false), "TabStaff"));
    EXPECT_TRUE(Has(LilyPondText(TestSupport::SmallScore(), "", Layout::Tab, true), "\\tabFullNotation"));
}

TEST(LilyPond, NamesPitchesAndSigns) {
    EXPECT_EQ("c'", PitchName({'C', 0, 4}));
    EXPECT_EQ("fs", PitchName({'F', 1, 3}));
    EXPECT_EQ("ef,,", PitchName({'E', -1, 1}));
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
