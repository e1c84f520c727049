// Rhythm lines over staves that show their rhythm by the distances of the notes alone.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/GridMetre.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace TabText {

namespace {

using Fretline::RhythmLineKind;
using Fretline::TabBar;
using Fretline::TabStave;

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
    for (const auto& [key, column] : bar.GetColumns())
        spacing.Onsets.push_back({key, column->m_Width});
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

// The rhythm of a bar, and the line over it that says so.
struct PlannedBar {
    int Length = 0;
    /// When each column of the bar is to sound.
    std::vector<int> Times;
    std::vector<RhythmSign> Signs;
};

// One line of the text, which is blank, and the bars that it is to give their rhythm.
struct RhythmPlan {
    int Line = 0;
    std::vector<const TabBar*> Bars;
};

class GridPlanner {
public:
    explicit GridPlanner(Draft& draft) : m_Draft(draft), m_Reading(draft) { m_Reading.ReadBars(); }

    void Run() {
        if (GetBars().empty())
            return;
        Measure();
        PlanStaves();
        // Signs that are not read as they are meant go, and what else they had an effect on is looked at
        // again.
        constexpr int kMostRounds = 4;
        for (int round = 0; round < kMostRounds && !m_Plan.empty(); ++round)
            if (DropWhatIsMisread()) {
                Write();
                return;
            }
    }

private:
    void Measure() {
        bool hasSignature = false;
        std::vector<int> widths;
        for (const TabBar* bar : GetBars()) {
            widths.push_back(SpacingOf(*bar).GetWidth());
            hasSignature = hasSignature || bar->GetTimeSignature() != nullptr;
        }
        const auto middle = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() / 2);
        std::nth_element(widths.begin(), middle, widths.end());
        m_UsualWidth = *middle;
        m_Padding = UsualPadding();
        if (!hasSignature)
            LookForCompoundMetre();
        for (const TabBar* bar : GetBars())
            NoteWidth(*bar);
    }

    const std::vector<TabBar*>& GetBars() const { return m_Reading.GetAnalysis().GetReadableBars(); }

