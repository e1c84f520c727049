#pragma once

#include <string_view>
#include <vector>

/// What people write beside a stave that is a rhythm, or looks like one to the plug-in.
namespace TabText {

/// A letter for the length of a note, at its column.
struct LengthLetter {
    int Column = 0;
    /// In score units, with its dots.
    int Length = 0;
    bool IsSmall = false;
};

/// The letters of a line that holds nothing else but barlines; empty for any other line. Letters stand alone,
/// perhaps with dots after them or the sign of a tie before them.
std::vector<LengthLetter> LengthLettersOf(std::string_view line);

/// True for a line of strokes ("d u d u", "v ^"), accents, or the fingers of the plucking hand ("p i m a",
/// "T 1 2"), and nothing else. A line of the letter D alone holds chords.
bool IsOfStrokesOrFingers(std::string_view line);

/// A count, at its column of a bar: a beat, or what is between it and the next one.
struct Count {
    int Column = 0;
    /// From 0 on.
    int Beat = 0;
    /// Of the beat: 0, 1, 2 or 3.
    int Quarter = 0;
};
inline constexpr int kQuartersOfABeat = 4;

/// True for a line of digits, the signs "&", "+", "e" and "a", and barlines, where at least one beat is cut
/// ("1e&a2e&a", "1 & 2 &").
bool IsOfCounts(std::string_view line);

/// The counts of one bar, by column: all of its beats from 1 on, each alone, with "&" or "+" in its middle,
/// or cut into quarters ("1e&a"). Empty for anything else: two signs after a beat may be triplets.
std::vector<Count> CountsOf(std::string_view cells, int beats);

} // namespace TabText
