#pragma once

#include "Projects/Explain/Explanation.h"

namespace Fretline {
class TabBar;
}

namespace Explain {

/// What a bar that has been read was read as: its columns and how each was timed, its rhythm line, its chords
/// and where each went, its label and time signature. `number` counts the bars of the text from 1.
ExplainedBar DescribeBar(const Fretline::TabBar& bar, int number);

} // namespace Explain
