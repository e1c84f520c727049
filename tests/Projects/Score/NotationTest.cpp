#include "Projects/Score/Notation.h"

#include "Projects/Score/Beams.h"
#include "tests/Projects/Score/SmallScore.h"

#include <gtest/gtest.h>

using namespace Score;

namespace {

using TestSupport::Part;
using TestSupport::ScoreOf;

// Position, value with dots, "r" for a rest, a "~" for each note that is tied on, "-" where nothing is
// struck.
std::string Written(const ScoreModel& score) {
    std::string text;
    for (const WrittenBar& bar : WriteOut(score)) {
        for (const WrittenPiece& piece : bar.Pieces) {
            text += std::to_string(piece.Position) + ":" + std::to_string(piece.Value) +
                    (piece.Dots != 0 ? "." : "") + (piece.Notes == nullptr ? "r" : "");
            for (const bool isTied : piece.IsTied)
                text += isTied ? "~" : "";
            text += piece.IsStruck ? " " : "- ";
        }
        text += "|";
    }
    return text;
}

// Of each piece, from the quavers' beam on: "[" begins, "=" goes on, "]" ends, ">" and "<" are hooks; "."
// without beams.
std::string Beams(const ScoreModel& score) {
    std::string text;
    for (const WrittenBar& bar : WriteOut(score))
        for (const std::vector<Beam>& beams : BeamsOf(bar)) {
            for (const Beam beam : beams)
                text += "[=]><"[static_cast<std::size_t>(beam)];
            text += beams.empty() ? ". " : " ";
        }
    return text;
}

} // namespace

