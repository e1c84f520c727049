// Rhythm lines over staves that show their rhythm by the distances of the notes alone.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Projects/TabText/prepare/TextGrid.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>
#include <set>

namespace TabText {

namespace {

using Fretline::RhythmLineKind;
using Fretline::TabBar;
using Fretline::TabStave;

// One line of the text, and the bars that it is to give their rhythm.
struct RhythmPlan {
    int Line = 0;
    std::vector<const TabBar*> Bars;
};

class GridPlanner {
public:
    explicit GridPlanner(Draft& draft) : m_Draft(draft), m_Reading(draft) {
        m_Reading.ReadBars();
        for (const auto& label : m_Reading.GetAnalysis().GetLabels())
            m_LabelLines.insert(label->m_Line);
        for (const auto& signature : m_Reading.GetAnalysis().GetTimeSignatures())
            m_LabelLines.insert(signature->m_Line);
    }

    void Run() {
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
    const std::vector<TabBar*>& GetBars() const { return m_Reading.GetAnalysis().GetReadableBars(); }

    void PlanStaves() {
        const TextGrid grid(GetBars());
        auto bar = GetBars().begin();
        const auto end = GetBars().end();
        for (const std::unique_ptr<TabStave>& stave : m_Reading.GetStaves()) {
            const auto first = bar;
            bar = std::find_if(
                first, end, [&](const TabBar* next) { return next->GetFirstLine() >= stave->GetEndLine(); });
            PlanStave(grid, *stave,
                      std::span<TabBar* const>(GetBars()).subspan(
                          static_cast<std::size_t>(first - GetBars().begin()),
                          static_cast<std::size_t>(bar - first)));
        }
    }

    void PlanStave(const TextGrid& grid, const TabStave& stave, std::span<TabBar* const> bars) {
        const bool hasRhythm = std::any_of(bars.begin(), bars.end(), [](const TabBar* bar) {
            return bar->GetRhythmLine().m_Kind != RhythmLineKind::None;
        });
        if (hasRhythm)
            return;
        const int line = FreeLineAbove(stave);
        RhythmPlan plan{line, {}};
        bool showsGrid = false;
        for (const TabBar* bar : bars)
            if (std::optional<BarRhythm> rhythm = grid.RhythmOf(*bar)) {
                if (line >= 0 && HasRoom(line, *bar)) {
                    showsGrid = showsGrid || rhythm->Times.size() > 1;
                    plan.Bars.push_back(bar);
                }
                m_Wanted.emplace(bar, std::move(*rhythm));
            }
        if (showsGrid)
            m_Plan.push_back(std::move(plan));
    }

    bool IsBlank(int line, std::size_t first = 0, std::size_t end = std::string::npos) const {
        const std::string_view text = m_Draft.GetLine(line);
        const std::string_view part = text.substr(std::min(first, text.size()), end - first);
        return std::all_of(part.begin(), part.end(), Nvr::Ascii::IsSpace);
    }

    // The plug-in looks for a rhythm in the two lines above a stave: a blank one, or one that has a label or
    // a time signature and room for more. -1 when there is none.
    int FreeLineAbove(const TabStave& stave) const {
        int withLabel = -1;
        for (const int line : {stave.GetFirstLine() - 1, stave.GetFirstLine() - 2}) {
            if (line < 0 || m_Reading.IsStaveLine(line))
                break;
            if (IsBlank(line))
                return line;
            if (withLabel < 0 && m_LabelLines.contains(line))
                withLabel = line;
        }
        return withLabel;
    }

    // A label reaches over single blanks.
    bool HasRoom(int line, const TabBar& bar) const {
        constexpr int kBlanksAfterLabel = 3;
        const int first = std::max(bar.GetStartColumn() - kBlanksAfterLabel, 0);
        const int end = bar.GetStartColumn() + bar.GetWidth();
        return IsBlank(line, static_cast<std::size_t>(first), static_cast<std::size_t>(end));
    }

    std::string TextOf(const RhythmPlan& plan) const {
        std::string text = IsBlank(plan.Line) ? std::string() : m_Draft.GetLine(plan.Line);
        for (const TabBar* bar : plan.Bars)
            for (const RhythmSign& sign : m_Wanted.at(bar).Signs) {
                const int signColumn = bar->GetStartColumn() + sign.Column;
                const auto column = static_cast<std::size_t>(signColumn);
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
        if (!HasSameLabels(after)) {
            std::erase_if(m_Plan, [&](const RhythmPlan& plan) { return !IsBlank(plan.Line); });
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

    bool HasSameLabels(const DraftReading& after) const {
        const auto& labels = m_Reading.GetAnalysis().GetLabels();
        const auto& labelsAfter = after.GetAnalysis().GetLabels();
        return std::equal(labels.begin(), labels.end(), labelsAfter.begin(), labelsAfter.end(),
                          [](const auto& a, const auto& b) {
                              return a->m_Line == b->m_Line && a->m_StartColumn == b->m_StartColumn &&
                                     a->m_EndColumn == b->m_EndColumn;
                          });
    }

    static bool IsReadAs(const BarRhythm& planned, const TabBar& bar) {
        return bar.GetRhythmLine().m_Kind != RhythmLineKind::None && bar.GetBarLength() == planned.Length &&
               std::equal(planned.Times.begin(), planned.Times.end(), bar.GetColumns().begin(),
                          bar.GetColumns().end(),
                          [](int time, const auto& column) { return column.m_Position == time; });
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
    std::set<int> m_LabelLines;
    /// Of every bar that shows one, also where no line is free.
    std::map<const TabBar*, BarRhythm> m_Wanted;
    std::vector<RhythmPlan> m_Plan;
};

} // namespace

void RunGrid(Draft& draft) {
    GridPlanner(draft).Run();
}

} // namespace TabText
