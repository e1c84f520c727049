#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/stave/Rhythms.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"

#include <algorithm>

namespace Fretline {

namespace {

// More columns than one for each of these, and a stave without barlines holds several bars.
constexpr int kUnitsPerColumnOfOneBar = 64;
// A first column left of this one stands for the start of the bar, and the space before it counts for
// nothing.
constexpr int kFirstColumnsOfABar = 3;

} // namespace

void TabBar::ComputeTiming() {
    FindColumns();
    JoinRightAlignedColumns();

    const int level = m_File.GetOptions()->GetRhythmLevel();
    const bool usesLine = m_Rhythm != nullptr && level != kRhythmsNever;
    if (usesLine)
        ApplyRhythmSource();
    else if (level == kRhythmsAlways)
        ApplySpacing();
    else
        ApplyEvenTiming();
    m_HasRhythms = usesLine || level == kRhythmsAlways;
}

void TabBar::ApplyEvenTiming() {
    m_BarLength = 0;
    for (TabColumn& column : m_Columns) {
        column.m_Position = m_BarLength;
        column.m_Duration = kUnitsPerQuaver;
        m_BarLength = AddTime(m_BarLength, kUnitsPerQuaver);
    }
}

void TabBar::ApplySpacing() {
    // A bar that nobody gave a length is a whole note long.
    if (m_BarLength < 1)
        m_BarLength = kUnitsPerWholeNote;
    if (m_Columns.empty())
        return;
    const auto mostOfOneBar = static_cast<std::size_t>(m_BarLength / kUnitsPerColumnOfOneBar);
    if (m_Columns.size() > mostOfOneBar && m_Stave.HasSingleBar())
        SpreadOverSeveralBars();
    else
        PlaceInProportion();
}

void TabBar::SpreadOverSeveralBars() {
    int position = 0;
    for (TabColumn& column : m_Columns) {
        column.m_Position = position;
        column.m_Duration = kUnitsPerQuaver;
        position = AddTime(position, kUnitsPerQuaver);
    }
    TabColumn& last = m_Columns.back();
    last.m_Duration = (last.m_Position / m_BarLength + 1) * m_BarLength - last.m_Position;
}

void TabBar::PlaceInProportion() {
    const int first = m_Columns.front().m_Column;
    const int columns = std::max(first < kFirstColumnsOfABar ? m_Width - first : m_Width - 1, 1);
    const int unitsPerColumn = m_BarLength / columns;

    // The sum stays unrounded, so that the roundings do not add up.
    int sum = 0;
    TabColumn* before = nullptr;
    for (TabColumn& column : m_Columns) {
        if (before != nullptr)
            sum += unitsPerColumn * (column.m_Column - before->m_Column);
        column.m_Position = RoundToMultipleOf64(sum);
        if (before != nullptr)
            before->m_Duration = column.m_Position - before->m_Position;
        before = &column;
    }
    before->m_Duration = std::min(RoundToMultipleOf64(unitsPerColumn * (m_Width - before->m_Column)),
                                  m_BarLength - before->m_Position);
}

} // namespace Fretline
