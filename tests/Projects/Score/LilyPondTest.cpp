#include "Projects/Score/LilyPond.h"

#include "Projects/Score/LilyPondNotes.h"
#include "Projects/Score/Notation.h"
#include "tests/Projects/Score/SmallScore.h"

#include <gtest/gtest.h>

using namespace Score;

namespace {

ModelNote NoteOn(int string, bool tied) {
    return {string, 0, 40 + string, 0, tied};
}

// One bar in 4/4 of these durations; negative for a rest, tied where the next one is to go on.
struct Part {
    int Duration;
    bool IsTied = false;
};

ScoreModel ScoreOf(const std::vector<Part>& parts) {
    ScoreModel score;
    score.HasRhythms = true;
    score.Tuning = {40, 45, 50, 55, 59, 64};
    ModelBar bar;
    int position = 0;
    for (const Part& part : parts) {
        const int duration = std::abs(part.Duration);
        ModelEvent event{position, duration, {}};
        if (part.Duration > 0)
            event.Notes = {NoteOn(0, part.IsTied)};
        bar.Events.push_back(event);
        position += duration;
    }
    bar.Length = position;
    score.Bars = {bar};
    return score;
}

// Position, value with dots, "r" for a rest, "~" when tied on.
std::string Written(const ScoreModel& score) {
    std::string text;
    for (const WrittenBar& bar : WriteOut(score)) {
        for (const WrittenPiece& piece : bar.Pieces)
            text += std::to_string(piece.Position) + ":" + std::to_string(piece.Value) +
                    (piece.Dots != 0 ? "." : "") +
                    (piece.Notes == nullptr ? "r"
                     : piece.TiedToNext     ? "~"
                                            : "") +
                    " ";
        text += "|";
    }
    return text;
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

} // namespace

TEST(Notation, WritesWhatAReaderExpects) {
    const struct {
        std::vector<Part> Parts;
        const char *Expected, *Why;
    } rows[] = {
        {{{256}, {256}, {512}}, "0:256 256:256 512:512 |", "as it is"},
        {{{512, true}, {256}, {256}}, "0:512. 768:256 |", "a tied pair is one dotted note"},
        {{{256}, {256, true}, {256}, {256}}, "0:256 256:512 768:256 |", "a syncopation is one note"},
        {{{256}, {128, true}, {512, true}, {128}},
         "0:256 256:512~ 768:256 |",
         "what is finer than that is cut at the beat"},
        {{{128}, {256, true}, {128}, {512}}, "0:128 128:256~ 384:128 512:512 |", "not off the beat"},
        {{{-256}, {-256}, {512}}, "0:512r 512:512 |", "rests are joined the same way"},
        {{{256, true}, {-256}, {512}}, "0:256 256:256r 512:512 |", "a tie into a rest goes nowhere"},
        {{{16}, {16}, {32}, {64}, {128}, {256}, {512}},
         "0:16 16:16 32:32 64:64 128:128 256:256 512:512 |",
         "short values"},
    };
    for (const auto& row : rows) {
        ScoreModel score = ScoreOf(row.Parts);
        EXPECT_EQ(row.Expected, Written(score)) << row.Why;
    }
    ScoreModel plain = ScoreOf({{128}, {-128}, {128}});
    plain.HasRhythms = false;
    EXPECT_EQ("0:256 256:256 |", Written(plain)) << "without rhythms the order is all";
}

TEST(LilyPond, WritesTheWholeScore) {
    const std::string text =
        LilyPondText(TestSupport::SmallScore(), "A \"title\" \\ of ours", Layout::Both, false);
    for (const char* part :
         {"\\version \"2.24.0\"", "title = \"A \\\"title\\\" \\\\ of ours\"", "verseSection = {",
          "\\time 3/4", "\\mark \\markup \\box \"Verse 1\"", "\\stringTuning < e, a, d g b e' >",
          "^\\markup \\bold \"Am\"", "\\clef \"treble_8\"", "\\new TabStaff", "| % 2"})
        EXPECT_TRUE(Has(text, part)) << part << " in\n" << text;
    EXPECT_FALSE(Has(LilyPondText(TestSupport::SmallScore(), "", Layout::Notes, false), "TabStaff"));
    EXPECT_TRUE(Has(LilyPondText(TestSupport::SmallScore(), "", Layout::Tab, true), "\\tabFullNotation"));
}

TEST(LilyPond, NamesPitchesAndSigns) {
    EXPECT_EQ("c'", PitchName({'C', 0, 4}));
    EXPECT_EQ("fs", PitchName({'F', 1, 3}));
    EXPECT_EQ("ef,,", PitchName({'E', -1, 1}));
    ScoreModel score = ScoreOf({{256}, {256}, {512}});
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
