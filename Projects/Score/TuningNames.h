#pragma once

#include <span>
#include <string>

namespace Score {

/// What players call a tuning, such as "drop D" or "standard, half a step down"; empty for one without a
/// name. `strings` are the open strings as MIDI note numbers, lowest first. Octaves don't count: a stave of
/// four lines is a bass, one of five too when its strings are those of one.
std::string TuningName(std::span<const int> strings);

/// The open strings by letter and octave, such as "E2 A2 D3 G3 B3 E4".
std::string TuningLetters(std::span<const int> strings);

} // namespace Score
