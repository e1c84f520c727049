#pragma once

#include "Shared/Utils/tree/TreeNode.h"

#include <string>

namespace TestSupport {

/// What a conversion wrote into a score, as text that a musician can check: one line a bar, one a note.
///
///     stave type stafftype.tab.6.guitar.standard
///     bar 1: 1024 units, flags 7, gap 400, time 3/4, label "Verse 1" (Dy 32)
///       0 +256: 5/0 4/2         position, duration, then string (0 is the lowest) and fret of each note
///       256 +128: rest
///       256 chord "Am"
///
/// Nothing is lost: whatever does not have exactly the usual children is shown whole, child for child.
std::string ScoreText(const Nvr::TreeNode& score);

/// Any node as one line: label, value and children in order.
std::string NodeText(const Nvr::TreeNode& node);

} // namespace TestSupport
