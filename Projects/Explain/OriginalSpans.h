#pragma once

#include "Projects/Explain/Explanation.h"
#include "Projects/TabText/LineMap.h"

#include <optional>
#include <string>
#include <vector>

namespace Explain {

/// A stretch of a line that was taken for one thing: from its column to the one after it.
struct OriginalSpan {
    int Column = 0;
    int EndColumn = 0;
    Recognised Kind = Recognised::Nothing;

    bool operator==(const OriginalSpan&) const = default;
};

/// One line of the text as the user knows it. Lines and columns count from 0.
struct OriginalLine {
    int Line = 0;
    /// From left to right, none for what was not used.
    std::vector<OriginalSpan> Spans;
    /// In the tab's code page.
    std::vector<std::string> Notes;
};

/// An explanation in lines and columns of the text as the user knows it: through the map of a text that was
/// prepared, else as it is. Lines about which there is nothing to say are left out. Where several lines of
/// the prepared text stand for one of the original, whatever is more than a stave line wins.
std::vector<OriginalLine> OriginalSpans(const Explanation& explanation,
                                        const std::optional<TabText::LineMap>& map);

} // namespace Explain
