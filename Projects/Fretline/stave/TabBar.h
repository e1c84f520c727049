#pragma once

#include "Projects/Fretline/stave/TabColumn.h"

#include <cstdint>
#include <map>
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
struct ScoreBar;
struct TabChord;
struct TabNote;
struct TabTimeSignature;

/// One bar of a stave: a rectangle of the text, as high as the stave and as wide as the space between two
/// barlines. It is read into notes once, by ImportToScore, and asked about afterwards.
///
/// Made and owned by its TabStave. Owns its columns, score bars, rhythm source and chords; borrows file,
/// tuning, stave, label and time signature. Lines are those of the file; columns are bar-relative unless
/// called absolute; times are in score units (1024 to the whole note). Text that does not fit is left out:
/// nothing here fails or reports.
class TabBar {
public:
    /// `startColumn` is absolute. Works out whether the rectangle holds a dash; all else is empty.
    TabBar(TabFile& file, int firstLine, int lineCount, int startColumn, int width,
           const std::vector<int>& tuning, TabStave& stave);
    ~TabBar();
    TabBar(const TabBar&) = delete;
    TabBar& operator=(const TabBar&) = delete;

    /// Reads the bar and appends its score bars to the section `bars` of the score's stave. `lastNoteRest`
    /// is the last NoteRest written so far, null before the first; left alone when none was written.
    void ImportToScore(Nvr::TreeNode* bars, Nvr::TreeNode*& lastNoteRest);

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
    int ScoreBarCount() const;
    bool HasChords() const { return !m_Chords.empty(); }

    int GetFirstLine() const { return m_FirstLine; }
    int GetLineCount() const { return m_LineCount; }
    /// Absolute.
    int GetStartColumn() const { return m_StartColumn; }
    int GetWidth() const { return m_Width; }
    /// Open strings as Chrom2, lowest first.
    const std::vector<int>& GetTuning() const { return m_Tuning; }

private:
    TabFile& m_File;
    int m_FirstLine;
    int m_LineCount;
    int m_StartColumn;
    int m_Width;
    std::map<int, std::unique_ptr<TabColumn>> m_Columns;
    bool m_HasDash = false;
    const std::vector<int>& m_Tuning;
    int m_BarLength = 0;
    const TabTimeSignature* m_TimeSignature = nullptr;
    TabStave& m_Stave;
    std::vector<std::unique_ptr<ScoreBar>> m_ScoreBars;
    const RiffLabel* m_Label = nullptr;
    std::unique_ptr<Rhythms> m_Rhythm;
    std::vector<std::unique_ptr<TabChord>> m_Chords;
    int m_RhythmLineOffset = 0;
    bool m_HasRhythms = false;
};

} // namespace Fretline
