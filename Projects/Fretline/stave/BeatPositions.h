#pragma once

#include "Projects/Fretline/stave/Rhythms.h"
#include "Projects/Fretline/stave/TabColumn.h"

#include <map>

namespace Fretline {

class TabFile;
struct TabTimeSignature;

/// One symbol of a beat line.
struct BeatColumn : TabColumn {
    /// The character of the line, every digit as "0".
    char m_Symbol = 0;
};

/// A rhythm line of beat counts, such as "1 + 2 + 3 + 4 +". Every symbol is a point in time: one a beat, two
/// a beat when there are twice as many as beats, or graded by their kind when there are more otherwise. Text
/// columns between the points lie in proportion. The line sets no limits and no ties.
///
/// Borrows file and time signature, which must outlive it.
class BeatPositions : public Rhythms {
public:
    /// Reads `width` columns of the line from the absolute `startColumn` on, leaving out time signatures.
    /// Without a time signature the bar counts as 4/4. The bar is never shorter than its beats.
    BeatPositions(const TabFile& file, int line, int startColumn, int width,
                  const TabTimeSignature* timeSignature);

    int GetPosition(int column, int& duration, bool& tied) const override;

private:
    /// The distinct symbols of a line and how often each occurs; needed only while it is read.
    struct SymbolTable;

    void FindElements(SymbolTable& symbols);
    void DropLoneFirstColumn(const SymbolTable& symbols);
    void TimeElements(const SymbolTable& symbols);
    bool IsOutsideTimeSignatures(int column) const;

    const TabFile& m_File;
    int m_Line;
    int m_StartColumn;
    int m_Width;
    const TabTimeSignature* m_TimeSignature;
    std::map<int, BeatColumn> m_Elements;
};

} // namespace Fretline
