#include "Projects/Fretline/stave/TabBar.h"

#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabFile.h"

#include <algorithm>
#include <string_view>

namespace Fretline {

namespace {

// Guitars have hardly more frets; a run of digits of a higher value cannot be one number.
constexpr int kHighestFretReadAsOneNumber = 22;

// The fret characters from some column on to the next other character.
struct FretRun {
    int m_Length;
    // It cannot be one number.
    bool m_TooBig;
};

// Gives the runs of one line of a bar, from columns asked for in ascending order. What a run holds is
// gathered once, so that asking for each of its columns does not cost its length each time.
class FretRunReader {
public:
    // `cells`: what the line holds between the columns of the bar.
    explicit FretRunReader(std::string_view cells) : m_Cells(cells) {}

    int GetWidth() const { return static_cast<int>(m_Cells.size()); }

    bool HasRunAt(int column) const { return IsFretChar(CharAt(column)); }

    // REQUIRES: a run begins or goes on here.
    FretRun ReadAt(int column) {
        if (column >= m_End)
            Gather(column);
        return {m_End - column, IsTooBigFrom(column)};
    }

private:
    char CharAt(int column) const { return m_Cells[static_cast<std::size_t>(column)]; }

    void Gather(int column) {
        m_End = column;
        m_LastMuted = -1;
        m_FirstNonZero = column;
        for (; m_End < GetWidth() && HasRunAt(m_End); ++m_End)
            if (IsMuted(CharAt(m_End)))
                m_LastMuted = m_End;
    }

    bool IsTooBigFrom(int column) {
        if (m_LastMuted >= column)
            return true;
        m_FirstNonZero = std::max(m_FirstNonZero, column);
        while (m_FirstNonZero < m_End && CharAt(m_FirstNonZero) == '0')
            ++m_FirstNonZero;
        const int digits = m_End - m_FirstNonZero;
        return digits > 2 || (digits == 2 && NumberOfTwoDigits() > kHighestFretReadAsOneNumber);
    }

    int NumberOfTwoDigits() const {
        return (CharAt(m_FirstNonZero) - '0') * 10 + (CharAt(m_FirstNonZero + 1) - '0');
    }

    std::string_view m_Cells;
    int m_End = 0;
    int m_LastMuted = -1;
    int m_FirstNonZero = 0;
};

// The columns of a bar while one more of its lines is read: those of the lines before in order, after them
// the new ones, which are asked for in ascending order too.
class ColumnsOfLine {
public:
    explicit ColumnsOfLine(std::vector<TabColumn>& columns) : m_Columns(columns), m_Known(columns.size()) {}

    TabColumn& At(int column) {
        const auto endOfKnown = EndOfKnown();
        const auto known = std::lower_bound(m_Columns.begin(), endOfKnown, column, IsLeftOf);
        if (known != endOfKnown && known->m_Column == column)
            return *known;
        return m_Columns.emplace_back(TabColumn{column});
    }

    void PutInOrder() {
        std::inplace_merge(m_Columns.begin(), EndOfKnown(), m_Columns.end(),
                           [](const TabColumn& a, const TabColumn& b) { return IsLeftOf(a, b.m_Column); });
    }

private:
    std::vector<TabColumn>::iterator EndOfKnown() const {
        return m_Columns.begin() + static_cast<std::ptrdiff_t>(m_Known);
    }

    std::vector<TabColumn>& m_Columns;
    std::size_t m_Known;
};

} // namespace

void TabBar::FindColumns() {
    for (int line = m_FirstLine; line < m_FirstLine + m_LineCount; ++line)
        FindColumnsOfLine(line);
}

void TabBar::FindColumnsOfLine(int line) {
    FretRunReader runs(m_File.GetStretch(line, m_StartColumn, m_Width));
    ColumnsOfLine columns(m_Columns);
    int i = 0;
    while (i < runs.GetWidth()) {
        if (!runs.HasRunAt(i)) {
            ++i;
            continue;
        }
        const FretRun run = runs.ReadAt(i);
        if (run.m_TooBig) {
            for (const int end = i + run.m_Length; i < end; ++i) {
                TabColumn& column = columns.At(i);
                column.m_Single = true;
                column.m_Width = 1;
            }
        } else {
            TabColumn& column = columns.At(i);
            if (!column.m_Single)
                column.m_Width = std::max(column.m_Width, run.m_Length);
            i += column.m_Width;
        }
    }
    columns.PutInOrder();
}

void TabBar::JoinRightAlignedColumns() {
    constexpr int kTwoDigits = 2;
    auto kept = m_Columns.begin();
    for (auto next = m_Columns.begin(); next != m_Columns.end();) {
        const TabColumn current = *next++;
        if (next != m_Columns.end() && next->m_Column == current.m_Column + 1 &&
            current.m_Width == kTwoDigits)
            next->m_StartOffset = -1;
        else
            *kept++ = current;
    }
    m_Columns.erase(kept, m_Columns.end());
}

} // namespace Fretline
