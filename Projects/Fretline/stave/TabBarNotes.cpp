#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Fretline/score/ScoreItems.h"
#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeIterator.h"

#include <algorithm>
#include <compare>
#include <cstddef>

namespace Fretline {

namespace {

const std::vector<TabNote> kRest;

std::uint8_t NarrowTo8Bits(int value) {
    return static_cast<std::uint8_t>(value);
}

std::uint8_t DiatOf(std::uint8_t chrom2) {
    return NarrowTo8Bits(DiatonicStepOf(chrom2 / kChrom2PerSemitone));
}

} // namespace

TabNote::TabNote(int string, int chrom2)
    : m_String(NarrowTo8Bits(string)), m_Chrom2(NarrowTo8Bits(chrom2)), m_Diat(DiatOf(m_Chrom2)) {}

void MarkTied(Nvr::TreeNode* noteRest) {
    static const Nvr::String kNotes("Notes");
    static const Nvr::String kFlags("Flags");
    const Nvr::TreeNode* notes = noteRest->FindChild(kNotes);
    if (notes == nullptr)
        return;
    Nvr::TreeNodeIterator iterator(*notes);
    while (const Nvr::TreeNode* note = iterator.Next())
        if (Nvr::TreeNode* flags = note->FindChild(kFlags))
            flags->SetValue(flags->GetValueAsInt() | kNoteTied);
}

// Only a tie from the bar before has an effect: the dash that ties a letter also fills the space between two.
void TabBar::ReadNotes(Nvr::TreeNode* lastNoteRest) {
    if (lastNoteRest != nullptr && !m_Columns.empty() && m_Columns.front().m_Tied)
        MarkTied(lastNoteRest);
    int cursor = 0;
    for (std::size_t next = 0; next < m_Columns.size();)
        next = ReadGroup(next, cursor);
    if (cursor < m_BarLength)
        EmitDuration(cursor, m_BarLength - cursor, kRest, nullptr);
}

// A column, with the columns before it that last no time, sounds as one chord.
std::size_t TabBar::ReadGroup(std::size_t first, int& cursor) {
    std::vector<TabNote> notes;
    const TabChord* chord = nullptr;
    const TabColumn* column = nullptr;
    std::size_t next = first;
    do {
        column = &m_Columns[next];
        if (chord == nullptr)
            chord = column->m_Chord;
        if (cursor < column->m_Position)
            EmitDuration(cursor, column->m_Position - cursor, notes, nullptr);
        ReadNotesOfColumn(*column, notes);
        cursor = column->m_Position + column->m_Duration;
        ++next;
    } while (column->m_Duration == 0 && next < m_Columns.size());

    std::stable_sort(notes.begin(), notes.end(),
                     [](const TabNote& a, const TabNote& b) { return a.m_Diat < b.m_Diat; });
    EmitDuration(column->m_Position, column->m_Duration, notes, chord);
    return next;
}

void TabBar::ReadNotesOfColumn(const TabColumn& column, std::vector<TabNote>& notes) const {
    const int first = std::max(column.m_Column + column.m_StartOffset, 0);
    const int end = std::min(column.m_Column + column.m_Width, m_Width);
    for (int string = 0; string < m_LineCount; ++string) {
        const int line = m_FirstLine + m_LineCount - 1 - string;
        // Only the low bits of a pitch are kept, so a number too long for any type may lose its high ones.
        unsigned number = 0;
        bool hasDigit = false;
        for (const char c : m_File.GetStretch(line, m_StartColumn + first, end - first)) {
            if (!Nvr::Ascii::IsDigit(c))
                continue;
            number = number * 10 + static_cast<unsigned>(c - '0');
            hasDigit = true;
        }
        if (hasDigit) {
            const int fret = NarrowTo8Bits(static_cast<int>(number % 256));
            notes.emplace_back(string,
                               m_Tuning[static_cast<std::size_t>(string)] + kChrom2PerSemitone * fret);
        }
    }
}

void TabBar::EmitDuration(int position, int duration, const std::vector<TabNote>& notes,
                          const TabChord* chord) {
    // Where a bar is shorter than the quaver that every note of a stave without barlines gets, the note goes
    // on over the barlines: no bar is stepped over, and none is fuller than it is long.
    while (m_BarLength > 0 && m_BarLength < kUnitsPerQuaver) {
        const int left = m_BarLength - position % m_BarLength;
        if (duration <= left)
            break;
        EmitIntoOneBar(position, left, notes, chord);
        m_ScoreBars.back()->m_Items.back().m_Tied = true;
        position += left;
        duration -= left;
        chord = nullptr;
    }
    EmitIntoOneBar(position, duration, notes, chord);
}

// All pieces stay in the score bar in which the duration begins. They fall in size, and are tied together.
void TabBar::EmitIntoOneBar(int position, int duration, const std::vector<TabNote>& notes,
                            const TabChord* chord) {
    ScoreBar& scoreBar = ScoreBarAt(position);
    int positionInBar = m_BarLength > 0 ? position % m_BarLength : position;
    bool isFirst = true;
    while (duration > 0) {
        BarItem item;
        item.m_Position = positionInBar;
        item.m_LogDuration = FloorLog2(duration);
        item.m_Notes = notes;
        if (isFirst)
            item.m_Chord = chord;
        else
            scoreBar.m_Items.back().m_Tied = true;
        isFirst = false;
        scoreBar.m_Items.push_back(std::move(item));
        const int length = 1 << scoreBar.m_Items.back().m_LogDuration;
        positionInBar += length;
        duration -= length;
    }
}

// Positions never step over a score bar, so at most the next one is missing.
ScoreBar& TabBar::ScoreBarAt(int position) {
    const auto index = static_cast<std::size_t>(m_BarLength > 0 ? position / m_BarLength : 0);
    if (index >= m_ScoreBars.size()) {
        m_ScoreBars.push_back(std::make_unique<ScoreBar>());
        return *m_ScoreBars.back();
    }
    return *m_ScoreBars[index];
}

} // namespace Fretline
