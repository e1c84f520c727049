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

    /// The first column after it.
    int GetEndColumn() const { return m_Column + 1 + m_Double; }
};

/// One stave of the text: consecutive lines, one a string, cut into bars.
///
/// Made by the stave detection, owned by TabAnalysis. Owns its barlines and bars; borrows the file, which
/// must outlive it. All columns here are absolute. Nothing fails: a stave without barlines is one bar.
///
/// A column is a barline column when all lines of the stave have the same character there and it is neither a
/// dash nor a fret character; two neighbours make a double barline. The grid is as wide as the longest line
/// of the file and holds 0 beyond the end of a line, so after the end of all lines of a stave every column
/// is a barline column, and every bar there is 0 columns wide. Such a bar never holds a dash, a label or a
/// time signature, and one very long line elsewhere in the file would give thousands of them to every stave.
/// Barlines and bars therefore end here with the first barline that reaches beyond the stave's own longest
/// line, and the bar of width 0 after it. What is kept is what the whole grid gives, up to there.
class TabStave {
public:
    /// Finds barlines, bars and tuning of the `lineCount` lines from `firstLine` on (1 to 6 lines), in time
    /// in proportion to the text of these lines.
    TabStave(TabFile& file, int firstLine, int lineCount);
    ~TabStave();
    TabStave(const TabStave&) = delete;
    TabStave& operator=(const TabStave&) = delete;

    int GetFirstLine() const { return m_FirstLine; }
    int GetLineCount() const { return m_LineCount; }
    /// The first line after the stave.
    int GetEndLine() const { return m_FirstLine + m_LineCount; }
    const std::vector<TabBarline>& GetBarlines() const { return m_Barlines; }
    /// Left to right, one more than there are barlines; bars without a dash, also of width 0, among them.
    const std::vector<std::unique_ptr<TabBar>>& GetBars() const { return m_Bars; }
    /// Open strings as Chrom2 (MIDI note number times 2), lowest string first; one entry a line.
    const std::vector<int>& GetTuning() const { return m_Tuning; }
    /// Gives the label to the bar under its middle, where it replaces an earlier one; lost when there is
    /// none. Borrows the label.
    void AttachLabel(const RiffLabel* label);
    /// True when exactly one of the bars has a dash.
    bool HasSingleBar() const { return m_BarsWithDash == 1; }

private:
    void FindBarlines();
    bool IsBarlineColumn(int column) const;
    void MakeBars();
    void MakeBar(int startColumn, int endColumn);

    int m_FirstLine;
    int m_LineCount;
    TabFile& m_File;
    /// Of the stave's own longest line.
    int m_Length;
    std::vector<TabBarline> m_Barlines;
    std::vector<std::unique_ptr<TabBar>> m_Bars;
    /// Counted once: every bar of the stave asks whether it is the only one.
    int m_BarsWithDash = 0;
    std::vector<int> m_Tuning;
};

} // namespace Fretline
