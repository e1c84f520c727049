#pragma once

#include "Projects/Score/Notation.h"
#include "Projects/Score/ScoreModel.h"

#include <string>

namespace Score {

/// The chord symbols of one bar in LilyPond's chord mode: skips, and chords that last until the next. What it
/// can say is said ("c1:m7"); any other symbol stands as its text over its root (\named "Cadd9" c1), by the
/// function of LilyPondChordNaming. `length` is that of the bar.
std::string LilyPondChords(const ModelBar& bar, const WrittenBar& written, int length);

/// The definition of \named.
const char* LilyPondChordNaming();

} // namespace Score
