#pragma once

#include "Projects/Explain/Explanation.h"
#include "Projects/TabText/Markings.h"

namespace Fretline {
class TabBar;
}

namespace Explain {

/// What a bar that has been read was read as: its columns and how each was timed, its rhythm line, its chords
/// and where each went, its label and time signature. `number` counts the bars of the text from 1.
ExplainedBar DescribeBar(const Fretline::TabBar& bar, int number);

/// What the signs at a bar say of the way through the piece, a sentence each.
std::vector<std::string> NotesOfTheWay(const TabText::BarMark& mark);

} // namespace Explain
