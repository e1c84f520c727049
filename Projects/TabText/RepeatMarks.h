#pragma once

#include "Projects/TabText/BarMarks.h"

namespace TabText {

/// Reads the repeat signs of the staves: "|:" and ":|", "||*" and "*||", "|o" and "o|" on some lines of a
/// stave, and "x4", "(2x)" or "play 3 times" after the stave's end, above it or right below it, which repeats
/// the whole stave unless repeat signs stand in it. One that could mean several things is unclear.
void ReadRepeats(const TabReading& reading, BarMarks& marks);

} // namespace TabText
