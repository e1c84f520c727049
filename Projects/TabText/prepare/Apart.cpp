#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/DrawnLines.h"
#include "Projects/TabText/prepare/GluedStaves.h"
#include "Projects/TabText/prepare/Steps.h"

#include <algorithm>

namespace TabText {

namespace {

// Chords and rhythm stand at most so far above a stave.
constexpr int kMostLinesOfSymbols = 2;

class ApartPlanner {
public:
    explicit ApartPlanner(Draft& draft)
        : m_Draft(draft), m_Reading(draft), m_Lines(LookAtAll(draft)), m_Sizes(m_Lines) {}

    void Run() {
        const auto count = static_cast<int>(m_Lines.size());
        for (int line = 0; line < count;) {
            if (!At(line).IsCandidate) {
                Keep(line++);
                continue;
            }
            int end = line;
            while (end < count && At(end).IsCandidate)
                ++end;
            PlanRun(line, end);
            line = end;
        }
        if (m_HasNew)
            m_Draft.Rearrange(std::move(m_Plan));
    }

private:
    const DrawnLine& At(int line) const { return m_Lines[static_cast<std::size_t>(line)]; }
    bool IsString(int line) const {
        return At(line).Kind == LineKind::String || At(line).Kind == LineKind::Dashes;
    }
    bool IsAnnotation(int line) const { return At(line).Kind == LineKind::Annotation; }

    void Keep(int line) { m_Plan.push_back({line, false, {}}); }
    void AddBlank(int line) {
        m_Plan.push_back({line, true, {}});
        m_HasNew = true;
    }

    void PlanRun(int first, int end) {
        const bool isMisread = IsMisread(first, end);
        for (int line = first; line < end;) {
            int next = line;
            while (next < end && IsAnnotation(next) == IsAnnotation(line))
                ++next;
            if (!IsAnnotation(line))
                PlanStrings(line, next);
            else if (isMisread)
                PlanAnnotation({line, next}, line > first, next < end);
            else
                for (int kept = line; kept < next; ++kept)
                    Keep(kept);
            line = next;
        }
    }

    // An annotation was taken for a string, or keeps the strings beside it from being read.
    bool IsMisread(int first, int end) const {
        int strings = 0;
        bool isRead = false;
        bool isLost = false;
        for (int line = first; line < end; ++line) {
            strings += IsString(line) ? 1 : 0;
            isRead = isRead || (IsAnnotation(line) && m_Reading.IsStaveLine(line));
            isLost = isLost || (IsString(line) && !m_Reading.IsStaveLine(line));
        }
        return strings > 0 && (isRead || isLost);
    }

    void PlanStrings(int first, int end) {
        for (int line = first; line < end;) {
            int next = line;
            while (next < end && IsString(next))
                ++next;
            const std::vector<int> ends = m_Sizes.EndsOfStaves(line, next);
            auto stave = ends.begin();
            for (; line < next; ++line) {
                if (stave != ends.end() && line == *stave) {
                    AddBlank(line);
                    ++stave;
                }
                Keep(line);
            }
            for (; line < end && !IsString(line); ++line)
                Keep(line);
        }
    }

    struct Group {
        int First;
        int End;
    };

    void PlanAnnotation(const Group& group, bool hasStaveAbove, bool hasStaveBelow) {
        // The chords stay beside their stave: the annotation goes above them.
        const std::size_t symbols = hasStaveAbove || !hasStaveBelow ? 0 : CountSymbolLines();
        const std::vector<PlannedLine> below(m_Plan.end() - static_cast<std::ptrdiff_t>(symbols),
                                             m_Plan.end());
        m_Plan.resize(m_Plan.size() - symbols);
        if (hasStaveAbove || IsAfterCandidate())
            AddBlank(group.First);
        for (int line = group.First; line < group.End; ++line)
            Keep(line);
        m_Plan.insert(m_Plan.end(), below.begin(), below.end());
        if (hasStaveBelow && symbols == 0)
            AddBlank(group.End);
        m_HasNew = true;
    }

    bool IsAfterCandidate() const {
        return !m_Plan.empty() && !m_Plan.back().IsNew && At(m_Plan.back().Line).IsCandidate;
    }

    // Lines at the end of the plan that are no stave's and not blank.
    std::size_t CountSymbolLines() const {
        std::size_t count = 0;
        while (count < kMostLinesOfSymbols && count < m_Plan.size()) {
            const PlannedLine& planned = m_Plan[m_Plan.size() - 1 - count];
            if (planned.IsNew || At(planned.Line).IsCandidate || At(planned.Line).Kind == LineKind::Blank)
                break;
            ++count;
        }
        return count;
    }

    Draft& m_Draft;
    DraftReading m_Reading;
    std::vector<DrawnLine> m_Lines;
    GluedStaves m_Sizes;
    std::vector<PlannedLine> m_Plan;
    bool m_HasNew = false;
};

} // namespace

void RunApart(Draft& draft) {
    ApartPlanner(draft).Run();
}

} // namespace TabText
