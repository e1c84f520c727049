#pragma once

#include "Projects/Fretline/text/RiffLabel.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace Fretline {

class TabFile;

/// The words that make a section label, in any case, in the order in which the labels of a line are listed.
/// Letters from a to z.
inline constexpr auto kLabelKeywords = std::to_array<std::string_view>(
    {"intro", "riff", "verse", "chorus", "fig", "prechorus", "coda", "bridge", "solo", "pattern", "outro"});

/// A stretch of a line. Columns are absolute.
struct LabelExtent {
    int m_StartColumn;
    /// The column after the last character.
    int m_EndColumn;
};

/// Works out how far a label reaches around its keyword: over two blanks on either side, and no further than
/// the third, which need not be adjacent. A zero byte ends it on the right. White space at its ends is left
/// out.
///
/// Goes through the line once, when it is made; each label then costs a few binary searches, so that a line
/// of nothing but keywords does not cost its square.
class LabelExtents {
public:
    explicit LabelExtents(std::string_view line);

    /// Of the keyword at the columns from `column` to `column` + `length` - 1, which hold no white space.
    LabelExtent Around(int column, int length) const;

private:
    int FindStart(int column) const;
    int FindEnd(int column) const;

    int m_Length;
    // Columns, ascending.
    std::vector<int> m_Blanks;
    std::vector<int> m_Zeros;
    std::vector<int> m_NotWhiteSpace;
    std::vector<int> m_Visible;
};

/// Appends the labels of one line, keyword by keyword, in each case from left to right. A keyword that is
/// part of a longer word makes none; of labels of the same extent only the first is kept. They borrow the
/// file.
void FindLabelsIn(const TabFile& file, int line, std::vector<std::unique_ptr<RiffLabel>>& found);

} // namespace Fretline
