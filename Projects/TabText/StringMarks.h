#pragma once

#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/Markings.h"

namespace Fretline {
class TabBar;
}

namespace TabText {

/// Appends the marks that stand between the frets of one line of a bar, left to right.
void ReadStringMarks(const Fretline::TabBar& bar, std::size_t barIndex, int line, const SignMeanings& signs,
                     std::vector<NoteMark>& marks);

} // namespace TabText
