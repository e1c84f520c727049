#pragma once

#include "Projects/TabText/prepare/GridMetre.h"

#include <map>
#include <optional>
#include <span>
#include <vector>

namespace Fretline {
class TabBar;
}

namespace TabText {

/// The rhythm that the spacing of a bar shows.
struct BarRhythm {
    /// Of the bar, in score units.
    int Length = 0;
    /// When each of the bar's columns is to sound, in their order.
    std::vector<int> Times;
    /// A rhythm line over the bar that says so.
    std::vector<RhythmSign> Signs;
};

/// How the bars of one text are spaced: what one bar leaves open, the others tell. Borrows the bars, which
/// must have been read. Costs in proportion to the text of the bars.
class TextGrid {
public:
    explicit TextGrid(std::span<Fretline::TabBar* const> bars);

    /// None where the bar lies on no grid, or may be a pickup.
    std::optional<BarRhythm> RhythmOf(const Fretline::TabBar& bar) const;

private:
    void Measure();
    int UsualPadding() const;
    void LookForCompoundMetre();
    void NoteWidth(const Fretline::TabBar& bar);
    std::optional<GridMetre> MetreOf(const Fretline::TabBar& bar) const;
    std::optional<BarGrid> GridOf(const Fretline::TabBar& bar, std::span<const int> slotCounts) const;
    bool MayBePickup(const Fretline::TabBar& bar) const;

    std::span<Fretline::TabBar* const> m_Bars;
    int m_UsualWidth = 0;
    int m_Padding = 0;
    /// The width of the grid in bars of a width in which it does not end where they do.
    std::map<int, int> m_GridWidths;
    /// Of a text without time signature whose bars are cut into threes.
    std::optional<GridMetre> m_Compound;
};

} // namespace TabText
