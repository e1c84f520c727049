#pragma once

#include <string>

namespace Score {

/// A pitch as it is written: letter, alteration in semitones, octave (4 begins at middle C).
struct SpelledPitch {
    char Step = 'C';
    int Alter = 0;
    int Octave = 4;
};

/// The pitch `midi` (MIDI note number) written on the diatonic step `diat` (7 to the octave, 0 is the C of
/// MIDI note 0).
SpelledPitch Spell(int midi, int diat);

/// The pitch `midi` with the spelling that the score gives to black keys: C sharp, E flat, F sharp, G sharp,
/// B flat.
SpelledPitch SpellMidi(int midi);

/// As "C4", "F#3" or "Eb2".
std::string PitchText(const SpelledPitch& pitch);

} // namespace Score
