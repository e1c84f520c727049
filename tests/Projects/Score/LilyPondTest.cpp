#include "Projects/Score/LilyPond.h"

#include "Projects/Score/LilyPondChords.h"
#include "Projects/Score/LilyPondNotes.h"
#include "Projects/Score/LineBreaks.h"
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

TEST(LilyPond, HasStavesForEachPart) {
    std::vector<ScoreModel> parts = TestSupport::SmallParts();
    parts[0].Heading.Tempo = parts[1].Heading.Tempo = 90;
    parts[1].Heading.Capo = 2;
    const std::string text = LilyPondText(parts, "", Layout::Both, false);
    for (const char* part :
         {"verseSectionGuitar = {", "verseSectionBass = {", "allGuitarChords = {", "\\allBass\n",
          "tuningBass = \\stringTuning < e,, a,, d, g, >", "instrumentName = \"Bass\"", "\\clef \"bass_8\"",
          "stringTunings = \\tuningBass", "Capo 2"})
        EXPECT_TRUE(Has(text, part)) << part << " in\n" << text;
    EXPECT_FALSE(Has(text, "allBassChords"));
    for (const char* once : {"\\tempo", "\\sectionLabel"})
        EXPECT_EQ(text.find(once), text.rfind(once)) << once << " is said once for all parts";
    parts[1].InstrumentName = parts[0].InstrumentName;
    EXPECT_TRUE(Has(LilyPondText(parts, "", Layout::Tab, false), "allGuitarB = {")) << "two of one name";
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

TEST(LilyPond, NamesPitches) {
    EXPECT_EQ("c'", LilyPondPitch({'C', 0, 4}));
    EXPECT_EQ("fs", LilyPondPitch({'F', 1, 3}));
    EXPECT_EQ("ef,,", LilyPondPitch({'E', -1, 1}));
}

TEST(LilyPond, WritesLengths) {
    const std::pair<int, const char*> rows[] = {{256, "4"},   {384, "4."},   {640, "1*5/8"},
                                                {1536, "1."}, {8, "64*1/2"}, {16, "64"}};
    for (const auto& [length, expected] : rows)
        EXPECT_EQ(expected, LengthText(length));
    EXPECT_TRUE(
        Has(LilyPondText(TestSupport::ScoreOf({{4}, {1020}}), "", Layout::Both, false), "<e,\\6>64*1/4 "))
        << "no note has more flags than a 64th";
}

TEST(LilyPond, SaysHowNotesArePlayed) {
    // The notes of a bar on the lowest string and what is asked of the first two; then one on the next
    // string.
    const struct {
        std::vector<ModelTechnique> First, Second;
        const char *Expected, *Why;
    } rows[] = {
        {{{Technique::HammerOn}}, {}, "<e,\\6>4^\\markup \\tiny \"H\"( <f,\\6>4) ", "a slur"},
        {{{Technique::Bend, 2}},
         {{Technique::Release}},
         "<e,\\6>4^\\markup \\tiny \"bend 1/2\"\\^ <f,\\6>4\\^ <e,\\6>4 ",
         "a bend to a note, and back"},
        {{{Technique::Bend, 4}},
         {},
         "<e,\\6>4^\\markup \\tiny \"bend full\"\\bendAfter #2  <f,\\6>4 ",
         "the next note is not what it is bent to"},
        {{},
         {{Technique::Bend, 4}, {Technique::Release}},
         "<f,\\6>4^\\markup \\tiny \"bend full, release\"\\bendAfter #2  ",
         "both on one note"},
        {{},
         {{Technique::Bend, 4}, {Technique::Bend, 2}},
         "<f,\\6>4^\\markup \\tiny \"bend full, on to 1 1/2\"\\bendAfter #2  ",
         "and farther"},
        {{}, {{Technique::Release}}, "<f,\\6>4 <e,\\6>4 ", "nothing is released that is not bent"},
        {{}, {{Technique::Bend, 6}}, "<f,\\6>4^\\markup \\tiny \"bend 1 1/2\"\\bendAfter #2  ", "to none"},
        {{{Technique::Slide}}, {}, "<e,\\6>4\\glissando <f,\\6>4 ", "a slide to a note"},
        {{{Technique::SlideOut, -1}},
         {},
         "<e,\\6>4^\\markup \\tiny \"sl. \\\\\"\\bendAfter #-4  ",
         "and to none"},
        {{{Technique::Slide}, {Technique::SlideIn, 1}},
         {},
         "<e,\\6>4^\\markup \\tiny \"/ sl.\"\\glissando ",
         "and from none"},
        {{{Technique::PalmMute}},
         {{Technique::PalmMute}},
         "<e,\\6>4\\startTextSpan <f,\\6>4\\stopTextSpan ",
         "a line"},
        {{{Technique::PalmMute}}, {}, "<e,\\6>4^\\markup \\tiny \"P.M.\" ", "one alone"},
        {{{Technique::Dead}, {Technique::Vibrato}},
         {},
         "<\\deadNote e,\\6>4^\\vibrato ",
         "a head and a sign"},
    };
    for (const auto& row : rows) {
        ScoreModel score = TestSupport::ScoreOf({{256}, {256}, {256}, {256}});
        std::vector<ModelEvent>& events = score.Bars[0].Events;
        events[1].Notes[0].Midi = 41;
        events[1].Notes[0].Diat = 24;
        events[0].Notes[0].Techniques = row.First;
        events[1].Notes[0].Techniques = row.Second;
        const std::string text = LilyPondText(score, "", Layout::Both, false);
        EXPECT_TRUE(Has(text, row.Expected)) << row.Why << "\n" << text;
    }
}

TEST(LilyPond, KeepsBarsThatHoldNothing) {
    ScoreModel score = TestSupport::ScoreOf({{-512}, {-512}});
    EXPECT_TRUE(Has(LilyPondText(score, "", Layout::Both, false), "  R1 | % 1"));
    score.HasRhythms = false;
    EXPECT_TRUE(Has(LilyPondText(score, "", Layout::Both, false), "(ly:make-moment 1/4)\n  s4 | % 1"));
}

TEST(LilyPond, SlidesFromStringToString) {
    ScoreModel score = TestSupport::ScoreOf({{512}, {512}});
    std::vector<ModelEvent>& events = score.Bars[0].Events;
    events[0].Notes.push_back({1, 2, 47, 27, false, {{Technique::Slide}}});
    events[1].Notes = {{1, 4, 49, 28, false}};
    EXPECT_TRUE(Has(LilyPondText(score, "", Layout::Both, false),
                    "\\once \\set glissandoMap = #'((1 . 0)) <e,\\6 b,\\5>2\\glissando <cs\\5>2"));
    events[1].Notes[0].String = 2;
    EXPECT_TRUE(Has(LilyPondText(score, "", Layout::Both, false), "<e,\\6 b,\\5>2^\\markup \\tiny \"sl.\" "));
}

TEST(LilyPond, RepeatsEndWithTheirOwnBarline) {
    ScoreModel score = TestSupport::ScoreOf({{256}, {256}, {512}});
    score.Heading.Tempo = 90;
    score.Bars[0].Repeats.IsStart = true;
    const std::string text = LilyPondText(score, "x", Layout::Both, false);
    for (const char* part : {"\\bar \".|:-|\"", "\\tempo 4 = 90", "\\bar \"|.\""})
        EXPECT_TRUE(Has(text, part)) << part << " in\n" << text;
    score.Bars[0].Repeats.IsEnd = true;
    EXPECT_FALSE(Has(LilyPondText(score, "x", Layout::Both, false), "\\bar \"|.\""));
    score.Bars.push_back(score.Bars[0]);
    EXPECT_TRUE(Has(LilyPondText(score, "x", Layout::Both, false), "\\bar \":..:\"")) << "two that meet";
}

TEST(LilyPond, ChangesStringsBetweenBars) {
    ScoreModel score = TestSupport::ScoreOf({{1024}});
    score.Bars.push_back(score.Bars[0]);
    score.Bars[1].Tuning = {28, 33, 38, 43};
    EXPECT_TRUE(Has(LilyPondText(score, "", Layout::Both, false), "BarLine.bar-extent = #'(-3.75 . 3.75)"))
        << "the barline reaches the six strings that end";
    score.Bars[1].Tuning = {35, 40, 45, 50, 55, 59, 64};
    EXPECT_FALSE(Has(LilyPondText(score, "", Layout::Both, false), "bar-extent")) << "seven are higher";
}

TEST(LilyPond, BreaksLinesAsTheTextDoes) {
    const struct {
        // Notes of each bar; negative where it begins a line of the text.
        std::vector<int> Bars;
        std::vector<bool> Expected;
        const char* Why;
    } rows[] = {
        {{8, 8, -8, 8}, {false, true, false, false}, "where a line ends"},
        {{4, -4, -8, 8}, {false, false, false, false}, "short lines go together"},
        {{4, -4, -4, -8}, {false, false, true, false}, "until they fill some of one"},
        {{4, -16, 16, -8}, {false, false, true, false}, "as far as that fits"},
        {{16, 16, 16, -8, 8}, {false, false, false, false, false}, "a line that is too long for a page"},
    };
    for (const auto& row : rows) {
        ScoreModel score;
        for (const int notes : row.Bars) {
            score.Bars.push_back(TestSupport::ScoreOf(std::vector<TestSupport::Part>(
                                                          static_cast<std::size_t>(std::abs(notes)), {64}))
                                     .Bars[0]);
            score.Bars.back().BeginsLine = notes < 0;
        }
        score.HasRhythms = true;
        EXPECT_EQ(row.Expected, LineBreaks(score, WriteOut(AsParts(score)))) << row.Why;
    }
}
