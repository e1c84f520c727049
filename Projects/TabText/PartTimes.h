#pragma once

#include "Projects/TabText/PartsTogether.h"

#include <map>
#include <optional>
#include <vector>

namespace TabText {

/// When the columns of bars that sound together sound. Times are in score units from the start of the bar.
struct PartTimes {
    int Length = 0;
    /// For each part, the new time of each time at which a column of its bar sounded before; empty for a part
    /// that rests, and for one whose times stay.
    std::vector<std::map<int, int>> NewTimes;
};

/// The plug-in times each bar by itself. Of bars that are aligned, those without a rhythm line get their
/// times from a bar that has one: between its columns in proportion to their places. Where none has one, the
/// columns of all the bars are timed as those of a single bar: one after the other, or in proportion.
///
/// Nothing where each bar keeps its times: those that are alone or not aligned, that all have a rhythm line,
/// or of which one is more than one bar of the score.
std::optional<PartTimes> TimesTogether(const TabReading& reading, const BarsTogether& together);

} // namespace TabText
