#include "Projects/Score/Spelling.h"

#include <array>
#include <cstddef>

namespace Score {

namespace {

constexpr int kSteps = 7;
constexpr int kSemitones = 12;
constexpr std::array<char, kSteps> kLetters{'C', 'D', 'E', 'F', 'G', 'A', 'B'};
constexpr std::array<int, kSteps> kSemitoneOfStep{0, 2, 4, 5, 7, 9, 11};
constexpr std::array<int, kSemitones> kStepOfSemitone{0, 0, 1, 2, 2, 3, 3, 4, 4, 5, 6, 6};

} // namespace

SpelledPitch Spell(int midi, int diat) {
    const auto step = static_cast<std::size_t>(diat % kSteps);
    const int natural = diat / kSteps * kSemitones + kSemitoneOfStep[step];
    return {kLetters[step], midi - natural, diat / kSteps - 1};
}

SpelledPitch SpellMidi(int midi) {
    return Spell(midi,
                 midi / kSemitones * kSteps + kStepOfSemitone[static_cast<std::size_t>(midi % kSemitones)]);
}

} // namespace Score
