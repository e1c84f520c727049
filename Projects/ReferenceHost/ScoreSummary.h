#pragma once

#include "Projects/Score/ScoreModel.h"

#include <string>

namespace ReferenceHost {

/// A short look at a finished score as lines for a person, each ending in a line end: instrument, stave type,
/// bars, notes, whether rhythms were read, chord symbols, section labels with their bars.
std::string SummaryText(const Score::ScoreModel& score);

} // namespace ReferenceHost
