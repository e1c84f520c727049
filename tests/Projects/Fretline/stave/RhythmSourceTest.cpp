#include "tests/Projects/Fretline/stave/BarText.h"

#include "Projects/Fretline/stave/BeatPositions.h"
#include "Projects/Fretline/stave/NoteLengths.h"

#include <gtest/gtest.h>

namespace Fretline {

namespace {

// What a source answers for each of the columns: position "+" duration, "t" when tied.
std::string AnswersOf(const Rhythms& rhythms, const std::vector<int>& columns) {
    std::string text;
    for (const int column : columns) {
        int duration = -1;
        bool tied = true;
        const int position = rhythms.GetPosition(column, duration, tied);
        AppendWord(text, std::to_string(position) + '+' + std::to_string(duration) + (tied ? "t" : ""));
    }
    return text;
}

} // namespace

TEST(NoteLengths, GiveTimes) {
    const struct {
        const char* Line;
        int Start, Width, Length;
        std::vector<int> Columns;
        const char *Answers, *Why;
    } rows[] = {
        {"Q  E E H", 0, 16, 1024, {0, 3, 5, 7}, "0+256 256+128 384+128 512+512", "the running sum"},
        {"WHQESTX", 0, 7, 2032, {6}, "2016+16", "every letter of the table"},
        {"Q.", 0, 16, 384, {0}, "0+384", "one dot"},
        {"X..", 0, 16, 28, {0}, "0+28", "two"},
        {"X........", 0, 16, 31, {0}, "0+31", "terms of nothing"},
        {"Q..", 0, 1, 448, {0}, "0+448", "dots are read past the end of the bar"},
        {"Q .", 0, 16, 256, {0}, "0+256", "a dot apart is none"},
        {"Q-Q", 0, 16, 512, {0, 1, 2}, "0+256 256+256t 256+256t", "column 1 takes the letter after it"},
        {"Q---Q---", 0, 8, 512, {4}, "256+256t", "a dash before the letter ties, whatever it meant"},
        {"xQ +Q -Q", 0, 16, 768, {1, 4, 7}, "0+256t 256+256t 512+256t", "the three marks"},
        {"--Q", 2, 1, 256, {0}, "0+256t", "the mark may stand left of the bar"},
        {"Q       Q", 0, 16, 512, {3, 7, 12}, "96+160 256+256 384+128", "between letters, and up to the end"},
        {"W  W", 0, 16, 2048, {1}, "340+684", "333 thousandths of 1024, cut off twice"},
        {"   Q", 0, 16, 256, {0, 1, 2}, "0+0 0+0 0+256", "before the first letter"},
        {"This Q", 0, 16, 288, {5}, "32+256", "letters inside words count"},
    };
    for (const auto& row : rows) {
        BarText text({row.Line});
        const NoteLengths lengths(text.File(), 0, row.Start, row.Width);
        EXPECT_EQ(lengths.GetLength(), row.Length) << row.Line << ": " << row.Why;
        EXPECT_EQ(AnswersOf(lengths, row.Columns), row.Answers) << row.Line << ": " << row.Why;
    }
}

TEST(BeatPositions, GiveTimes) {
    const struct {
        const char* Line;
        int Width, Numerator, Denominator, Length;
        std::vector<int> Columns;
        const char *Answers, *Why;
    } rows[] = {
        {"1   2   3   4", 16, 0, 0, 1024, {0, 4, 8, 12}, "0+0 256+0 512+0 768+0", "4/4 without a signature"},
        {"1   2   3", 16, 4, 4, 1024, {8, 12, 15}, "512+0 768+0 960+0", "the last lasts to the end"},
        {"1 + a 2 + a 3 + a 4 + a", 24, 4, 4, 1024, {2, 4, 6, 22}, "128+0 192+0 256+0 960+0", "by kind"},
        {"1   +   2   +", 16, 4, 4, 1024, {4, 8}, "256+0 512+0", "as many as beats: not by kind"},
        {"1 2 3 4 5", 16, 4, 4, 1280, {2, 8}, "256+0 1024+0", "graded, but of one kind: the bar grows"},
        {"1 2", 16, 1, 16, 64, {0, 2}, "0+0 32+0", "two to a beat of a 1/16 bar"},
        {"1   2", 16, 2, 3, 1024, {4}, "512+0", "a denominator between powers of two counts as the lower"},
        {"  1   2   3   4", 16, 4, 4, 1024, {0, 2, 4}, "0+0 0+0 128+0", "left of the first, and between two"},
        {"1  2", 4, 4, 4, 1024, {1, 2}, "85+0 170+0", "256 times 1 and 2, then cut into three"},
        {"1 + + + + +", 16, 4, 4, 1024, {2, 4, 10}, "0+0 128+0 512+0", "but keeps its grade"},
        {"", 16, 4, 4, 1024, {0, 4, 15}, "0+0 256+0 960+0", "without a symbol the columns share the bar"},
    };
    for (const auto& row : rows) {
        BarText text({row.Line});
        const TabTimeSignature signature = MakeTimeSignature(row.Numerator, row.Denominator);
        const BeatPositions beats(text.File(), 0, 0, row.Width, row.Numerator > 0 ? &signature : nullptr);
        EXPECT_EQ(beats.GetLength(), row.Length) << row.Line << ": " << row.Why;
        EXPECT_EQ(AnswersOf(beats, row.Columns), row.Answers) << row.Line << ": " << row.Why;
    }
}

TEST(BeatPositions, LeaveOutTimeSignatures) {
    const std::string empty(16, '-');
    BarText text({"3/4 1   2   3   ", empty, empty, empty, empty});
    const TabBar& bar = *text.Analysis().GetReadableBars().at(0);
    const BeatPositions beats(text.File(), 0, 0, 16, bar.GetTimeSignature());
    EXPECT_EQ(beats.GetLength(), 768);
    EXPECT_EQ(AnswersOf(beats, {0, 4, 8, 12}), "0+0 0+0 256+0 512+0");
}

TEST(BeatPositions, AreReadWithoutAnAnalysis) {
    const Nvr::String noPath;
    const FretlineOptions options(noPath);
    TestSupport::TabText text("1   2   3   4   \n5---5---5---5---\n----------------\n\n", &options);
    const TabStave stave(text.File, 1, 2);
    TabBar& bar = *stave.GetBars().at(0);
    bar.ReadBar(nullptr);
    EXPECT_EQ(TimesOf(bar), "0+256 256+256 512+256 768+256");
}

} // namespace Fretline
