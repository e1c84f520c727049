#pragma once

#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabTimeSignature.h"

#include <map>
#include <memory>
#include <vector>

namespace Fretline {

class TabBar;
class TabFile;
class TabStave;

/// What the rest of the system gets from the text: staves, bars in reading order, time signatures and section
/// labels, each bar knowing its time signature, its length and its label.
///
/// Owns staves (and with them bars), labels and time signatures; borrows the file, which must outlive it.
/// The constructor runs all passes; afterwards only the bars change, when they are read.
class TabAnalysis {
public:
    /// Reports lines that only resemble a stave to the file's output. Fails on nothing else.
    explicit TabAnalysis(TabFile& file);
    ~TabAnalysis();
    TabAnalysis(const TabAnalysis&) = delete;
    TabAnalysis& operator=(const TabAnalysis&) = delete;

    /// True when the line lies in one of the staves.
    bool IsStaveLine(int line) const;
    /// True when a time signature of the list covers the absolute column of the line.
    bool IsTimeSignatureAt(int line, int column) const;
    /// All bars with a dash: stave by stave, left to right.
    const std::vector<TabBar*>& GetReadableBars() const { return m_ReadableBars; }
    const std::vector<std::unique_ptr<TabStave>>& GetStaves() const { return m_Staves; }
    const std::vector<std::unique_ptr<TabTimeSignature>>& GetTimeSignatures() const { return m_TimeSignatures; }
    const std::vector<std::unique_ptr<RiffLabel>>& GetLabels() const { return m_Labels; }
    /// True when some readable bar has real durations.
    bool HasRhythms() const;

    /// Numbers the score bars from 1 and gives their count. Call it once all bars have been read; the four
    /// queries below take a number that it has given.
    int ScoreBarCount();
    /// In score units; 1024 where the bar has none.
    int BarLengthOf(int scoreBar) const;
    /// Null when the bar has none.
    const TabTimeSignature* TimeSignatureOf(int scoreBar) const;
    /// Null when the bar has none, and for every score bar of a text bar but its first.
    const RiffLabel* LabelOf(int scoreBar) const;
    bool BarHasChords(int scoreBar) const;

private:
    TabFile& m_File;
    std::vector<int> m_StaveLines;
    std::vector<std::unique_ptr<TabStave>> m_Staves;
    std::vector<TabBar*> m_ReadableBars;
    std::vector<std::unique_ptr<TabTimeSignature>> m_TimeSignatures;
    std::map<int, int> m_BarOfScoreBar;
    std::vector<std::unique_ptr<RiffLabel>> m_Labels;
};

} // namespace Fretline
