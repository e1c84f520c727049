#include "Projects/Score/TuningNames.h"

#include <gtest/gtest.h>

#include <vector>

TEST(TuningNames, AreThoseThatPlayersUse) {
    const struct {
        std::vector<int> Strings;
        const char *Name, *Letters;
    } rows[] = {
        {{40, 45, 50, 55, 59, 64}, "standard", "E2 A2 D3 G3 B3 E4"},
        {{38, 45, 50, 55, 59, 64}, "drop D", "D2 A2 D3 G3 B3 E4"},
        {{39, 44, 49, 54, 58, 63}, "standard, half a step down", "Eb2 G#2 C#3 F#3 Bb3 Eb4"},
        {{38, 43, 48, 53, 57, 62}, "standard, a whole step down", "D2 G2 C3 F3 A3 D4"},
        {{36, 43, 48, 53, 57, 62}, "drop C", "C2 G2 C3 F3 A3 D4"},
        {{38, 43, 50, 55, 59, 62}, "open G", "D2 G2 D3 G3 B3 D4"},
        {{38, 45, 50, 55, 57, 62}, "DADGAD", "D2 A2 D3 G3 A3 D4"},
        {{28, 33, 38, 43}, "standard", "E1 A1 D2 G2"},
        {{35, 40, 45, 50, 55}, "5-string bass", "B1 E2 A2 D3 G3"},
        {{40, 46, 50, 55, 59, 64}, "", "E2 Bb2 D3 G3 B3 E4"},
        {{}, "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.Name, Score::TuningName(row.Strings));
        EXPECT_EQ(row.Letters, Score::TuningLetters(row.Strings));
    }
}
