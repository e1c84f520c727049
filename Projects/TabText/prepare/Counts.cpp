#include "Projects/TabText/prepare/Counts.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/RhythmSigns.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace TabText {

namespace {

using Fretline::RhythmLineKind;
using Fretline::TabBar;
using std::string;

// What is left of the counts of a bar. The plug-in times what stands between two of them by its distances to
// both, and after the last one by that to the end of the bar, so that halves may be needed there.
enum class Left { Beats, BeatsAndHalves };

bool IsLeft(const Count& count, Left way) {
    return count.Quarter == 0 || (way == Left::BeatsAndHalves && count.Quarter == kQuartersOfABeat / 2);
}

// A bar, and the line of the text that counts it.
struct CountedBar {
    // Among all bars of the reading.
    std::size_t Index = 0;
    int Line = 0;
    std::vector<Count> Counts;
    // None as long as no way is right.
    std::optional<Left> Way = {};
};

int BeatsOf(const TabBar& bar) {
    constexpr int kBeatsWithoutSignature = 4;
    return bar.GetTimeSignature() == nullptr ? kBeatsWithoutSignature : bar.GetTimeSignature()->m_Numerator;
}

const Count* FindCount(const std::vector<Count>& counts, int column) {
    const auto found = std::lower_bound(counts.begin(), counts.end(), column,
                                        [](const Count& count, int wanted) { return count.Column < wanted; });
    return found != counts.end() && found->Column == column ? &*found : nullptr;
}

// A number of two digits under two counts may be two notes.
bool StandUnderCounts(const TabBar& bar, const std::vector<Count>& counts) {
    const auto& columns = bar.GetColumns();
    return std::all_of(columns.begin(), columns.end(), [&](const Fretline::TabColumn& column) {
        return FindCount(counts, column.m_Column) != nullptr &&
               (column.m_Width == 1 || FindCount(counts, column.m_Column + 1) == nullptr) &&
               (column.m_StartOffset == 0 || FindCount(counts, column.m_Column - 1) == nullptr);
    });
}

bool IsReadAs(const CountedBar& counted, const TabBar& bar) {
    const int quarters = BeatsOf(bar) * kQuartersOfABeat;
    return bar.GetRhythmLine().m_Kind == RhythmLineKind::BeatPositions &&
           bar.GetRhythmLine().m_Line == counted.Line && bar.GetBarLength() == LengthByMetre(bar) &&
           std::all_of(bar.GetColumns().begin(), bar.GetColumns().end(), [&](const auto& column) {
               const Count* count = FindCount(counted.Counts, column.m_Column);
               return count != nullptr &&
                      column.m_Position * quarters ==
                          (count->Beat * kQuartersOfABeat + count->Quarter) * LengthByMetre(bar);
           });
}

// What the plug-in reads of a draft.
class ReadDraft {
public:
    explicit ReadDraft(const Draft& draft) : m_Reading(draft) { m_Reading.ReadBars(); }
    const std::vector<TabBar*>& GetBars() const { return m_Reading.GetAnalysis().GetReadableBars(); }
    const Fretline::TabFile& GetFile() const { return m_Reading.GetFile(); }

private:
    DraftReading m_Reading;
};

class CountsThinner {
public:
    CountsThinner(Draft& draft, std::set<int> lines)
        : m_Draft(draft), m_CountLines(std::move(lines)), m_Before(draft) {}

    void Run() {
        for (const TabBar* bar : GetBars())
            m_LinesAbove.insert({bar->GetFirstLine() - 1, bar->GetFirstLine() - 2});
        for (std::size_t index = 0; index < GetBars().size(); ++index)
            FindCounts(index);
        for (const Left way : {Left::Beats, Left::BeatsAndHalves})
            Try(way);
        if (!Texts().empty() && ChangesNothingElse())
            for (auto& [line, text] : Texts())
                m_Draft.Overwrite(line, std::move(text));
    }

private:
    const std::vector<TabBar*>& GetBars() const { return m_Before.GetBars(); }

