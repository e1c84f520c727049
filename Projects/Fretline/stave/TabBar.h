#pragma once

#include "Projects/Fretline/stave/ScoreBar.h"
#include "Projects/Fretline/stave/TabChord.h"
#include "Projects/Fretline/stave/TabColumn.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Nvr {
class TreeNode;
}

namespace Fretline {

class Rhythms;
class TabFile;
class TabStave;
struct RiffLabel;
struct TabTimeSignature;

enum class RhythmLineKind { None, NoteLengths, BeatPositions };

/// The line of the text that states a bar's rhythm.
struct RhythmLine {
    RhythmLineKind m_Kind = RhythmLineKind::None;
    /// The line of the file; -1 when there is none.
    int m_Line = -1;
};

/// What became of one chord symbol of a bar.
struct ChordReading {
    const TabChord* m_Chord;
    /// The column nearest to the symbol's middle, null when the bar has none.
    const TabColumn* m_Column;
    /// The column took it; false when another symbol won the column.
    bool m_Attached;
    /// It reached the score: attached, and the first of the columns that sound together there.
    bool m_Written;
};

/// One bar of a stave: a rectangle of the text, as high as the stave and as wide as the space between two
/// barlines. It is read into notes once, by ImportToScore, and asked about afterwards.
///
/// Made and owned by its TabStave. Owns its columns, score bars, rhythm source and chords; borrows file,
/// tuning, stave, label and time signature. Lines are those of the file; columns are bar-relative unless
/// called absolute; times are in score units (1024 to the whole note). Text that does not fit is left out:
/// nothing here fails or reports. Reading costs in proportion to the bar's cells.
class TabBar {
public:
    /// `startColumn` is absolute. Works out whether the rectangle holds a dash; all else is empty. The tuning
    /// has one entry a line when the bar is read; it may be filled after the bar is made.
    TabBar(TabFile& file, int firstLine, int lineCount, int startColumn, int width,
           const std::vector<int>& tuning, TabStave& stave);
    ~TabBar();
    TabBar(const TabBar&) = delete;
    TabBar& operator=(const TabBar&) = delete;

    /// Reads the bar and appends its score bars to the section `bars` of the score's stave. `lastNoteRest`
    /// is the last NoteRest written so far, null before the first; left alone when none was written. Columns,
    /// score bars and chords are given back as soon as they stand in the score, and asked for again are
    /// empty; how many bars there were, whether there were rhythms or chords, and the lengths stay.
    ///
    /// REQUIRES: the bar has not been read, and the analysis is complete.
    void ImportToScore(Nvr::TreeNode* bars, Nvr::TreeNode*& lastNoteRest);

    /// The reading half of ImportToScore: everything is known afterwards, and nothing written. Only a tie at
    /// the start of the bar reaches out, to the notes of `lastNoteRest`, which may be null.
    /// REQUIRES: as ImportToScore.
    void ReadBar(Nvr::TreeNode* lastNoteRest);

    void SetTimeSignature(const TabTimeSignature* timeSignature) { m_TimeSignature = timeSignature; }
    const TabTimeSignature* GetTimeSignature() const { return m_TimeSignature; }
    void SetBarLength(int length) { m_BarLength = length; }
    /// 1024 when no length is set.
    int GetBarLength() const;
    void SetLabel(const RiffLabel* label) { m_Label = label; }
    const RiffLabel* GetLabel() const { return m_Label; }
    bool HasDash() const { return m_HasDash; }
    /// The bar has real durations, from a rhythm line or from spacing.
    bool HasRhythms() const { return m_HasRhythms; }
    int ScoreBarCount() const { return m_ScoreBarCount; }
    bool HasChords() const { return m_HasChords; }

    const TabFile& GetFile() const { return m_File; }
    int GetFirstLine() const { return m_FirstLine; }
    int GetLineCount() const { return m_LineCount; }
    /// Absolute.
    int GetStartColumn() const { return m_StartColumn; }
    int GetWidth() const { return m_Width; }
    /// Open strings as Chrom2, lowest first.
    const std::vector<int>& GetTuning() const { return m_Tuning; }

