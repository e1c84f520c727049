#include "tests/Projects/Fretline/stave/BarText.h"

#include "Projects/Fretline/score/ScoreTime.h"

#include <gtest/gtest.h>

#include <cstring>

namespace Fretline {

namespace {

// `count` notes two text columns apart.
std::string Notes(std::size_t count) {
    return TestSupport::Repeat("5-", count);
}

} // namespace

TEST(ScoreTime, RoundsToMultiplesOf32) {
    const struct {
        int Time, Rounded;
        const char* Why;
    } rows[] = {
        {16, 32, "half way goes up"},
        {1007, 992, "just below half way"},
        {-16, -32, "half way goes away from nought"},
        {(1 << 24) + 15, (1 << 24) + 32, "held in 24 bits as 16, which goes up"},
        {kLongestTime, kLongestTime, "the greatest time stands"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(RoundToMultipleOf32(row.Time), row.Rounded) << row.Time << ": " << row.Why;
}

TEST(ScoreTime, NarrowsAndLimits) {
    EXPECT_EQ(NarrowTo16Bits(32767), 32767);
    EXPECT_EQ(NarrowTo16Bits(32768), -32768);
    EXPECT_EQ(NarrowTo16Bits(65536 + 128), 128);
    EXPECT_EQ(FloorLog2(1023), 9);
    EXPECT_EQ(RoundToMultipleOf64(32), 64);
    EXPECT_EQ(AddTime(kLongestTime - 1, 1), kLongestTime);
    EXPECT_EQ(AddTime(kLongestTime, kLongestTime), kLongestTime);
}

TEST(Timing, FollowsARhythmLine) {
    struct Row {
        std::string Rhythm, First, Second;
        const char *Items, *Why;
    };
    const std::string empty(16, '-');
    const Row rows[] = {
        {"Q   Q   Q   Q", "0---1---2---3---", empty, "| 0+256 1:0, 256+256 1:1, 512+256 1:2, 768+256 1:3",
         "a letter over each note"},
        {"Q   Q   Q   Q", "0-------1-------", empty, "| 0+256 1:0, 256+256 r, 512+256 1:1, 768+256 r",
         "a letter without a note"},
        {"    Q   Q   H", "0-1-2---3---4---", empty, "| 0+256 1:2, 256+256 1:3, 512+512 1:4",
         "only the last of those at the start stays"},
        {"Q   Q   H", "0--1------------", "----2-----------", "| 0+256 1:0, 256+256 0:2 1:1, 512+512 r",
         "two columns brought to one time are a chord"},
        {"H.      Q", "0-------1-------", empty, "| 0+512 1:0~, 512+256 1:0, 768+256 1:1", "two tied notes"},
        {"Q---Q---H-------", "5---5---5-------", empty, "| 0+256 1:5, 256+256 1:5, 512+512 1:5",
         "a line drawn with dashes ties nothing inside the bar"},
        {"H" + std::string(63, ' '), "0" + std::string(62, '-') + "1", std::string(64, '-'), "| 0+512 1:0 |",
         "rounded to the end of the bar"},
        {"H Q X S", "0-1-2-----------", empty, "| 0+512 1:0, 512+256 1:1, 768+16 1:2, 784+64 r",
         "a length below 32 units stands as it is"},
        {"1   2   3   4", "0-1-2---3-------", empty, "| 0+128 1:0, 128+128 1:1, 256+256 1:2, 512+512 1:3",
         "beats set no limits"},
        {"Q   Q   H", empty, empty, "| 0+1024 r", "a bar without notes rests"},
    };
    for (const auto& row : rows) {
        BarText text({row.Rhythm, row.First, row.Second});
        const TabBar& bar = text.ReadAt(1, 2);
        EXPECT_EQ(ItemsOf(bar), row.Items) << row.Why;
        EXPECT_TRUE(bar.HasRhythms()) << row.Why;
    }
}

TEST(Timing, FollowsTheSpacing) {
    struct Row {
        std::string First, Second;
        int BarLength;
        const char *Times, *Why;
    };
    const std::string empty(16, '-');
    const Row rows[] = {
        {"-0---1---2---3--", empty, 1024, "0+256 256+320 576+256 832+192", "roundings do not add up"},
        {"--0------1------", empty, 1024, "0+512 512+512", "14 columns of 73 units; 511 goes up to 512"},
        {"---0---1--------", empty, 1024, "0+256 256+640", "from column 3 on the space before is lost"},
        {"----0---1-------", empty, 768, "0+192 192+384", "51 units a column; the remainder is dropped"},
        {"0" + std::string(63, '-'), "-1" + std::string(62, '-'), 1024, "0+0 0+1024", "one chord"},
    };
    for (const auto& row : rows) {
        BarText text({row.First, row.Second}, kRhythmsAlways);
        TabBar& bar = text.BarAt(0, 2);
        bar.SetBarLength(row.BarLength);
        bar.ReadBar(nullptr);
        EXPECT_EQ(TimesOf(bar), row.Times) << row.Why;
        EXPECT_TRUE(bar.HasRhythms()) << row.Why;
        EXPECT_EQ(bar.ScoreBarCount(), 1) << row.Why;
    }
}

TEST(Timing, CutsAStaveWithoutBarlinesIntoBars) {
    const struct {
        std::size_t NoteCount;
        int BarLength, ScoreBars;
        const char *LastColumn, *Why;
    } rows[] = {
        {17, 1024, 3, "2048+1024", "one note more than a bar holds"},
        {20, 1024, 3, "2432+640", "the last note lasts to the end of its bar"},
        {13, 768, 3, "1536+768", "a shorter bar"},
    };
    for (const auto& row : rows) {
        BarText text({Notes(row.NoteCount), TestSupport::Repeat("--", row.NoteCount)}, kRhythmsAlways);
        TabBar& bar = text.BarAt(0, 2);
        bar.SetBarLength(row.BarLength);
        bar.ReadBar(nullptr);
        const std::string times = TimesOf(bar);
        EXPECT_EQ(times.substr(times.rfind(' ') + 1), row.LastColumn) << row.Why;
        EXPECT_EQ(bar.ScoreBarCount(), row.ScoreBars) << row.Why;
    }
}

TEST(Timing, OfQuaversInBarsOfOtherLengths) {
    const struct {
        const char* Notes;
        int BarLength;
        const char *Times, *Items, *Why;
    } rows[] = {
        {"0-1-2---", 64, "0+128 128+128 256+64", "| 0+64 1:0~ | 0+64 1:0 | 0+64 1:1~ | 0+64 1:1 | 0+64 1:2",
         "they go on over the barlines of shorter bars"},
        {"0-1-2-3-4-5-", 320, "0+128 128+128 256+128 384+128 512+128 640+320",
         "| 0+128 1:0, 128+128 1:1, 256+128 1:2 | 64+128 1:3, 192+128 1:4 | 0+256 1:5~, 256+64 1:5",
         "one that reaches over a barline leaves its time empty in the next bar"},
    };
    for (const auto& row : rows) {
        BarText text({row.Notes, std::string(std::strlen(row.Notes), '-')}, kRhythmsAlways);
        TabBar& bar = text.BarAt(0, 2);
        bar.SetBarLength(row.BarLength);
        bar.ReadBar(nullptr);
        EXPECT_EQ(TimesOf(bar), row.Times) << row.Why;
        EXPECT_EQ(ItemsOf(bar), row.Items) << row.Why;
    }
}

TEST(Timing, FollowsTheRhythmLevel) {
    const struct {
        const char* Rhythm;
        int Level;
        bool HasRhythms;
        const char* Times;
    } rows[] = {
        {"H.      Q", kRhythmsNever, false, "0+128 128+128"},
        {"H.      Q", kRhythmsWhenIndicated, true, "0+768 768+256"},
        {"H.      Q", kRhythmsAlways, true, "0+768 768+256"},
        {"", kRhythmsNever, false, "0+128 128+128"},
        {"", kRhythmsWhenIndicated, false, "0+128 128+128"},
        {"", kRhythmsAlways, true, "0+512 512+512"},
    };
    for (const auto& row : rows) {
        BarText text({row.Rhythm, "0-------1-------", "----------------"}, row.Level);
        const TabBar& bar = text.ReadAt(1, 2);
        EXPECT_EQ(bar.HasRhythms(), row.HasRhythms) << row.Rhythm << row.Level;
        EXPECT_EQ(TimesOf(bar), row.Times) << row.Rhythm << row.Level;
        EXPECT_EQ(bar.GetRhythmLine().m_Line, *row.Rhythm != 0 ? 0 : -1) << "found at every level";
    }
}

TEST(Timing, OfABarWithoutNotes) {
    BarText spaced({"--------", "--------"}, kRhythmsAlways);
    TabBar& spacedBar = spaced.BarAt(0, 2);
    spacedBar.SetBarLength(768);
    spacedBar.ReadBar(nullptr);
    EXPECT_EQ(ItemsOf(spacedBar), "| 0+512 r, 512+256 r");
}

} // namespace Fretline
