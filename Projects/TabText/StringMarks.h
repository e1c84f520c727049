#pragma once

#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/Markings.h"

namespace Fretline {
class TabBar;
}

namespace TabText {

/// Appends the marks that stand between the frets of a bar, line by line, left to right. `next` is the bar
/// after it on the same stave, to whose first note of a string the last one may lead; null when there is
/// none.
void ReadStringMarks(const Fretline::TabBar& bar, const Fretline::TabBar* next, std::size_t barIndex,
                     const SignMeanings& signs, std::vector<NoteMark>& marks);

} // namespace TabText
