#include "Projects/Score/TuningNames.h"

#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Score/Spelling.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace Score {

namespace {

using Fretline::kSemitonesPerOctave;

struct NamedTuning {
    std::string_view Name;
    // Lowest string first.
    std::vector<int> Strings;
    // Also played as a whole higher or lower, and called so.
    bool IsShifted = false;
};

// Of two rows with the same strings, the first one is meant.
const std::vector<NamedTuning>& NamedTunings() {
    static const std::vector<NamedTuning> rows{
        {"standard", {40, 45, 50, 55, 59, 64}, true},
        {"drop D", {38, 45, 50, 55, 59, 64}},
        {"drop C sharp", {37, 44, 49, 54, 58, 63}},
        {"drop C", {36, 43, 48, 53, 57, 62}},
        {"drop B", {35, 42, 47, 52, 56, 61}},
        {"drop A", {33, 40, 45, 50, 54, 59}},
        {"double drop D", {38, 45, 50, 55, 59, 62}, true},
        {"open G", {38, 43, 50, 55, 59, 62}, true},
        {"open D", {38, 45, 50, 54, 57, 62}},
        {"open E", {40, 47, 52, 56, 59, 64}},
        {"open A", {40, 45, 52, 57, 61, 64}},
        {"open C", {36, 43, 48, 55, 60, 64}},
        {"open D minor", {38, 45, 50, 53, 57, 62}},
        {"DADGAD", {38, 45, 50, 55, 57, 62}, true},
        {"standard", {28, 33, 38, 43}, true},
        {"drop D", {26, 33, 38, 43}},
        {"5-string bass", {23, 28, 33, 38, 43}},
        {"open G, five strings", {43, 50, 55, 59, 62}},
    };
    return rows;
}

struct Shift {
    int Semitones;
    std::string_view Name;
};

constexpr std::array<Shift, 8> kShifts{{{0, ""},
                                        {-1, ", half a step down"},
                                        {-2, ", a whole step down"},
                                        {-3, ", one and a half steps down"},
                                        {-4, ", two steps down"},
                                        {-5, ", two and a half steps down"},
                                        {1, ", half a step up"},
                                        {2, ", a whole step up"}}};

bool IsSame(std::span<const int> strings, const NamedTuning& row, int semitones) {
    return std::equal(strings.begin(), strings.end(), row.Strings.begin(), row.Strings.end(),
                      [&](int a, int b) { return (a - b - semitones) % kSemitonesPerOctave == 0; });
}

} // namespace

std::string TuningName(std::span<const int> strings) {
    for (const Shift& shift : kShifts)
        for (const NamedTuning& row : NamedTunings())
            if ((shift.Semitones == 0 || row.IsShifted) && IsSame(strings, row, shift.Semitones))
                return std::string(row.Name) + std::string(shift.Name);
    return {};
}

std::string TuningLetters(std::span<const int> strings) {
    std::string text;
    for (const int midi : strings)
        text += (text.empty() ? "" : " ") + PitchText(SpellMidi(midi));
    return text;
}

} // namespace Score
