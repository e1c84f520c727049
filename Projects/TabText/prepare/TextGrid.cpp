#include "Projects/TabText/prepare/TextGrid.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabFile.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using Fretline::TabBar;

constexpr std::array kAllSlotCounts{4, 8, 16, 6, 12, 24};
// A bar with fewer of them fits more than one grid.
constexpr std::size_t kFewestOnsetsThatTell = 4;

// A column of a bar in which something stands that satisfies the test.
template <typename Test>
bool HasInColumn(const TabBar& bar, int column, Test test) {
    for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
        if (test(bar.GetFile().GetChar(line, bar.GetStartColumn() + column)))
            return true;
    return false;
}

bool IsDrawn(char c) {
    return Fretline::IsDash(c) || Fretline::IsFretChar(c);
}

bool IsRepeatDot(char c) {
    return c == ':' || c == '*' || c == 'o' || c == 'O';
}

BarSpacing SpacingOf(const TabBar& bar) {
    BarSpacing spacing{0, bar.GetWidth(), {}};
    while (spacing.First < spacing.End && !HasInColumn(bar, spacing.First, IsDrawn))
        ++spacing.First;
    while (spacing.End > spacing.First && !HasInColumn(bar, spacing.End - 1, IsDrawn))
        --spacing.End;
    for (const Fretline::TabColumn& column : bar.GetColumns())
        spacing.Onsets.push_back({column.m_Column, column.m_Width});
    return spacing;
}

// The bar without the dots of a repetition, which some write in place of a dash and some besides the dashes.
BarSpacing WithoutDots(const TabBar& bar, BarSpacing spacing, bool atStart, bool atEnd) {
    if (atStart && HasInColumn(bar, spacing.First, IsRepeatDot))
        ++spacing.First;
    if (atEnd && HasInColumn(bar, spacing.End - 1, IsRepeatDot))
        --spacing.End;
    return spacing;
}

} // namespace

TextGrid::TextGrid(std::span<TabBar* const> bars) : m_Bars(bars) {
    if (!m_Bars.empty())
        Measure();
}

void TextGrid::Measure() {
    bool hasSignature = false;
    std::vector<int> widths;
    for (const TabBar* bar : m_Bars) {
        widths.push_back(SpacingOf(*bar).GetWidth());
        hasSignature = hasSignature || bar->GetTimeSignature() != nullptr;
    }
    const auto middle = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() / 2);
    std::nth_element(widths.begin(), middle, widths.end());
    m_UsualWidth = *middle;
    m_Padding = UsualPadding();
    if (!hasSignature)
        LookForCompoundMetre();
    for (const TabBar* bar : m_Bars)
        NoteWidth(*bar);
}

// As many columns as most bars leave free before their first note, or before a grid that fits them.
int TextGrid::UsualPadding() const {
    constexpr int kMost = 3;
    std::array<int, kMost + 1> votes{};
    for (const TabBar* bar : m_Bars) {
        const BarSpacing spacing = WithoutDots(*bar, SpacingOf(*bar), true, true);
        const int first = spacing.Onsets.empty() ? -1 : spacing.Onsets.front().Column - spacing.First;
        for (int padding = 0; padding <= std::min(first, kMost); ++padding) {
            int& count = votes[static_cast<std::size_t>(padding)];
            count += padding == first ? 1 : 0;
            const std::optional<BarGrid> grid = FindGrid(spacing, kAllSlotCounts, padding);
            count += grid && grid->IsExact && grid->Step > 1 && spacing.Onsets.size() > 1 ? 1 : 0;
        }
    }
    return static_cast<int>(std::max_element(votes.begin(), votes.end()) - votes.begin());
}

// Bars of one width have one grid, also those with too few notes to show it.
void TextGrid::NoteWidth(const TabBar& bar) {
    const std::optional<GridMetre> metre = MetreOf(bar);
    const std::optional<BarGrid> grid =
        metre ? GridOf(bar, metre->GetSlotCounts()) : std::optional<BarGrid>();
    if (grid && !grid->IsExact && grid->WideColumns.empty())
        m_GridWidths.emplace(SpacingOf(bar).GetWidth(), grid->GetWidth());
}

std::optional<GridMetre> TextGrid::MetreOf(const TabBar& bar) const {
    return m_Compound ? m_Compound : GridMetre::Stated(bar.GetTimeSignature());
}

// Without a time signature most bars have to show that they are cut into threes.
void TextGrid::LookForCompoundMetre() {
    constexpr int kFactor = 3;
    int judgedBars = 0;
    int evenBars = 0;
    std::map<int, int> barsOfSlots;
    int unevenBars = 0;
    for (const TabBar* bar : m_Bars) {
        if (bar->GetColumns().size() < kFewestOnsetsThatTell)
            continue;
        ++judgedBars;
        const std::optional<BarGrid> even = GridOf(*bar, std::array{4, 8, 16});
        const std::optional<BarGrid> uneven = GridOf(*bar, std::array{6, 12, 24});
        if (even && !uneven)
            ++evenBars;
        if (uneven && !even) {
            ++unevenBars;
            ++barsOfSlots[uneven->Slots];
        }
    }
    if (unevenBars <= kFactor * evenBars || 2 * unevenBars <= judgedBars)
        return;
    const auto most = std::max_element(barsOfSlots.begin(), barsOfSlots.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    m_Compound = GridMetre::Compound(most->first);
}

std::optional<BarGrid> TextGrid::GridOf(const TabBar& bar, std::span<const int> slotCounts) const {
    const BarSpacing spacing = SpacingOf(bar);
    for (const auto& [atStart, atEnd] : {std::pair(true, true), {false, false}, {true, false}, {false, true}})
        if (std::optional<BarGrid> grid =
                FindGrid(WithoutDots(bar, spacing, atStart, atEnd), slotCounts, m_Padding))
            return grid;
    const auto known = m_GridWidths.find(spacing.GetWidth());
    if (known == m_GridWidths.end())
        return std::nullopt;
    return FindGridOfWidth(spacing, slotCounts, m_Padding, known->second);
}

// A narrow bar with few notes is no full one.
bool TextGrid::MayBePickup(const TabBar& bar) const {
    constexpr int kPercentOfUsualWidth = 60;
    return bar.GetColumns().size() < kFewestOnsetsThatTell &&
           SpacingOf(bar).GetWidth() * 100 < m_UsualWidth * kPercentOfUsualWidth;
}

std::optional<BarRhythm> TextGrid::RhythmOf(const TabBar& bar) const {
    if (MayBePickup(bar))
        return std::nullopt;
    const std::optional<GridMetre> metre = MetreOf(bar);
    if (!metre)
        return std::nullopt;
    const std::optional<BarGrid> grid = GridOf(bar, metre->GetSlotCounts());
    if (!grid)
        return std::nullopt;
    BarRhythm rhythm{metre->GetLength(), {}, metre->SignsOf(SpacingOf(bar), *grid)};
    if (rhythm.Signs.empty())
        return std::nullopt;
    for (const Fretline::TabColumn& column : bar.GetColumns())
        rhythm.Times.push_back(metre->TimeOf(grid->SlotOf(column.m_Column), grid->Slots));
    return rhythm;
}

} // namespace TabText
