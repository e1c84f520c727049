#pragma once

#include "Projects/TabText/TabReading.h"

#include <span>
#include <vector>

namespace Fretline {
class TabStave;
}

namespace TabText {

/// One stave and the bars of it that were read.
struct StaveBars {
    const Fretline::TabStave* Stave = nullptr;
    std::span<const BarReading> Bars;
};

/// The staves of a reading from which a bar was read, in text order. All of it is the reading's.
std::vector<StaveBars> StavesWithBars(const TabReading& reading);

} // namespace TabText
