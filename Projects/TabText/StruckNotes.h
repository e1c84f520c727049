#pragma once

#include <vector>

namespace Fretline {
class TabBar;
struct TabColumn;
} // namespace Fretline

namespace TabText {

/// One fret number of the text as the reading took it, with its place. Columns are absolute.
struct StruckNote {
    int Line = 0;
    int Column = 0;
    /// The column after its last digit.
    int EndColumn = 0;
    /// 0 for the lowest string, the stave's bottom line.
    int String = 0;
    int Fret = 0;
    /// When it sounds; lives as long as the bar.
    const Fretline::TabColumn* Time = nullptr;
};

/// Every note that the reading took from a bar that has been read: by column of the bar, from the lowest
/// string up. A column of the reading gives a string at most one note, also where it covers two numbers.
std::vector<StruckNote> StruckNotesOf(const Fretline::TabBar& bar);

} // namespace TabText
