#pragma once

#include "Projects/Score/ModelMarks.h"

namespace TabText {

class TabReading;

/// What the text says of the whole piece: "Tempo: 120", "q=120", "120 bpm", "Capo 2", "swung", "shuffle", and
/// at its head "Title: ..." and "Artist: ...".
Score::ModelHeading ReadHeading(const TabReading& reading);

} // namespace TabText
