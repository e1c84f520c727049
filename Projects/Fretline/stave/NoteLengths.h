#pragma once

#include "Projects/Fretline/stave/Rhythms.h"
#include "Projects/Fretline/stave/TabColumn.h"

#include <array>
#include <map>

namespace Fretline {

class TabFile;

struct NoteLengthLetter {
    char m_Letter;
    int m_Units;
};

/// The letters of a note-length line, whole note to demisemiquaver and below; upper case only.
inline constexpr auto NoteLengthTable = std::to_array<NoteLengthLetter>({
    {'W', 1024},
    {'H', 512},
    {'Q', 256},
    {'E', 128},
    {'S', 64},
    {'T', 32},
    {'X', 16},
});

/// The length that a letter stands for in score units; 0 for any other character.
int NoteLengthOf(char letter);

/// A rhythm line of note-length letters. Each letter is one note, in its own column; times are the running
/// sum of the lengths, and the bar is as long as they add up to, whatever the time signature says. Dots
/// after a letter lengthen it; "x", "+" or "-" right before it ties it to the note before.
class NoteLengths : public Rhythms {
public:
    /// Reads `width` columns of the line from the absolute `startColumn` on; letters inside words count too.
    NoteLengths(const TabFile& file, int line, int startColumn, int width);

    /// A column takes the letter over it, else the one a column to its right. Any other falls between two
    /// letters, in proportion to the text columns, and may last until the next.
    int GetPosition(int column, int& duration, bool& tied) const override;

private:
    int Interpolate(int column, int& duration) const;

    std::map<int, TabColumn> m_Elements;
    int m_Width;
};

} // namespace Fretline
