#pragma once

#include "Projects/Score/ScoreParts.h"
#include "Projects/TabText/Doubts.h"

#include <span>
#include <string>
#include <vector>

namespace ReferenceHost {

/// One line of a summary: a name and what is said of it.
std::string SummaryLine(const std::string& name, const std::string& text);

/// A short look at a finished score as lines for a person, each ending in a line end: instrument, tuning,
/// bars, notes struck, whether rhythms were read, chord symbols, section labels with their bars.
std::string SummaryText(const Score::ScoreModel& score);

/// The parts that sound together in the exports; nothing for one part.
std::string PartsSummary(Score::ScoreParts parts);

/// The messages of the plug-in, those of one kind counted on one line.
std::string MessageSummary(const std::vector<std::string>& messages);

/// How many things are doubtful, and the first of them; with `isFull` all of them, each with what to try.
std::string DoubtSummary(std::span<const TabText::Doubt> doubts, bool isFull);

} // namespace ReferenceHost
