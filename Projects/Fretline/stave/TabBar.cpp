#include "Projects/Fretline/stave/TabBar.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreItems.h"
#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/Rhythms.h"
#include "Projects/Fretline/text/TabFile.h"

#include <cassert>
#include <string_view>
#include <utility>

namespace Fretline {

namespace {

constexpr int kBarOfMusic = 1;

// Where the host draws a chord symbol from its note, in the host's units.
constexpr int kChordDx = 24;
constexpr int kChordDy = 256;

const Nvr::String& ChordStyle() {
    static const Nvr::String style("text.staff.space.chordsymbol");
    return style;
}

bool HasDashIn(const TabFile& file, int firstLine, int lineCount, int startColumn, int width) {
    for (int line = firstLine; line < firstLine + lineCount; ++line)
        if (file.GetStretch(line, startColumn, width).find('-') != std::string_view::npos)
            return true;
    return false;
}

NoteRestRecord MakeNoteRest(const BarItem& item) {
    NoteRestRecord record;
    record.Position = NarrowTo16Bits(item.m_Position);
    record.DurationExponent = item.m_LogDuration;
    return record;
}

NoteRecord MakeNote(const TabNote& note, bool tied) {
    NoteRecord record;
    record.Diat = note.m_Diat;
    record.Chrom2 = note.m_Chrom2;
    record.StringNum = note.m_String;
    record.Tied = tied;
    return record;
}

Nvr::TreeNode* WriteItem(const BarItem& item, Nvr::TreeNode* items) {
    Nvr::TreeNode* noteRest = AddNoteRest(items, MakeNoteRest(item));
    if (!item.m_Notes.empty()) {
        Nvr::TreeNode* notes = GetSection(noteRest, SectionNotes);
        for (const TabNote& note : item.m_Notes)
            AddNote(notes, MakeNote(note, item.m_Tied));
    }
    return noteRest;
}

} // namespace

TabBar::TabBar(TabFile& file, int firstLine, int lineCount, int startColumn, int width,
               const std::vector<int>& tuning, TabStave& stave)
    : m_File(file), m_FirstLine(firstLine), m_LineCount(lineCount), m_StartColumn(startColumn),
      m_Width(width), m_HasDash(HasDashIn(file, firstLine, lineCount, startColumn, width)), m_Tuning(tuning),
      m_Stave(stave) {}

TabBar::~TabBar() = default;

int TabBar::GetBarLength() const {
    return m_BarLength == 0 ? kUnitsPerWholeNote : m_BarLength;
}

void TabBar::ImportToScore(Nvr::TreeNode* bars, Nvr::TreeNode*& lastNoteRest) {
    ReadBar(lastNoteRest);
    for (const std::unique_ptr<ScoreBar>& scoreBar : m_ScoreBars)
        WriteScoreBar(*scoreBar, bars, lastNoteRest);
    GiveBackReading();
}

void TabBar::ReadBar(Nvr::TreeNode* lastNoteRest) {
    assert(!m_HasBeenRead);
    m_HasBeenRead = true;
    // Columns must be timed before chords attach to them, and the rhythm line must be known before chords are
    // read: it could be taken for a chord line.
    FindRhythmSource();
    ComputeTiming();
    ReadChords();
    AttachChords();
    ReadNotes(lastNoteRest);
    m_HasChords = !m_Chords.empty();
    m_ScoreBarCount = static_cast<int>(m_ScoreBars.size());
}

// The bars of a book, all read, would otherwise take as much as a quarter of its score.
void TabBar::GiveBackReading() {
    std::exchange(m_Columns, {});
    std::exchange(m_ScoreBars, {});
    std::exchange(m_Chords, {});
    m_Rhythm.reset();
}

void TabBar::WriteScoreBar(const ScoreBar& scoreBar, Nvr::TreeNode* bars,
                           Nvr::TreeNode*& lastNoteRest) const {
    Nvr::TreeNode* items = GetSection(AddBar(bars, kBarOfMusic), SectionItems);
    for (const BarItem& item : scoreBar.m_Items) {
        lastNoteRest = WriteItem(item, items);
        if (item.m_Chord != nullptr)
            AddText(items, item.m_Position, ChordStyle(), GetChordText(*item.m_Chord), kChordDx, kChordDy,
                    false);
    }
}

} // namespace Fretline
