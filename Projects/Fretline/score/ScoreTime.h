#pragma once

#include <cstdint>

/// Time as a score counts it, and the roundings and narrowings that decide where a note ends up.
/// Times are in score units, 1024 to the whole note.
namespace Fretline {

/// Base-2 logarithm of a whole note.
constexpr int kLogWholeNote = 10;
constexpr int kUnitsPerWholeNote = 1 << kLogWholeNote;
constexpr int kUnitsPerCrotchet = kUnitsPerWholeNote / 4;
constexpr int kUnitsPerQuaver = kUnitsPerWholeNote / 8;
/// Sums of time stop growing here: far beyond any music, and low enough for every later sum and rounding.
constexpr int kLongestTime = 1 << 30;

/// The sum of two times of 0 and up, at most kLongestTime.
int AddTime(int time, int more);
/// The nearest multiple of 32, half way going up, reckoned in single precision: from 2^24 units on, the time
/// is first brought to the 24 bits that such a number holds.
int RoundToMultipleOf32(int time);
/// The nearest multiple of 64 of a time of 0 and up; a remainder of 32 goes up.
int RoundToMultipleOf64(int time);
/// The largest e with 1 << e not more than `value`, which is 1 or more.
int FloorLog2(int value);
/// The low 16 bits, read as a signed number: positions and bar lengths are 16-bit numbers of the host.
std::int16_t NarrowTo16Bits(int value);

} // namespace Fretline
