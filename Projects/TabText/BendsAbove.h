#pragma once

#include "Projects/TabText/Markings.h"

namespace TabText {

/// Gives bends that say nothing themselves how far they go by what stands over them, above their stave:
/// "full", "1/2", "1 1/2". Marks are those of the strings. An amount over no bend is unclear, unless
/// other words stand in its line.
void ReadBendsAbove(const TabReading& reading, std::vector<NoteMark>& marks,
                    std::vector<UnclearSign>& unclear);

} // namespace TabText
