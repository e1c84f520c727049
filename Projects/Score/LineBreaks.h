#pragma once

#include "Projects/Score/Notation.h"
#include "Projects/Score/ScoreModel.h"

#include <span>
#include <vector>

namespace Score {

/// Where an engraved score breaks its lines because the text does: one entry a bar, true where a line ends
/// after it. Lines of the text that are short go together. All false where a line of the text has more than
/// fits on a page: the engraver then knows better. `parts` are the written bars of the score and of what
/// stands below it.
std::vector<bool> LineBreaks(const ScoreModel& score, std::span<const std::vector<WrittenBar>> parts);

} // namespace Score
