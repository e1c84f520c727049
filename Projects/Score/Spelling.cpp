#include "Projects/Score/Spelling.h"

#include "Projects/Fretline/score/Pitch.h"

#include <array>
#include <cstddef>

namespace Score {

namespace {

constexpr int kSteps = Fretline::kStepsPerOctave;
constexpr int kSemitones = Fretline::kSemitonesPerOctave;
constexpr std::array<char, kSteps> kLetters{'C', 'D', 'E', 'F', 'G', 'A', 'B'};
constexpr std::array<int, kSteps> kSemitoneOfStep{0, 2, 4, 5, 7, 9, 11};

} // namespace

SpelledPitch Spell(int midi, int diat) {
    const auto step = static_cast<std::size_t>(diat % kSteps);
    const int natural = diat / kSteps * kSemitones + kSemitoneOfStep[step];
    return {kLetters[step], midi - natural, diat / kSteps - 1};
}

SpelledPitch SpellMidi(int midi) {
    return Spell(midi, Fretline::DiatonicStepOf(midi));
}

std::string PitchText(const SpelledPitch& pitch) {
    std::string text(1, pitch.Step);
    if (pitch.Alter != 0)
        text += pitch.Alter > 0 ? '#' : 'b';
    return text + std::to_string(pitch.Octave);
}

} // namespace Score
