#include "Projects/TabText/PartTimes.h"

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/TabReading.h"

#include <algorithm>
#include <cstdint>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabColumn;

// A first column left of this one stands for the start of the bar, as where a bar is timed alone.
constexpr int kFirstColumnsOfABar = 3;

// Columns of several parts that stand below each other: places of the text, relative to the bar.
struct Slot {
    int Start = 0;
    int End = 0;
    int Column = 0;
    int Time = 0;
    /// For each part its column; null where it has none.
    std::vector<const TabColumn*> Columns;
};

struct PartColumn {
    std::size_t Part = 0;
    const TabColumn* Column = nullptr;

    int GetStart() const { return Column->m_Column + Column->m_StartOffset; }
    int GetEnd() const { return Column->m_Column + Column->m_Width; }
};

bool HasRhythmLine(const TabBar& bar) {
    return bar.HasRhythms() && bar.GetRhythmLine().m_Kind != Fretline::RhythmLineKind::None;
}

// Times the bars of one BarsTogether.
class PartTimer {
public:
    PartTimer(const TabReading& reading, const BarsTogether& together) {
        for (const std::optional<std::size_t>& bar : together.Bars)
            m_Bars.push_back(bar ? reading.GetBars()[*bar].Bar : nullptr);
    }

    // The parts have more than one bar, each of them is one bar of the score, and not all know their rhythm.
    bool HasWork() const {
        const TabBar* first = nullptr;
        bool areSeveral = false;
        bool lacksLine = false;
        for (const TabBar* bar : m_Bars) {
            if (bar == nullptr)
                continue;
            if (bar->ScoreBarCount() != 1)
                return false;
            areSeveral = areSeveral || (first != nullptr && bar != first);
            first = first == nullptr ? bar : first;
            lacksLine = lacksLine || !HasRhythmLine(*bar);
        }
        return areSeveral && lacksLine;
    }

    PartTimes Time() {
        FindSlots();
        const TabBar* const withLine = Find(HasRhythmLine);
        if (withLine != nullptr)
            TimeByLine(
                static_cast<std::size_t>(std::find(m_Bars.begin(), m_Bars.end(), withLine) - m_Bars.begin()));
        else if (const TabBar* const spaced = Find([](const TabBar& bar) { return bar.HasRhythms(); }))
            TimeInProportion(spaced->GetBarLength());
        else
            TimeEvenly();
        return {m_Length, NewTimes()};
    }

private:
    template <typename Test>
    const TabBar* Find(Test test) const {
        const auto found =
            std::find_if(m_Bars.begin(), m_Bars.end(), [&](const TabBar* bar) { return bar && test(*bar); });
        return found == m_Bars.end() ? nullptr : *found;
    }

    void FindSlots() {
        std::vector<PartColumn> columns;
        for (std::size_t part = 0; part < m_Bars.size(); ++part)
            if (m_Bars[part] != nullptr)
                for (const TabColumn& column : m_Bars[part]->GetColumns())
                    columns.push_back({part, &column});
        std::stable_sort(columns.begin(), columns.end(), [](const PartColumn& a, const PartColumn& b) {
            return a.GetStart() < b.GetStart();
        });
        for (const PartColumn& column : columns)
            SlotFor(column).Columns[column.Part] = column.Column;
    }

    // The last slot where the column stands below what is in it.
    Slot& SlotFor(const PartColumn& column) {
        if (m_Slots.empty() || column.GetStart() >= m_Slots.back().End ||
            m_Slots.back().Columns[column.Part] != nullptr) {
            Slot slot{column.GetStart(), column.GetEnd(), column.Column->m_Column, 0, {}};
            slot.Columns.resize(m_Bars.size());
            m_Slots.push_back(std::move(slot));
        }
        m_Slots.back().End = std::max(m_Slots.back().End, column.GetEnd());
        return m_Slots.back();
    }

    int GetWidth() const {
        int width = 0;
        for (const TabBar* bar : m_Bars)
            width = std::max(width, bar != nullptr ? bar->GetWidth() : 0);
        return width;
    }

    void TimeEvenly() {
        for (Slot& slot : m_Slots) {
            slot.Time = m_Length;
            m_Length = Fretline::AddTime(m_Length, Fretline::kUnitsPerQuaver);
        }
    }

    void TimeInProportion(int length) {
        m_Length = length;
        if (m_Slots.empty())
            return;
        const int first = m_Slots.front().Column;
        const int columns = std::max(first < kFirstColumnsOfABar ? GetWidth() - first : GetWidth() - 1, 1);
        for (Slot& slot : m_Slots)
            slot.Time = Fretline::RoundToMultipleOf64(length / columns * (slot.Column - first));
    }

    void TimeByLine(std::size_t part) {
        struct Place {
            int Column = 0;
            int Time = 0;
        };
        m_LinePart = part;
        m_Length = m_Bars[part]->GetBarLength();
        Place before;
        auto timed = m_Slots.begin();
        for (Slot& slot : m_Slots) {
            if (const TabColumn* column = slot.Columns[part]) {
                slot.Time = column->m_Position;
                before = {slot.Column, slot.Time};
                continue;
            }
            timed = std::find_if(std::max(timed, m_Slots.begin() + (&slot - m_Slots.data())), m_Slots.end(),
                                 [&](const Slot& other) { return other.Columns[part] != nullptr; });
            const Place after = timed == m_Slots.end()
                                    ? Place{std::max(GetWidth(), slot.Column + 1), m_Length}
                                    : Place{timed->Column, timed->Columns[part]->m_Position};
            slot.Time = before.Time + Share(after.Time - before.Time, slot.Column - before.Column,
                                            after.Column - before.Column);
        }
    }

    // Of the time between two places.
    static int Share(int time, int columns, int ofColumns) {
        const std::int64_t share = std::int64_t{time} * columns / std::max(ofColumns, 1);
        return Fretline::RoundToMultipleOf32(static_cast<int>(share));
    }

    std::vector<std::map<int, int>> NewTimes() const {
        std::vector<std::map<int, int>> times(m_Bars.size());
        for (const Slot& slot : m_Slots)
            for (std::size_t part = 0; part < m_Bars.size(); ++part)
                if (slot.Columns[part] != nullptr && part != m_LinePart)
                    times[part].emplace(slot.Columns[part]->m_Position, slot.Time);
        return times;
    }

    std::vector<const TabBar*> m_Bars;
    std::vector<Slot> m_Slots;
    int m_Length = 0;
    // Its times stay.
    std::optional<std::size_t> m_LinePart;
};

} // namespace

std::optional<PartTimes> TimesTogether(const TabReading& reading, const BarsTogether& together) {
    PartTimer timer(reading, together);
    if (!together.AreAligned || !timer.HasWork())
        return std::nullopt;
    return timer.Time();
}

} // namespace TabText