    // As many columns as most bars leave free before their first note, or before a grid that fits them.
    int UsualPadding() const {
        constexpr int kMost = 3;
        std::array<int, kMost + 1> votes{};
        for (const TabBar* bar : GetBars()) {
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
    void NoteWidth(const TabBar& bar) {
        const std::optional<GridMetre> metre = MetreOf(bar);
        const std::optional<BarGrid> grid =
            metre ? GridOf(bar, metre->GetSlotCounts()) : std::optional<BarGrid>();
        if (grid && !grid->IsExact && grid->WideColumns.empty())
            m_GridWidths.emplace(SpacingOf(bar).GetWidth(), grid->GetWidth());
    }

    std::optional<GridMetre> MetreOf(const TabBar& bar) const {
        return m_Compound ? m_Compound : GridMetre::Stated(bar.GetTimeSignature());
    }

    // Without a time signature most bars have to show that they are cut into threes.
    void LookForCompoundMetre() {
        constexpr int kFactor = 3;
        int judgedBars = 0;
        int evenBars = 0;
        std::map<int, int> barsOfSlots;
        int unevenBars = 0;
        for (const TabBar* bar : GetBars()) {
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

    std::optional<BarGrid> GridOf(const TabBar& bar, std::span<const int> slotCounts) const {
        const BarSpacing spacing = SpacingOf(bar);
        for (const auto& [atStart, atEnd] :
             {std::pair(true, true), {false, false}, {true, false}, {false, true}})
            if (std::optional<BarGrid> grid =
                    FindGrid(WithoutDots(bar, spacing, atStart, atEnd), slotCounts, m_Padding))
                return grid;
        const auto known = m_GridWidths.find(spacing.GetWidth());
        if (known == m_GridWidths.end())
            return std::nullopt;
        return FindGridOfWidth(spacing, slotCounts, m_Padding, known->second);
    }

    void PlanStaves() {
        auto bar = GetBars().begin();
        const auto end = GetBars().end();
        for (const std::unique_ptr<TabStave>& stave : m_Reading.GetStaves()) {
            const auto first = bar;
            bar = std::find_if(
                first, end, [&](const TabBar* next) { return next->GetFirstLine() >= stave->GetEndLine(); });
            PlanStave(*stave, std::span<TabBar* const>(GetBars()).subspan(
                                  static_cast<std::size_t>(first - GetBars().begin()),
                                  static_cast<std::size_t>(bar - first)));
        }
    }

    void PlanStave(const TabStave& stave, std::span<TabBar* const> bars) {
        const bool hasRhythm = std::any_of(bars.begin(), bars.end(), [](const TabBar* bar) {
            return bar->GetRhythmLine().m_Kind != RhythmLineKind::None;
        });
        if (hasRhythm)
            return;
        RhythmPlan plan{FreeLineAbove(stave), {}};
        bool showsGrid = false;
        for (const TabBar* bar : bars)
            if (std::optional<PlannedBar> planned = PlanBar(*bar)) {
                showsGrid = showsGrid || planned->Times.size() > 1;
                plan.Bars.push_back(bar);
                m_Wanted.emplace(bar, std::move(*planned));
            }
        if (showsGrid && plan.Line >= 0)
            m_Plan.push_back(std::move(plan));
    }

    bool IsBlank(int line) const {
        const std::string& text = m_Draft.GetLine(line);
        return std::all_of(text.begin(), text.end(), Nvr::Ascii::IsSpace);
    }

    // The plug-in looks for a rhythm in the two lines above a stave. -1 when none of them is free.
    int FreeLineAbove(const TabStave& stave) const {
        for (const int line : {stave.GetFirstLine() - 1, stave.GetFirstLine() - 2}) {
            if (line < 0 || m_Reading.IsStaveLine(line))
                return -1;
            if (IsBlank(line))
                return line;
        }
        return -1;
    }

    // A narrow bar with few notes is no full one.
    bool MayBePickup(const TabBar& bar) const {
        constexpr int kPercentOfUsualWidth = 60;
        return bar.GetColumns().size() < kFewestOnsetsThatTell &&
               SpacingOf(bar).GetWidth() * 100 < m_UsualWidth * kPercentOfUsualWidth;
    }

    std::optional<PlannedBar> PlanBar(const TabBar& bar) const {
        if (MayBePickup(bar))
            return std::nullopt;
        const std::optional<GridMetre> metre = MetreOf(bar);
        if (!metre)
            return std::nullopt;
        const std::optional<BarGrid> grid = GridOf(bar, metre->GetSlotCounts());
        if (!grid)
            return std::nullopt;
        PlannedBar planned{metre->GetLength(), {}, metre->SignsOf(SpacingOf(bar), *grid)};
        if (planned.Signs.empty())
            return std::nullopt;
        for (const auto& [key, column] : bar.GetColumns())
            planned.Times.push_back(metre->TimeOf(grid->SlotOf(key), grid->Slots));
        return planned;
    }

    std::string TextOf(const RhythmPlan& plan) const {
        std::string text;
        for (const TabBar* bar : plan.Bars)
            for (const RhythmSign& sign : m_Wanted.at(bar).Signs) {
                const auto column = static_cast<std::size_t>(bar->GetStartColumn() + sign.Column);
                if (text.size() <= column)
                    text.resize(column + 1, ' ');
                text[column] = sign.Sign;
            }
        return text;
    }

    void Write() {
        for (const RhythmPlan& plan : m_Plan)
            m_Draft.Overwrite(plan.Line, TextOf(plan));
    }

    std::string PlannedText() const {
        std::string text;
        auto next = m_Plan.begin();
        for (int line = 0; line < m_Draft.GetLineCount(); ++line) {
            const bool isPlanned = next != m_Plan.end() && next->Line == line;
            text += (isPlanned ? TextOf(*next) : m_Draft.GetLine(line)) + "\n";
            if (isPlanned)
                ++next;
        }
        text.pop_back();
        return text;
    }

    // Reads the text as it would be. True when all of it is read as planned, and what is not planned as
    // before.
    bool DropWhatIsMisread() {
        const Draft draft(PlannedText());
        DraftReading after(draft);
        after.ReadBars();
        const std::vector<TabBar*>& barsAfter = after.GetAnalysis().GetReadableBars();
        if (barsAfter.size() != GetBars().size()) {
            m_Plan.clear();
            return false;
        }
        std::set<const TabBar*> planned;
        for (const RhythmPlan& plan : m_Plan)
            planned.insert(plan.Bars.begin(), plan.Bars.end());
        std::set<const TabBar*> dropped;
        for (std::size_t at = 0; at < GetBars().size(); ++at) {
            const TabBar& before = *GetBars()[at];
            const TabBar& now = *barsAfter[at];
            const bool isRead = now.GetRhythmLine().m_Line != before.GetRhythmLine().m_Line;
            const auto wanted = m_Wanted.find(&before);
            const bool isAsWanted = wanted != m_Wanted.end() && IsReadAs(wanted->second, now);
            if (planned.contains(&before) && !isAsWanted)
                dropped.insert(&before);
            // Between staves a line may count for the one above it too.
            else if (isRead && !isAsWanted)
                DropAbove(now, dropped);
        }
        for (RhythmPlan& plan : m_Plan)
            std::erase_if(plan.Bars, [&](const TabBar* bar) { return dropped.contains(bar); });
        std::erase_if(m_Plan, [](const RhythmPlan& plan) { return plan.Bars.empty(); });
        return dropped.empty();
    }

    static bool IsReadAs(const PlannedBar& planned, const TabBar& bar) {
        return bar.GetRhythmLine().m_Kind != RhythmLineKind::None && bar.GetBarLength() == planned.Length &&
               std::equal(planned.Times.begin(), planned.Times.end(), bar.GetColumns().begin(),
                          bar.GetColumns().end(),
                          [](int time, const auto& column) { return column.second->m_Position == time; });
    }

    // The bar takes a line that is meant for the stave below it.
    void DropAbove(const TabBar& bar, std::set<const TabBar*>& dropped) const {
        const auto plan = std::lower_bound(m_Plan.begin(), m_Plan.end(), bar.GetRhythmLine().m_Line,
                                           [](const RhythmPlan& each, int line) { return each.Line < line; });
        if (plan == m_Plan.end() || plan->Line != bar.GetRhythmLine().m_Line)
            return;
        const auto endOf = [](const TabBar& each) { return each.GetStartColumn() + each.GetWidth(); };
        auto each =
            std::lower_bound(plan->Bars.begin(), plan->Bars.end(), bar.GetStartColumn(),
                             [&](const TabBar* planned, int column) { return endOf(*planned) <= column; });
        for (; each != plan->Bars.end() && (*each)->GetStartColumn() < endOf(bar); ++each)
            dropped.insert(*each);
    }

    Draft& m_Draft;
    DraftReading m_Reading;
    int m_UsualWidth = 0;
    int m_Padding = 0;
    /// The width of the grid in bars of a width in which it does not end where they do.
    std::map<int, int> m_GridWidths;
    std::optional<GridMetre> m_Compound;
    /// Of every bar that shows one, also where no line is free.
    std::map<const TabBar*, PlannedBar> m_Wanted;
    std::vector<RhythmPlan> m_Plan;
};

} // namespace

void RunGrid(Draft& draft) {
    GridPlanner(draft).Run();
}

} // namespace TabText
