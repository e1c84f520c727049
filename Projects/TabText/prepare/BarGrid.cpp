#include "Projects/TabText/prepare/BarGrid.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace TabText {

namespace {

// Columns more than the grid needs that a writer may leave at the end of a bar.
constexpr int kMostColumnsTooMany = 2;
// A step of fewer columns leaves no room for an end that is not exact.
constexpr int kLeastStepOfInexactEnd = 3;
// So many onsets, in so large a part of the slots, are a grid without the end of the bar.
constexpr std::size_t kFewestOnsetsOfFullBar = 4;
constexpr int kPercentOfFullBar = 75;

// Judges one bar.
class GridFinder {
public:
    GridFinder(const BarSpacing& bar, std::span<const int> slotCounts)
        : m_Bar(bar), m_SlotCounts(slotCounts) {}

    std::optional<BarGrid> Find(int padding) {
        // A grid that fits to the column counts for more than one that does not. Of those that nearly fit,
        // two widths never hold the same notes: they differ by too few columns.
        const int width = m_Bar.GetWidth() - padding;
        TryWidth(m_Bar.First + padding, width);
        if (m_Grids.empty())
            TryOtherWidths(m_Bar.First + padding, width);
        if (m_Grids.empty() && m_Bar.Onsets.size() >= kFewestOnsetsOfFullBar) {
            const int start = m_Bar.Onsets.front().Column;
            TryWidth(start, m_Bar.End - start);
            std::erase_if(m_Grids, [&](const BarGrid& grid) { return !IsFull(grid); });
        }
        return Least();
    }

    std::optional<BarGrid> FindOfWidth(int padding, int width) {
        TryWidth(m_Bar.First + padding, width);
        return Least();
    }

private:
    void TryWidth(int start, int width) {
        for (const int slots : m_SlotCounts)
            if (width % slots == 0)
                Add({start, width / slots, slots, start + width == m_Bar.End, {}});
    }

    void TryOtherWidths(int start, int width) {
        for (const int slots : m_SlotCounts)
            for (const int step : {width / slots, width / slots + 1}) {
                const BarGrid grid{start, step, slots, false, {}};
                if (MayEnd(grid, width - grid.GetWidth()))
                    Add(grid);
            }
    }

    void Add(const BarGrid& grid) {
        if (grid.Step > 0 && HoldsOnsets(grid))
            m_Grids.push_back(grid);
    }

    bool MayEnd(const BarGrid& grid, int columnsTooMany) const {
        if (grid.Slots == 1 || std::abs(columnsTooMany) >= grid.Step)
            return false;
        if (columnsTooMany > 0)
            return columnsTooMany <= kMostColumnsTooMany;
        return (columnsTooMany == -1 && grid.Step >= kLeastStepOfInexactEnd) || IsFull(grid);
    }

    // Sounds to its end, and nearly everywhere.
    bool IsFull(const BarGrid& grid) const {
        const std::size_t count = m_Bar.Onsets.size();
        return count >= kFewestOnsetsOfFullBar &&
               static_cast<int>(count) * 100 >= grid.Slots * kPercentOfFullBar &&
               m_Bar.Onsets.back().Column == grid.Start + (grid.Slots - 1) * grid.Step;
    }

    bool HoldsOnsets(const BarGrid& grid) const {
        return (grid.Step > 1 || !HasWideOnset()) &&
               std::all_of(m_Bar.Onsets.begin(), m_Bar.Onsets.end(), [&](const Onset& onset) {
                   const int distance = onset.Column - grid.Start;
                   return distance >= 0 && distance < grid.GetWidth() && distance % grid.Step == 0;
               });
    }

    // Numbers of two digits leave no room for a grid of single columns.
    bool HasWideOnset() const {
        return std::any_of(m_Bar.Onsets.begin(), m_Bar.Onsets.end(),
                           [](const Onset& onset) { return onset.Width > 1; });
    }

    std::optional<BarGrid> Least() const {
        const auto least =
            std::min_element(m_Grids.begin(), m_Grids.end(),
                             [](const BarGrid& a, const BarGrid& b) { return a.Slots < b.Slots; });
        return least == m_Grids.end() ? std::nullopt : std::optional(*least);
    }

    const BarSpacing& m_Bar;
    std::span<const int> m_SlotCounts;
    std::vector<BarGrid> m_Grids;
};

// The bar as if every number were one digit.
BarSpacing WithoutSecondDigits(const BarSpacing& bar, std::vector<int>& removed) {
    BarSpacing narrow{bar.First, bar.End, {}};
    for (const Onset& onset : bar.Onsets) {
        narrow.Onsets.push_back({onset.Column - static_cast<int>(removed.size()), 1});
        for (int digit = 1; digit < onset.Width; ++digit)
            removed.push_back(onset.Column + digit);
    }
    narrow.End -= static_cast<int>(removed.size());
    return narrow;
}

} // namespace

int BarGrid::ColumnOf(int part, int parts) const {
    int column = Start + static_cast<int>(std::int64_t{GetWidth()} * part / parts);
    for (const int wide : WideColumns)
        column += wide <= column ? 1 : 0;
    return column;
}

int BarGrid::SlotOf(int column) const {
    const auto wide = std::lower_bound(WideColumns.begin(), WideColumns.end(), column) - WideColumns.begin();
    return (column - static_cast<int>(wide) - Start) / Step;
}

std::optional<BarGrid> FindGrid(const BarSpacing& bar, std::span<const int> slotCounts, int padding) {
    if (std::optional<BarGrid> grid = GridFinder(bar, slotCounts).Find(padding))
        return grid;
    std::vector<int> wideColumns;
    const BarSpacing narrow = WithoutSecondDigits(bar, wideColumns);
    if (wideColumns.empty() || bar.Onsets.size() < kFewestOnsetsOfFullBar)
        return std::nullopt;
    std::optional<BarGrid> grid = GridFinder(narrow, slotCounts).Find(padding);
    if (grid)
        grid->WideColumns = std::move(wideColumns);
    return grid;
}

std::optional<BarGrid> FindGridOfWidth(const BarSpacing& bar, std::span<const int> slotCounts, int padding,
                                       int width) {
    return GridFinder(bar, slotCounts).FindOfWidth(padding, width);
}

} // namespace TabText
