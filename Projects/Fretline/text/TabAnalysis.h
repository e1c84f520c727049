#pragma once

#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabTimeSignature.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Fretline {

class TabBar;
class TabFile;
class TabStave;
struct LineRun;

/// What the rest of the system gets from the text: staves, bars in reading order, time signatures and section
/// labels, each bar knowing its time signature, its length and its label.
///
/// Owns staves (and with them bars), labels and time signatures; borrows the file, which must outlive it.
/// The constructor runs all passes; afterwards only the bars change, when they are read. All passes and
/// queries cost in proportion to the text, or less.
///
/// The rules of the passes stand in StaveDetection.h, TabStave.h, TimeSignatures.h and Labels.h. A stave
/// makes its bars, and the analysis hands them over in GetReadableBars: nothing else of the text knows what a
/// bar is.
class TabAnalysis {
public:
    /// Makes itself the file's analysis. Reports lines that only resemble a stave to the file's output; text
    /// that is not understood is left out. Only a failed allocation, or what the output throws, passes
    /// through.
    explicit TabAnalysis(TabFile& file);
    ~TabAnalysis();
    TabAnalysis(const TabAnalysis&) = delete;
    TabAnalysis& operator=(const TabAnalysis&) = delete;

    /// True when the line lies in one of the staves.
    bool IsStaveLine(int line) const {
        const auto index = static_cast<std::size_t>(line);
        return index < m_IsStaveLine.size() && m_IsStaveLine[index];
    }
    /// True when a time signature of the list covers the absolute column of the line.
    bool IsTimeSignatureAt(int line, int column) const;
    /// All bars with a dash: stave by stave, left to right.
    const std::vector<TabBar*>& GetReadableBars() const { return m_ReadableBars; }
    const std::vector<std::unique_ptr<TabStave>>& GetStaves() const { return m_Staves; }
    const std::vector<std::unique_ptr<TabTimeSignature>>& GetTimeSignatures() const {
        return m_TimeSignatures;
    }
    const std::vector<std::unique_ptr<RiffLabel>>& GetLabels() const { return m_Labels; }
    /// True when some readable bar has real durations.
    bool HasRhythms() const;

    /// Numbers the score bars from 1 and gives their count. REQUIRES: all bars have been read. The four
    /// queries below take a number that it has given, and raise std::out_of_range for any other.
    int ScoreBarCount();
    /// In score units; 1024 where the bar has none.
    int BarLengthOf(int scoreBar) const;
    /// Null when the bar has none.
    const TabTimeSignature* TimeSignatureOf(int scoreBar) const;
    /// Null when the bar has none, and for every score bar of a text bar but its first.
    const RiffLabel* LabelOf(int scoreBar) const;
    bool BarHasChords(int scoreBar) const;

private:
    void FindStaves();
    /// Trims the run, then drops it or cuts it into staves.
    void ProcessRun(LineRun run);
    void CutIntoStaves(const LineRun& run);
    void CollectReadableBars();
    void FindTimeSignatures();
    void AssignTimeSignatures();
    /// To the bars of one stave. `topLine` is the line after the stave above, or 0.
    void AssignTimeSignaturesOf(const TabStave& stave, int topLine, const TabTimeSignature*& current,
                                int length);
    void FindLabels();
    void AttachLabels();
    /// To the stave, those of the nearest labelled line above it down to `topLine`. `labelsAbove` is the
    /// number of labels in front of the stave.
    void AttachNearestLabels(TabStave& stave, int topLine, std::size_t labelsAbove);
    const TabBar& BarOf(int scoreBar) const;

    TabFile& m_File;
    /// By line.
    std::vector<bool> m_IsStaveLine;
    std::vector<std::unique_ptr<TabStave>> m_Staves;
    std::vector<TabBar*> m_ReadableBars;
    /// By line, then by column.
    std::vector<std::unique_ptr<TabTimeSignature>> m_TimeSignatures;
    /// The bar of each score bar; that of the first, whose number is 1, stands at 0.
    std::vector<const TabBar*> m_BarOfScoreBar;
    /// By line; on one line by keyword, then by column.
    std::vector<std::unique_ptr<RiffLabel>> m_Labels;
};

} // namespace Fretline
