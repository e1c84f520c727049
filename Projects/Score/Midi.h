#pragma once

#include "Projects/Score/ScoreParts.h"

#include <string>

namespace Score {

/// The bytes of a standard MIDI file (format 1) that plays the score: a track with tempo, time signatures and
/// the section labels as markers, and for each part a track with its notes, ties joined. Each string has a
/// channel of its own, the drum channel left out, so that nothing done to one string could touch another.
/// Where the parts have more than fifteen strings, each has as many channels as the others, and the strings
/// beyond these share its last one. A crotchet has 256 ticks.
///
/// Where the tab's text was joined to the score, repeats and jumps are played out, techniques as
/// MidiPlaying.h says, at the tempos and with the capo of the text. Without that, 120 crotchets a minute, all
/// notes equally loud.
std::string MidiBytes(ScoreParts parts);
inline std::string MidiBytes(const ScoreModel& score) {
    return MidiBytes(AsParts(score));
}

} // namespace Score
