#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/BeatPositions.h"
#include "Projects/Fretline/stave/NoteLengths.h"
#include "Projects/Fretline/stave/RhythmLines.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"

namespace Fretline {

namespace {

constexpr int kNoOffset = 0;

// A rhythm line may end a note before the next one begins; a limit of 0 is none.
int LimitedTo(int limit, int duration) {
    return limit != 0 && limit < duration ? limit : duration;
}

} // namespace

void TabBar::FindRhythmSource() {
    const int lettersOffset = FindLineOffset([this](int offset) {
        return IsNoteLengthsLine(m_File, m_FirstLine + offset, m_StartColumn, m_StartColumn + m_Width);
    });
    if (lettersOffset != kNoOffset) {
        m_RhythmLine = {RhythmLineKind::NoteLengths, m_FirstLine + lettersOffset};
        m_Rhythm = std::make_unique<NoteLengths>(m_File, m_RhythmLine.m_Line, m_StartColumn, m_Width);
        m_RhythmLineOffset = lettersOffset;
        return;
    }
    const int beatsOffset = FindLineOffset([this](int offset) { return IsBeatPositionsLine(*this, offset); });
    if (beatsOffset != kNoOffset) {
        m_RhythmLine = {RhythmLineKind::BeatPositions, m_FirstLine + beatsOffset};
        m_Rhythm = std::make_unique<BeatPositions>(m_File, m_RhythmLine.m_Line, m_StartColumn, m_Width,
                                                   m_TimeSignature);
    }
}

template <typename LineTest>
int TabBar::FindLineOffset(LineTest isRhythmLine) const {
    for (const int offset : {-1, -2, m_LineCount, m_LineCount + 1})
        if (IsRhythmCandidate(offset) && isRhythmLine(offset))
            return offset;
    return kNoOffset;
}

bool TabBar::IsRhythmCandidate(int offset) const {
    const int line = m_FirstLine + offset;
    // Below a stave a rhythm line counts only where as many lines as the stave has follow it.
    const bool inReach = offset < 0 ? line >= 0 : line + m_LineCount < m_File.GetLineCount();
    const TabAnalysis* analysis = m_File.GetAnalysis();
    return inReach && (analysis == nullptr || !analysis->IsStaveLine(line));
}

void TabBar::ApplyRhythmSource() {
    auto kept = m_Columns.begin();
    int limitBefore = 0;
    for (TabColumn column : m_Columns) {
        int limit = 0;
        column.m_Position = RoundToMultipleOf32(m_Rhythm->GetPosition(column.m_Column, limit, column.m_Tied));
        if (kept != m_Columns.begin()) {
            TabColumn& before = *(kept - 1);
            // Of several columns at the very start only the last one stays.
            if (before.m_Position == 0 && column.m_Position == 0)
                --kept;
            else
                before.m_Duration = LimitedTo(limitBefore, column.m_Position - before.m_Position);
        }
        *kept++ = column;
        limitBefore = limit;
    }
    m_Columns.erase(kept, m_Columns.end());
    if (!m_Columns.empty())
        m_Columns.back().m_Duration =
            LimitedTo(limitBefore, m_Rhythm->GetLength() - m_Columns.back().m_Position);
    m_BarLength = m_Rhythm->GetLength();
}

} // namespace Fretline
