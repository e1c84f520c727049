#pragma once

#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/Markings.h"

namespace Fretline {
class TabBar;
}

namespace TabText {

/// Appends the marks that stand between the frets of one line of a bar, left to right. `next` is the bar
/// after it on the same stave, to whose first note the last one may lead; null when there is none.
void ReadStringMarks(const Fretline::TabBar& bar, const Fretline::TabBar* next, std::size_t barIndex,
                     int line, const SignMeanings& signs, std::vector<NoteMark>& marks);

} // namespace TabText
