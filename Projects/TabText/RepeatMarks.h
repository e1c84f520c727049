#pragma once

#include "Projects/TabText/Markings.h"

namespace TabText {

/// The repeat signs of the staves: "|:" and ":|", "||*" and "*||", "|o" and "o|" on some lines of a stave,
/// and "x4" or "(2x)" after the stave's end, on its lines or on that above it, which repeats the whole stave
/// unless repeat signs stand in it.
std::vector<BarMark> ReadRepeats(const TabReading& reading);

} // namespace TabText
