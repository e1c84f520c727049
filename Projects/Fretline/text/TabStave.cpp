#include "Projects/Fretline/text/TabStave.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabTuning.h"

#include <algorithm>

namespace Fretline {

namespace {

int LongestLine(const TabFile& file, int firstLine, int lineCount) {
    int length = 0;
    for (int line = firstLine; line < firstLine + lineCount; ++line)
        length = std::max(length, file.GetLineLength(line));
    return length;
}

} // namespace

TabStave::TabStave(TabFile& file, int firstLine, int lineCount)
    : m_FirstLine(firstLine), m_LineCount(lineCount), m_File(file),
      m_Length(LongestLine(file, firstLine, lineCount)) {
    FindBarlines();
    MakeBars();
    // The bars refer to the tuning and so see it filled.
    m_Tuning = FindTuning(m_File, m_FirstLine, m_LineCount);
}

TabStave::~TabStave() = default;

void TabStave::FindBarlines() {
    const int width = m_File.GetMaxLineLength();
    // The column after the longest line is still looked at: its barline ends the last bar of the text.
    for (int column = 0; column < width && column <= m_Length; ++column) {
        if (!IsBarlineColumn(column))
            continue;
        const bool isDouble = column + 1 < width && IsBarlineColumn(column + 1);
        m_Barlines.push_back({isDouble ? 1 : 0, column});
        if (isDouble)
            ++column;
    }
}

bool TabStave::IsBarlineColumn(int column) const {
    const char top = m_File.GetChar(m_FirstLine, column);
    if (IsDash(top) || IsFretChar(top))
        return false;
    for (int line = m_FirstLine + 1; line < GetEndLine(); ++line)
        if (m_File.GetChar(line, column) != top)
            return false;
    return true;
}

void TabStave::MakeBars() {
    m_Bars.reserve(m_Barlines.size() + 1);
    int start = 0;
    for (const TabBarline& barline : m_Barlines) {
        MakeBar(start, barline.m_Column);
        start = barline.GetEndColumn();
    }
    // When the file has a longer line, a barline has been found after this stave's longest, and after that
    // one follow barlines only.
    const int width = m_File.GetMaxLineLength();
    MakeBar(start, m_Length < width ? start : width);
}

void TabStave::MakeBar(int startColumn, int endColumn) {
    m_Bars.push_back(std::make_unique<TabBar>(m_File, m_FirstLine, m_LineCount, startColumn,
                                              endColumn - startColumn, m_Tuning, *this));
    if (m_Bars.back()->HasDash())
        ++m_BarsWithDash;
}

void TabStave::AttachLabel(const RiffLabel* label) {
    const int middle = (label->m_StartColumn + label->m_EndColumn) / 2;
    const auto after = std::upper_bound(
        m_Bars.begin(), m_Bars.end(), middle,
        [](int column, const std::unique_ptr<TabBar>& bar) { return column < bar->GetStartColumn(); });
    // The first bar starts at column 0, so there is one in front of `after`.
    TabBar& bar = **(after - 1);
    if (middle < bar.GetStartColumn() + bar.GetWidth())
        bar.SetLabel(label);
}

} // namespace Fretline