TEST(Notation, WritesWhatAReaderExpects) {
    const struct {
        std::vector<Part> Parts;
        ModelTimeSignature Metre;
        const char *Expected, *Why;
    } rows[] = {
        {{{256}, {256}, {512}}, {4, 4}, "0:256 256:256 512:512 |", "as it is"},
        {{{512, true}, {256}, {256}}, {4, 4}, "0:512. 768:256 |", "a tied pair is one dotted note"},
        {{{256}, {256, true}, {256}, {256}}, {4, 4}, "0:256 256:512 768:256 |", "a syncopation is one note"},
        {{{64}, {128, true}, {256}, {64}},
         {2, 4},
         "0:64 64:128.~ 256:128.- 448:64 |",
         "what is finer than that is cut at the beat"},
        {{{256}, {512, true}, {256}}, {4, 4}, "0:256 256:512. |", "a dotted note may end on the beat"},
        {{{128}, {256, true}, {128}, {512}}, {4, 4}, "0:128 128:256. 512:512 |", "also a shorter one"},
        {{{256}, {128}, {256, true}, {128}}, {3, 4}, "0:256 256:128 384:256~ 640:128- |", "not off the beat"},
        {{{-256}, {-256}, {512}}, {4, 4}, "0:512r 512:512 |", "rests are joined the same way"},
        {{{256, true}, {-256}, {512}}, {4, 4}, "0:256 256:256r 512:512 |", "a tie into a rest goes nowhere"},
        {{{16}, {16}, {32}, {64}, {128}, {256}, {512}},
         {4, 4},
         "0:16 16:16 32:32 64:64 128:128 256:256 512:512 |",
         "short values"},
        {{{256, true}, {128}, {256, true}, {128}}, {6, 8}, "0:256. 384:256. |", "the beat of 6/8 has a dot"},
        {{{512}, {256}}, {6, 8}, "0:256.~ 384:128- 512:256 |", "a beat of 6/8 is not crossed"},
        {{{512, true}, {256}, {256, true}, {128}},
         {9, 8},
         "0:512. 768:256. |",
         "two beats of 9/8 are one dotted note"},
        {{{1024, true}, {512}}, {12, 8}, "0:1024. |", "so is the whole bar of 12/8"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Expected, Written(ScoreOf(row.Parts, row.Metre))) << row.Why;
}

TEST(Notation, TiesNotesOfAChordOneByOne) {
    ScoreModel score = ScoreOf({{256, true}, {256, true}, {512}});
    score.Bars[0].Events[0].Notes.push_back({1, 0, 45, 0, false});
    score.Bars[0].Events[2].Notes.push_back({2, 0, 50, 0, false});
    EXPECT_EQ("0:256~ 256:256~- 512:512 |", Written(score)) << "one goes on; then another is struck with it";
    score.Bars[0].Events[1].Notes[0].Midi = 41;
    EXPECT_EQ("0:256 256:256 512:512 |", Written(score)) << "a tie leads to no other pitch";
}

TEST(Notation, APickupIsTheEndOfABar) {
    ScoreModel score = ScoreOf({{512}, {128}}, {3, 4});
    EXPECT_EQ("0:512 512:128 |", Written(score)) << "a bar alone is none";
    score.Bars.push_back(ScoreOf({{256}, {512}}).Bars[0]);
    EXPECT_EQ("0:256.~ 384:128- 512:128 |0:256 256:512 |", Written(score)) << "it begins off the beat";
    EXPECT_TRUE(WriteOut(score)[0].IsPickup);
    score.Bars.push_back(ScoreOf({{128}}).Bars[0]);
    EXPECT_FALSE(WriteOut(score)[2].IsPickup);
    score.Bars.pop_back();
    EXPECT_EQ(128, WriteOut(score)[0].GetOffset());
    score.Bars[0].Length = 768;
    EXPECT_EQ("0:512 512:128 640:128r |0:256 256:512 |", Written(score)) << "nor is a whole bar";
}

TEST(Notation, WithoutRhythmsTheOrderIsAll) {
    ScoreModel score = ScoreOf({{128}, {-128}, {128, true}, {64}, {64}});
    score.HasRhythms = false;
    score.Bars[0].ChordSymbols = {{0, "C"}, {384, "G"}};
    EXPECT_EQ("0:256 256:256 512:256 |", Written(score));
    EXPECT_EQ((std::vector<int>{0, 512}), WriteOut(score)[0].ChordPositions) << "each stands at its note";
}

TEST(Notation, BeamsJoinTheNotesOfABeat) {
    const struct {
        std::vector<Part> Parts;
        ModelTimeSignature Metre;
        const char *Expected, *Why;
    } rows[] = {
        {{{128}, {128}, {128}, {128}, {512}}, {4, 4}, "[ = = ] . ", "four quavers of a half bar"},
        {{{256}, {128}, {128}, {128}, {128}, {256}},
         {4, 4},
         ". [ ] [ ] . ",
         "not over the middle of the bar"},
        {{{192}, {128}, {192}, {512}}, {4, 4}, "[ ] . . ", "nor with dotted ones"},
        {{{128}, {128}, {128}, {128}}, {2, 4}, "[ ] [ ] ", "a beat elsewhere"},
        {{{64}, {64}, {64}, {64}, {128}, {128}}, {2, 4}, "[[ == == ]] [ ] ", "two beams"},
        {{{192}, {64}, {64}, {192}}, {2, 4}, "[ ]< [> ] ", "hooks point into their beat"},
        {{{96}, {32}, {64}, {64}}, {1, 4}, "[[ ==< == ]] ", "also inside it"},
        {{{64}, {128}, {64}}, {1, 4}, "[> = ]< ", "also at both ends"},
        {{{128}, {32}, {96}}, {1, 4}, "[ =[> ]] ", "a hook of the third beam stands on two whole ones"},
        {{{128}, {-128}, {128}, {128}}, {2, 4}, ". . [ ] ", "a note alone has flags, and rests part"},
        {{{128}, {128}, {128}, {128}, {128}, {128}}, {6, 8}, "[ = ] [ = ] ", "three quavers of 6/8"},
        {{{128}, {128}, {128}, {128}, {128}}, {5, 8}, "[ = ] [ ] ", "three and two of 5/8"},
        {{{8}, {8}, {16}, {32}, {64}, {128}}, {1, 4}, "[[[[ ==== ===] ==] =] ] ", "no more than four"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Expected, Beams(ScoreOf(row.Parts, row.Metre))) << row.Why;
    ScoreModel pickup = ScoreOf({{128}, {128}, {128}}, {2, 4});
    pickup.Bars.push_back(ScoreOf({{512}}).Bars[0]);
    EXPECT_EQ(". [ ] . ", Beams(pickup)) << "beats count from the end of a pickup";
}
