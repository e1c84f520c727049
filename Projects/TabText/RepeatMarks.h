#pragma once

#include "Projects/TabText/BarMarks.h"

namespace TabText {

/// Reads the repeat signs of the staves: "|:" and ":|", "||*" and "*||", "|o" and "o|" on some lines of a
/// stave, and "x4" or "(2x)" after the stave's end, on its lines or on that above it, which repeats the whole
/// stave unless repeat signs stand in it.
void ReadRepeats(const TabReading& reading, BarMarks& marks);

} // namespace TabText
