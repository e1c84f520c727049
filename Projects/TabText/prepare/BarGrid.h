#pragma once

#include <optional>
#include <span>
#include <vector>

namespace TabText {

/// A fret number, or several that sound together, in a bar of the text.
struct Onset {
    /// Bar-relative, ascending within a bar.
    int Column = 0;
    /// Columns that its longest number takes.
    int Width = 1;
};

/// What of a bar its spacing is judged by.
struct BarSpacing {
    /// The columns between which the strings are drawn; the second is after the last.
    int First = 0;
    int End = 0;
    std::vector<Onset> Onsets;

    int GetWidth() const { return End - First; }
};

/// A bar cut into equal parts, its slots, each of which begins at a column; every onset begins one.
struct BarGrid {
    /// Bar-relative column of the first slot, and the number of columns from slot to slot.
    int Start = 0;
    int Step = 0;
    int Slots = 0;
    /// The slots end where the bar ends.
    bool IsExact = false;
    /// Second digits for which the writer made all strings a column wider; `Start` and `Step` do not count
    /// them.
    std::vector<int> WideColumns;

    int GetWidth() const { return Step * Slots; }
    /// Bar-relative column of the place `part` / `parts` of the whole bar; between two columns the left one.
    int ColumnOf(int part, int parts) const;
    /// Which slot the onset in this column begins.
    int SlotOf(int column) const;
};

/// The grid of a bar whose number of slots is one of `slotCounts`, with the least such number. None where the
/// onsets lie on no grid, and where the space at the ends of the bar contradicts it: at its start `padding`
/// columns are free, or as many as make the grid fill the bar; at its end a column or two may be missing or
/// too many, and more may be missing only after a full bar. Costs in proportion to the onsets.
std::optional<BarGrid> FindGrid(const BarSpacing& bar, std::span<const int> slotCounts, int padding);

/// That of a bar whose slots begin after `padding` columns and together are `width` columns wide, wherever
/// the bar ends.
std::optional<BarGrid> FindGridOfWidth(const BarSpacing& bar, std::span<const int> slotCounts, int padding,
                                       int width);

} // namespace TabText
