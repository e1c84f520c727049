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

} // namespace TabText
