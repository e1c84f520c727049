#pragma once

#include "Projects/Fretline/text/TabTimeSignature.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Fretline {

class TabFile;

/// Time signatures in text order: by line, and within a line by the column of the slash.
using TimeSignatureList = std::vector<std::unique_ptr<TabTimeSignature>>;

/// Appends the time signatures of one line: one or two digits, a slash, one or two digits, with a numerator
/// above 0 and a denominator of 2, 4, 8 or 16. Digits further away are not looked at, and what has another
/// value is passed over. A slash at column 0, or in the last column of the file's longest line, ends the
/// search.
void FindTimeSignaturesIn(const TabFile& file, int line, TimeSignatureList& found);

/// The time signature of the list that covers the absolute column of the line; null when none does.
const TabTimeSignature* FindTimeSignatureAt(const TimeSignatureList& list, int line, int column);

/// The time signatures that stand between two staves, ordered by column, for looking up those above a bar
/// without going through all of them for each bar. Borrows the list.
class SignaturesAboveStave {
public:
    /// Those of the lines from `topLine` up to the one before `endLine`.
    SignaturesAboveStave(const TimeSignatureList& list, int topLine, int endLine);

    /// Of those whose slash stands in the columns from `left` up to the one before `right`, the first in the
    /// order of the list; null when there is none.
    const TabTimeSignature* FirstWithin(int left, int right) const;

private:
    const TimeSignatureList& m_List;
    /// Column of the slash, and index in the list.
    std::vector<std::pair<int, std::size_t>> m_ByColumn;
};

} // namespace Fretline
