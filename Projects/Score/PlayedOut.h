#pragma once

#include "Projects/Score/ScoreModel.h"

namespace Score {

/// The score with its repeats written out: each repeated stretch as often as it is played, from the last
/// start before its end, or from the bar after the last end, or from the first bar. Empty for a score without
/// repeats, and for one that would grow beyond a hundred thousand bars.
std::optional<ScoreModel> PlayedOut(const ScoreModel& score);

} // namespace Score
