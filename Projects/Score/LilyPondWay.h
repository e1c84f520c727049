#pragma once

#include "Projects/Score/ScoreModel.h"

#include <string>

namespace Score {

/// Labels and the way through a score in LilyPond's words: repeats, endings, jumps, changes of tempo. Each
/// text is whole lines, indented as the bars are; empty where there is nothing to say.
///
/// Before the notes of a bar.
std::string LilyPondBarStart(const ScoreModel& score, std::size_t bar);
/// After them.
std::string LilyPondBarEnd(const ScoreModel& score, std::size_t bar);

} // namespace Score