    void FindCounts(std::size_t index) {
        const TabBar& bar = *GetBars()[index];
        if (bar.GetRhythmLine().m_Kind != RhythmLineKind::None || bar.GetColumns().empty())
            return;
        const int end = bar.GetFirstLine() + bar.GetLineCount();
        for (const int line : {bar.GetFirstLine() - 1, bar.GetFirstLine() - 2, end, end + 1}) {
            // Between two staves it is that of the lower one.
            const bool isOfOther = line >= end && m_LinesAbove.contains(line);
            if (!m_CountLines.contains(line) || isOfOther)
                continue;
            std::vector<Count> counts = CountsOf(
                m_Before.GetFile().GetStretch(line, bar.GetStartColumn(), bar.GetWidth()), BeatsOf(bar));
            if (!counts.empty() && StandUnderCounts(bar, counts)) {
                m_Counted.push_back({index, line, std::move(counts)});
                return;
            }
        }
    }

    // The lines as they are where each bar goes its way.
    std::map<int, string> Texts() const {
        std::map<int, string> texts;
        for (const CountedBar& counted : m_Counted) {
            if (!counted.Way)
                continue;
            const TabBar& bar = *GetBars()[counted.Index];
            string& text = texts.try_emplace(counted.Line, m_Draft.GetLine(counted.Line)).first->second;
            for (const Count& count : counted.Counts) {
                const int column = bar.GetStartColumn() + count.Column;
                if (!IsLeft(count, *counted.Way))
                    text[static_cast<std::size_t>(column)] = ' ';
            }
        }
        return texts;
    }

    string PlannedText() const {
        const std::map<int, string> texts = Texts();
        string whole;
        for (int line = 0; line < m_Draft.GetLineCount(); ++line) {
            const auto planned = texts.find(line);
            whole += (planned != texts.end() ? planned->second : m_Draft.GetLine(line)) + "\n";
        }
        whole.pop_back();
        return whole;
    }

    // Takes this way for those of the bars without one that are then read as they are counted.
    void Try(Left way) {
        std::vector<CountedBar*> tried;
        for (CountedBar& counted : m_Counted)
            if (!counted.Way) {
                counted.Way = way;
                tried.push_back(&counted);
            }
        if (tried.empty())
            return;
        const ReadDraft after{Draft(PlannedText())};
        const std::vector<TabBar*>& bars = after.GetBars();
        for (CountedBar* counted : tried)
            if (bars.size() != GetBars().size() || !IsReadAs(*counted, *bars[counted->Index]))
                counted->Way.reset();
    }

    // The plug-in may take a line between two staves for both. True when what is planned changes the rhythm
    // of no other bar, and no chords.
    bool ChangesNothingElse() const {
        const ReadDraft after{Draft(PlannedText())};
        const std::vector<TabBar*>& bars = after.GetBars();
        if (bars.size() != GetBars().size())
            return false;
        auto counted = m_Counted.begin();
        for (std::size_t index = 0; index < bars.size(); ++index) {
            const TabBar& before = *GetBars()[index];
            while (counted != m_Counted.end() && (counted->Index < index || !counted->Way))
                ++counted;
            const bool isPlanned = counted != m_Counted.end() && counted->Index == index;
            const bool isRight = isPlanned
                                     ? IsReadAs(*counted, *bars[index])
                                     : bars[index]->GetRhythmLine().m_Line == before.GetRhythmLine().m_Line;
            if (!isRight || bars[index]->GetChordLine() != before.GetChordLine())
                return false;
        }
        return true;
    }

    Draft& m_Draft;
    const std::set<int> m_CountLines;
    const ReadDraft m_Before;
    std::set<int> m_LinesAbove;
    // By ascending index.
    std::vector<CountedBar> m_Counted;
};

} // namespace

void ThinOutCounts(Draft& draft) {
    std::set<int> lines;
    for (int line = 0; line < draft.GetLineCount(); ++line)
        if (IsOfCounts(draft.GetLine(line)))
            lines.insert(line);
    if (!lines.empty())
        CountsThinner(draft, std::move(lines)).Run();
}

} // namespace TabText
