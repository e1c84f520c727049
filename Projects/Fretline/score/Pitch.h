#pragma once

#include <array>
#include <cstddef>

/// Pitches as a score writes them. `Chrom2` is a MIDI note number times 2; a diatonic step counts 7 to the
/// octave, and step 0 is the C of MIDI note 0.
namespace Fretline {

constexpr int kChrom2PerSemitone = 2;
constexpr int kSemitonesPerOctave = 12;
constexpr int kStepsPerOctave = 7;

/// The diatonic step in its octave of each pitch class from C up; black keys count as C sharp, E flat, F
/// sharp, G sharp and B flat.
inline constexpr std::array<int, kSemitonesPerOctave> kStepOfPitchClass = {0, 0, 1, 2, 2, 3,
                                                                           3, 4, 4, 5, 6, 6};

/// The diatonic step of a MIDI note number of 0 or more.
constexpr int DiatonicStepOf(int midi) {
    return midi / kSemitonesPerOctave * kStepsPerOctave +
           kStepOfPitchClass[static_cast<std::size_t>(midi % kSemitonesPerOctave)];
}

/// A stave of so many lines is a bass, any other a guitar.
constexpr int kStringsOfABass = 4;

} // namespace Fretline
