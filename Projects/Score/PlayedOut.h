#pragma once

#include "Projects/Score/ScoreModel.h"

namespace Score {

/// The score with its repeats and its jump written out: each repeated stretch as often as it is played, from
/// the last start before its end, or from the bar after the last end, or from the first bar; endings at their
/// times. After the jump nothing is repeated, and last endings are played. Empty for a score without any of
/// it, and for one that would grow beyond a hundred thousand bars.
std::optional<ScoreModel> PlayedOut(const ScoreModel& score);

} // namespace Score
