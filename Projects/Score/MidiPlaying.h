#pragma once

#include "Projects/Score/Timeline.h"

#include <vector>

namespace Score {

/// How one sounding note is played, as MIDI knows it.
struct PlayedNote {
    int Start = 0;
    int End = 0;
    int String = 0;
    /// MIDI note number, from 0 to 127.
    int Pitch = 0;
    int Velocity = 0;
};

/// A bend of everything that a string sounds, from a time on. 0 is none; 8191 is kBendRange semitones up.
struct PitchBend {
    int Time = 0;
    int String = 0;
    int Value = 0;
};

/// Semitones that the greatest bend goes up or down.
constexpr int kBendRange = 12;

struct Playing {
    std::vector<PlayedNote> Notes;
    /// By string, each string's in order of time. Each bend ends where its note does.
    std::vector<PitchBend> Bends;
};

/// The notes as their techniques ask: those that are not struck but led to are softer, dead and ghost notes
/// too; dead and palm-muted ones are short; harmonics sound at their own pitch; bends and slides bend. All
/// sound higher by the capo. Notes without techniques in a score without a capo are played as they are.
Playing PlayNotes(const std::vector<SoundingNote>& notes, int capo);

} // namespace Score
