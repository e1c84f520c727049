#pragma once

#include "Projects/TabText/prepare/BarGrid.h"

#include <optional>
#include <vector>

namespace Fretline {
struct TabTimeSignature;
}

namespace TabText {

/// A sign of a rhythm line over a bar.
struct RhythmSign {
    /// Bar-relative.
    int Column = 0;
    char Sign = ' ';
};

/// How long a bar is, into how many equal parts it may be cut, and how a rhythm line says when they sound.
///
/// A metre that the text states, and 4/4 where it states none, is counted: "1 + 2 + 3 + 4 +". Counts give
/// points in time and leave the rest to the plug-in, so that any grid can be written. They cannot say that a
/// bar without time signature has six quavers; note lengths can: "E E E Q.".
class GridMetre {
public:
    /// That of a bar under this time signature, null for none. None for a metre that nobody plays.
    static std::optional<GridMetre> Stated(const Fretline::TabTimeSignature* signature);
    /// That of bars without time signature, of `slots` (6, 12 or 24) parts.
    static GridMetre Compound(int slots);

    /// In score units.
    int GetLength() const { return m_Length; }
    const std::vector<int>& GetSlotCounts() const { return m_SlotCounts; }
    /// When a slot begins, in score units.
    int TimeOf(int slot, int slots) const { return m_Length / slots * slot; }
    /// The rhythm line over the bar; empty when it cannot be written.
    std::vector<RhythmSign> SignsOf(const BarSpacing& bar, const BarGrid& grid) const;

private:
    GridMetre() = default;
    void AddSlotCount(int slots);
    std::vector<RhythmSign> CountsOf(const BarGrid& grid) const;
    std::vector<RhythmSign> LengthsOf(const BarSpacing& bar, const BarGrid& grid) const;

    /// 0 where lengths are written.
    int m_Beats = 0;
    int m_Length = 0;
    std::vector<int> m_SlotCounts;
};

} // namespace TabText
