#include "Projects/Fretline/stave/NoteLengths.h"

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/text/TabFile.h"

#include <algorithm>
#include <cstdint>

namespace Fretline {

namespace {

// Dots belong to their letter even where they run past the end of the bar.
int CountDots(const TabFile& file, int line, int column) {
    int dots = 0;
    while (file.GetChar(line, column + dots) == '.')
        ++dots;
    return dots;
}

int DottedLength(int length, int dots) {
    int sum = length;
    for (int term = length / 2; dots > 0 && term > 0; --dots, term /= 2)
        sum += term;
    return sum;
}

bool IsTieMark(char c) {
    return c == 'x' || c == '+' || c == '-';
}

} // namespace

int NoteLengthOf(char letter) {
    const auto* found = std::find_if(NoteLengthTable.begin(), NoteLengthTable.end(),
                                     [=](const NoteLengthLetter& row) { return row.m_Letter == letter; });
    return found == NoteLengthTable.end() ? 0 : found->m_Units;
}

NoteLengths::NoteLengths(const TabFile& file, int line, int startColumn, int width) : m_Width(width) {
    int position = 0;
    for (int i = 0; i < width; ++i) {
        const int column = startColumn + i;
        const int length = NoteLengthOf(file.GetChar(line, column));
        if (length == 0)
            continue;
        TabColumn element;
        element.m_Column = i;
        element.m_Position = position;
        element.m_Duration = DottedLength(length, CountDots(file, line, column + 1));
        element.m_Tied = column > 0 && IsTieMark(file.GetChar(line, column - 1));
        position = AddTime(position, element.m_Duration);
        m_Elements.emplace_hint(m_Elements.end(), i, element);
    }
    m_Length = position;
}

int NoteLengths::GetPosition(int column, int& duration, bool& tied) const {
    duration = 0;
    tied = false;
    auto found = m_Elements.find(column);
    if (found == m_Elements.end())
        found = m_Elements.find(column + 1);
    if (found == m_Elements.end())
        return Interpolate(column, duration);
    duration = found->second.m_Duration;
    tied = found->second.m_Tied;
    return found->second.m_Position;
}

int NoteLengths::Interpolate(int column, int& duration) const {
    // Two divisions, each cutting off, with thousandths between them: the order decides the last units.
    constexpr std::int64_t kFractionUnits = 1000;

    const auto high = m_Elements.lower_bound(column);
    int columnBefore = 0;
    int positionBefore = 0;
    if (high != m_Elements.begin()) {
        const TabColumn& low = std::prev(high)->second;
        columnBefore = low.m_Column;
        positionBefore = low.m_Position;
    }
    const bool hasNext = high != m_Elements.end();
    const int columnAfter = hasNext ? high->second.m_Column : m_Width;
    const int positionAfter = hasNext ? high->second.m_Position : m_Length;

    const std::int64_t fraction =
        (column - columnBefore) * kFractionUnits / std::max(columnAfter - columnBefore, 1);
    const std::int64_t distance = fraction * (positionAfter - positionBefore) / kFractionUnits;
    const int position = static_cast<int>(distance) + positionBefore;
    duration = positionAfter - position;
    return position;
}

} // namespace Fretline
