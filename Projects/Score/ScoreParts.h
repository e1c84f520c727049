#pragma once

#include "Projects/Score/ScoreModel.h"

#include <span>

namespace Score {

/// Scores that sound together, each one part, the top one first; a score by itself is one part.
///
/// There is at least one. All have as many bars; bars of one number are equally long, no note reaches over
/// their end, and they have the same time signature, repeats and way. What is said of all parts at a place,
/// labels and tempos, only the top one says; the heading is the top one's, but for the capo.
using ScoreParts = std::span<const ScoreModel>;

/// A score as the one part of itself, as long as it lives.
inline ScoreParts AsParts(const ScoreModel& score) {
    return {&score, 1};
}

} // namespace Score
