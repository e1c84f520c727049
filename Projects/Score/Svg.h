#pragma once

#include "Projects/Score/ScoreModel.h"

#include <string>

namespace Score {

/// The score as a picture of tab: stave lines, fret numbers placed by time, barlines, chord symbols, labels,
/// and stems where rhythms were read. One SVG page, readable on light and dark paper; its text can be
/// selected and searched, and each bar says to a screen reader what is in it. `title` is UTF-8.
std::string SvgText(const ScoreModel& score, const std::string& title);

} // namespace Score
