#include "Projects/Fretline/stave/ScoreTime.h"

#include <gtest/gtest.h>

namespace Fretline {

TEST(ScoreTime, RoundsToMultiplesOf32) {
    struct Row {
        int Time;
        int Rounded;
        const char* Why;
    };
    const Row rows[] = {
        {0, 0, "nothing to round"},
        {15, 0, "below half way"},
        {16, 32, "half way goes up"},
        {1007, 992, "just below half way"},
        {-16, -32, "half way goes away from nought"},
        {-15, 0, "cut towards nought"},
        {(1 << 24) + 13, 1 << 24, "even, so held exactly as 12"},
        {(1 << 24) + 15, (1 << 24) + 32, "held in 24 bits as 16, which goes up"},
        {kLongestTime, kLongestTime, "the greatest time stands"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(RoundToMultipleOf32(row.Time), row.Rounded) << row.Time << ": " << row.Why;
}

TEST(ScoreTime, RoundsToMultiplesOf64) {
    EXPECT_EQ(RoundToMultipleOf64(31), 0);
    EXPECT_EQ(RoundToMultipleOf64(32), 64);
    EXPECT_EQ(RoundToMultipleOf64(95), 64);
    EXPECT_EQ(RoundToMultipleOf64(96), 128);
}

TEST(ScoreTime, NarrowsAndLimits) {
    EXPECT_EQ(NarrowTo16Bits(32767), 32767);
    EXPECT_EQ(NarrowTo16Bits(32768), -32768);
    EXPECT_EQ(NarrowTo16Bits(65536 + 128), 128);
    EXPECT_EQ(FloorLog2(1), 0);
    EXPECT_EQ(FloorLog2(1023), 9);
    EXPECT_EQ(FloorLog2(1024), 10);
    EXPECT_EQ(AddTime(kLongestTime - 1, 1), kLongestTime);
    EXPECT_EQ(AddTime(kLongestTime, kLongestTime), kLongestTime);
}

} // namespace Fretline
