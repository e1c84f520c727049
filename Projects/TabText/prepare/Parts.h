#pragma once

#include "Projects/TabText/prepare/PartLabels.h"

#include <vector>

namespace TabText {

class Draft;

/// Which lines of a text belong to which of the parts that it shows one above the other.
struct TextParts {
    /// In the order in which they appear; empty when the text is one part, or when it is not clear which
    /// stave belongs to which.
    std::vector<PartName> Names;
    /// For each line the parts in which it stands, one bit each; all of them for what belongs to no stave.
    std::vector<unsigned> PartsOfLine;
    std::vector<int> LabelLines;
};

/// Parts are told by labels above their staves ("Gtr I", "Bass:"), and staves without label by their number
/// of strings, by their place among the staves that were labelled together, or by the label before them,
/// whichever leaves no doubt. Without labels, staves of six and of four strings that come in pairs are two
/// parts. Costs in proportion to the text.
TextParts FindParts(const Draft& draft);

} // namespace TabText
