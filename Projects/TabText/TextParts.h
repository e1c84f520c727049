#pragma once

#include "Projects/TabText/PartLabels.h"

#include <cstddef>
#include <vector>

namespace Fretline {
class TabAnalysis;
class TabFile;
} // namespace Fretline

namespace TabText {

/// One stave of a text that shows several parts.
struct PartStave {
    /// Its lines, and the line after the last.
    int First = 0;
    int End = 0;
    /// Line of the label above it; -1 for none.
    int LabelLine = -1;
    /// The parts whose stave it is, one bit each.
    unsigned Parts = 0;
    /// Without a label, it goes on with the part of the stave above it, and is played after that.
    bool GoesOn = false;
    /// Counted from 0. The staves of a system follow each other, and no part has two of them.
    std::size_t System = 0;

    int GetSize() const { return End - First; }
};

/// Which staves of a text belong to which of the parts that it shows one above the other.
struct TextParts {
    /// In the order in which they appear; empty when the text is one part, or when it is not clear which
    /// stave belongs to which.
    std::vector<PartName> Names;
    /// All staves, in text order; empty where there are no names.
    std::vector<PartStave> Staves;

    /// For each line of the text the parts in which it stands, one bit each; all of them for what belongs to
    /// no stave. REQUIRES: there are staves.
    std::vector<unsigned> PartsOfLines(int lineCount) const;
};

/// Parts are told by labels above their staves ("Gtr I", "Bass:"), and staves without label by their number
/// of strings, by their place among the staves that were labelled together, or by the label before them,
/// whichever leaves no doubt. Without labels, staves of six and of four strings that come in pairs are two
/// parts. Costs in proportion to the text.
TextParts FindParts(const Fretline::TabFile& file, const Fretline::TabAnalysis& analysis);

} // namespace TabText
