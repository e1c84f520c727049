#pragma once

#include <string_view>

namespace TabText {

/// A capo that a line of words states. A Fret of 0 means that it states none.
struct CapoStatement {
    int Fret = 0;
    int Column = 0;
    int EndColumn = 0;
};

/// The first capo of the line: the word, and a number from 1 to 12 soon after it.
CapoStatement StatedCapo(std::string_view line);

} // namespace TabText
