#include "Projects/Score/Engraving.h"

#include <algorithm>

namespace Score {

namespace {

constexpr double kPageWidth = 1000;
constexpr double kRoomBeforeFirstNote = 20;
constexpr double kRoomBehindLastNote = 8;
constexpr double kRoomForEvent = 24;
constexpr double kWidthOfLetter = 9;
constexpr double kNarrowestBar = 60;
constexpr double kRoomForTimeSignature = 26;

int EndOf(const ModelBar& bar) {
    int end = std::max(bar.Length, 1);
    for (const ModelEvent& event : bar.Events)
        end = std::max(end, event.Position + event.Duration);
    return end;
}

double LeadOf(const ModelBar& bar) {
    return kRoomBeforeFirstNote + (bar.TimeSignature ? kRoomForTimeSignature : 0);
}

// Wide enough for the shortest event to have its room, within reason, and for the chord symbols side by
// side.
double NaturalWidth(const ModelBar& bar) {
    double notes = kRoomForEvent * static_cast<double>(bar.Events.size() + 1);
    double symbols = 0;
    for (const ModelText& symbol : bar.ChordSymbols)
        symbols += kWidthOfLetter * static_cast<double>(symbol.Text.size() + 2);
    return std::max({kNarrowestBar, notes, symbols}) + LeadOf(bar) + kRoomBehindLastNote;
}

void Stretch(PlacedSystem& system, double room, bool isLast) {
    double sum = 0;
    for (const PlacedBar& bar : system.Bars)
        sum += bar.Width;
    // The last system is stretched only when it is nearly full, or too full.
    constexpr double kNearlyFull = 0.75;
    const double factor = isLast && sum < room * kNearlyFull ? 1 : room / sum;
    double left = Engraving::kMargin + Engraving::kClefRoom;
    for (PlacedBar& bar : system.Bars) {
        bar.Left = left;
        bar.Width *= factor;
        left += bar.Width;
    }
}

} // namespace

double Engraving::OffsetOf(const ModelBar& bar, int position, double barWidth) {
    const double lead = LeadOf(bar);
    return lead + (barWidth - lead - kRoomBehindLastNote) * position / EndOf(bar);
}

Engraving Engraving::LayOut(const ScoreModel& score, double top) {
    const double room = kPageWidth - 2 * kMargin - kClefRoom;
    const double systemHeight = kRoomAboveStave + StaveHeight(score) + kRoomBelowStave;
    Engraving page;
    page.Width = kPageWidth;
    double used = 0;
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar) {
        const double width = NaturalWidth(score.Bars[bar]);
        if (page.Systems.empty() || used + width > room) {
            page.Systems.emplace_back();
            used = 0;
        }
        page.Systems.back().Bars.push_back({bar, 0, width});
        used += width;
    }
    page.Height = top;
    for (PlacedSystem& system : page.Systems) {
        system.Top = page.Height;
        page.Height += systemHeight;
        Stretch(system, room, &system == &page.Systems.back());
    }
    page.Height += kMargin;
    return page;
}

} // namespace Score
