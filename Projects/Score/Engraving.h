#pragma once

#include "Projects/Score/ScoreModel.h"

#include <cstddef>
#include <vector>

namespace Score {

/// One bar at its place on the page. Lengths are pixels.
struct PlacedBar {
    std::size_t Bar = 0;
    double Left = 0;
    double Width = 0;
};

/// One line of music across the page.
struct PlacedSystem {
    double Top = 0;
    std::vector<PlacedBar> Bars;
};

/// Where everything goes on a page of tab: bars as wide as their events need, systems filled and stretched to
/// the page's width.
struct Engraving {
    double Width = 0;
    double Height = 0;
    std::vector<PlacedSystem> Systems;

    /// Lays out a score; `top` is the room left for the heading.
    static Engraving LayOut(const ScoreModel& score, double top);

    /// From the top of a system to its highest stave line, and from that to its lowest.
    static constexpr double kRoomAboveStave = 62;
    static constexpr double kLineGap = 14;
    static constexpr double kRoomBelowStave = 46;
    static constexpr double kMargin = 40;
    static constexpr double kClefRoom = 34;
    static double StaveHeight(const ScoreModel& score) {
        return kLineGap * static_cast<double>(score.Tuning.size() - 1);
    }
    /// From the left of its bar to an event at `position`.
    static double OffsetOf(const ModelBar& bar, int position, double barWidth);
};

} // namespace Score
