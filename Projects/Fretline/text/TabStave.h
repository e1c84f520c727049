#pragma once

#include <memory>
#include <vector>

namespace Fretline {

class TabBar;
class TabFile;
struct RiffLabel;

/// A barline of the text, one or two columns wide. Columns are absolute.
struct TabBarline {
    /// 1 for a barline two columns wide, else 0.
    int m_Double;
    /// Its first column.
    int m_Column;

    /// The first column behind it.
    int GetEndColumn() const { return m_Column + 1 + m_Double; }
};

/// One stave of the text: consecutive lines, one a string, cut into bars.
///
/// Made by the stave detection, owned by TabAnalysis. Owns its barlines and bars; borrows the file, which must
/// outlive it. All columns here are absolute. Nothing fails: a stave without barlines is one bar.
class TabStave {
public:
    /// Finds barlines, bars and tuning of the `lineCount` lines from `firstLine` on (1 to 6 lines).
    TabStave(TabFile& file, int firstLine, int lineCount);
    ~TabStave();
    TabStave(const TabStave&) = delete;
    TabStave& operator=(const TabStave&) = delete;

    int GetFirstLine() const { return m_FirstLine; }
    int GetLineCount() const { return m_LineCount; }
    const std::vector<TabBarline>& GetBarlines() const { return m_Barlines; }
    const std::vector<std::unique_ptr<TabBar>>& GetBars() const { return m_Bars; }
    /// Open strings as Chrom2 (MIDI note number times 2), lowest string first; one entry a line.
    const std::vector<int>& GetTuning() const { return m_Tuning; }
    /// Gives the label to the bar under its middle; lost when there is none.
    void AttachLabel(const RiffLabel* label);
    /// True when exactly one of the bars has a dash.
    bool HasSingleBar() const;

private:
    int m_FirstLine;
    int m_LineCount;
    TabFile& m_File;
    std::vector<TabBarline> m_Barlines;
    std::vector<std::unique_ptr<TabBar>> m_Bars;
    std::vector<int> m_Tuning;
};

} // namespace Fretline
