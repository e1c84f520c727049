#pragma once

#include <cstddef>
#include <string_view>

namespace TabText {

constexpr int kQuarterTonesPerSemitone = 2;
constexpr int kQuarterTonesPerTone = 4;

/// How far a string is bent, as the text after the sign of the bend says.
struct BendAmount {
    /// 0 where the text says nothing that makes sense: a lower fret is none.
    int QuarterTones = 0;
    /// The place after it and its brackets; where it would begin, when nothing is said.
    std::size_t End = 0;
};

/// Reads what stands at `at`, right after the sign of a bend of that fret: a higher fret ("9"), tones ("1",
/// "1.5", "3/4", "1 1/2", "full"), any of them in brackets.
BendAmount ReadBendAmount(std::string_view text, std::size_t at, int fret);

} // namespace TabText
