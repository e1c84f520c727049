#pragma once

#include "Projects/TabText/prepare/DrawnLines.h"

#include <vector>

namespace TabText {

/// Tells where one stave ends and the next begins among strings without a blank line between them.
///
/// The plug-in takes six lines, and six more, and what is left. That is right for a guitar; four strings, or
/// five, or a guitar above a bass, it cuts in the wrong places. The names of the strings tell better, and
/// where there are none, the size of the other staves of the text.
class GluedStaves {
public:
    /// Borrows the lines.
    explicit GluedStaves(const std::vector<DrawnLine>& lines);

    /// The lines between `first` and `end` at which a stave begins that the plug-in would not begin there;
    /// empty where it cuts right or nothing tells. In ascending order.
    std::vector<int> EndsOfStaves(int first, int end) const;

private:
    std::vector<int> SizesByNames(int first, int end) const;
    std::vector<int> SizesByOthers(int lines) const;
    bool HasNames(int first, int end) const;
    bool IsStave(int first, int lines) const;

    const std::vector<DrawnLine>& m_Lines;
    /// How many blocks of so many lines there are.
    std::vector<int> m_BlocksOfSize;
};

} // namespace TabText
