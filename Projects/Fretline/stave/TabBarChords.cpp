#include "Projects/Fretline/stave/ChordParser.h"
#include "Projects/Fretline/stave/TabBar.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <unordered_set>

namespace Fretline {

namespace {

// At the same distance the left one is taken; the end where there is no column.
template <typename Columns>
auto FindNearest(Columns& columns, int column) {
    const auto high = std::lower_bound(columns.begin(), columns.end(), column, IsLeftOf);
    if (high == columns.begin())
        return high;
    const auto low = std::prev(high);
    const bool isLowNearer = high == columns.end() || column - low->m_Column <= high->m_Column - column;
    return isLowNearer ? low : high;
}

} // namespace

void TabBar::ReadChords() {
    std::vector<std::unique_ptr<TabChord>> nearer = ReadChordLine(-1);
    std::vector<std::unique_ptr<TabChord>> farther = ReadChordLine(-2);
    const bool takesFarther = farther.size() > nearer.size();
    m_Chords = takesFarther ? std::move(farther) : std::move(nearer);
    m_ChordLine = m_Chords.empty() ? -1 : m_FirstLine - (takesFarther ? 2 : 1);
}

std::vector<std::unique_ptr<TabChord>> TabBar::ReadChordLine(int offset) const {
    std::vector<std::unique_ptr<TabChord>> chords;
    const int line = m_FirstLine + offset;
    if (line < 0 || offset == m_RhythmLineOffset)
        return chords;
    int column = m_StartColumn;
    while (std::unique_ptr<TabChord> chord = ParseChordSymbol(m_File, line, column, m_StartColumn + m_Width))
        chords.push_back(std::move(chord));
    return chords;
}

void TabBar::AttachChords() {
    for (const std::unique_ptr<TabChord>& chord : m_Chords) {
        const auto column = FindNearest(m_Columns, MiddleOf(*chord));
        if (column == m_Columns.end())
            continue;
        if (column->m_Chord == nullptr || Displaces(*chord, *column->m_Chord, column->m_Column))
            column->m_Chord = chord.get();
    }
}

int TabBar::MiddleOf(const TabChord& chord) const {
    return chord.m_Start + (chord.m_End - chord.m_Start) / 2 - m_StartColumn;
}

bool TabBar::Displaces(const TabChord& chord, const TabChord& holder, int column) const {
    const int absoluteColumn = m_StartColumn + column;
    if (chord.m_Start >= absoluteColumn && holder.m_Start < absoluteColumn)
        return true;
    return std::abs(MiddleOf(chord) - column) <= std::abs(MiddleOf(holder) - column);
}

std::vector<ChordReading> TabBar::GetChordReadings() const {
    std::unordered_set<const TabChord*> written;
    for (const std::unique_ptr<ScoreBar>& scoreBar : m_ScoreBars)
        for (const BarItem& item : scoreBar->m_Items)
            if (item.m_Chord != nullptr)
                written.insert(item.m_Chord);
    std::vector<ChordReading> readings;
    readings.reserve(m_Chords.size());
    for (const std::unique_ptr<TabChord>& chord : m_Chords) {
        const auto nearest = FindNearest(m_Columns, MiddleOf(*chord));
        const TabColumn* column = nearest == m_Columns.end() ? nullptr : &*nearest;
        const bool attached = column != nullptr && column->m_Chord == chord.get();
        readings.push_back({chord.get(), column, attached, written.contains(chord.get())});
    }
    return readings;
}

} // namespace Fretline