    bool HasBeenRead() const { return m_HasBeenRead; }
    /// What ReadBar has found. All of it is empty before; the pointers live as long as the bar.
    ///
    /// The columns that are timed, left to right.
    const std::vector<TabColumn>& GetColumns() const { return m_Columns; }
    const std::vector<std::unique_ptr<ScoreBar>>& GetScoreBars() const { return m_ScoreBars; }
    /// The symbols of the chosen chord line, in text order.
    const std::vector<std::unique_ptr<TabChord>>& GetChords() const { return m_Chords; }
    /// The same with their columns, and which of them lost.
    std::vector<ChordReading> GetChordReadings() const;
    /// The line of the file that the chords come from; -1 when there are none.
    int GetChordLine() const { return m_ChordLine; }
    /// The chosen rhythm line, found at every rhythm level; whether it was used, HasRhythms tells.
    const RhythmLine& GetRhythmLine() const { return m_RhythmLine; }

private:
    // The rhythm source (TabBarRhythm.cpp).
    void FindRhythmSource();
    template <typename LineTest>
    int FindLineOffset(LineTest isRhythmLine) const;
    bool IsRhythmCandidate(int offset) const;
    void ApplyRhythmSource();

    // Columns (TabBarColumns.cpp).
    void FindColumns();
    void FindColumnsOfLine(int line);
    void JoinRightAlignedColumns();

    // Timing without a rhythm line (TabBarTiming.cpp).
    void ComputeTiming();
    void ApplyEvenTiming();
    void ApplySpacing();
    void SpreadOverSeveralBars();
    void PlaceInProportion();

    // Notes and score bars (TabBarNotes.cpp).
    void ReadNotes(Nvr::TreeNode* lastNoteRest);
    std::size_t ReadGroup(std::size_t first, int& cursor);
    void ReadNotesOfColumn(const TabColumn& column, std::vector<TabNote>& notes) const;
    void EmitDuration(int position, int duration, const std::vector<TabNote>& notes, const TabChord* chord);
    void EmitIntoOneBar(int position, int duration, const std::vector<TabNote>& notes, const TabChord* chord);
    ScoreBar& ScoreBarAt(int position);

    // Chords (TabBarChords.cpp).
    void ReadChords();
    std::vector<std::unique_ptr<TabChord>> ReadChordLine(int offset) const;
    void AttachChords();
    int MiddleOf(const TabChord& chord) const;
    bool Displaces(const TabChord& chord, const TabChord& holder, int column) const;

    void WriteScoreBar(const ScoreBar& scoreBar, Nvr::TreeNode* bars, Nvr::TreeNode*& lastNoteRest) const;
    void GiveBackReading();

    TabFile& m_File;
    int m_FirstLine;
    int m_LineCount;
    int m_StartColumn;
    int m_Width;
    std::vector<TabColumn> m_Columns;
    bool m_HasDash = false;
    const std::vector<int>& m_Tuning;
    /// In score units. Input and output: the analysis sets it, 0 stands for nothing set, and reading puts the
    /// length of the rhythm line, or of the columns without rhythms, in its place.
    int m_BarLength = 0;
    const TabTimeSignature* m_TimeSignature = nullptr;
    TabStave& m_Stave;
    std::vector<std::unique_ptr<ScoreBar>> m_ScoreBars;
    const RiffLabel* m_Label = nullptr;
    std::unique_ptr<Rhythms> m_Rhythm;
    std::vector<std::unique_ptr<TabChord>> m_Chords;
    /// Of a NoteLengths line, counted from m_FirstLine; 0, which is a line of the stave, for none.
    int m_RhythmLineOffset = 0;
    bool m_HasRhythms = false;
    bool m_HasChords = false;
    int m_ScoreBarCount = 0;
    RhythmLine m_RhythmLine;
    /// The line of the file; -1 for none.
    int m_ChordLine = -1;
    bool m_HasBeenRead = false;
};

/// Ties every note of a written NoteRest to the next. A rest does not change.
void MarkTied(Nvr::TreeNode* noteRest);

} // namespace Fretline
