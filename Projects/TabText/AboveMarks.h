#pragma once

#include "Projects/TabText/Markings.h"

namespace TabText {

/// Appends the marks of the lines above the staves: "P.M.-----|", "let ring---". One covers the notes from
/// the word to the end of the dashes and dots after it. Also those of a line of strokes ("D  D U") or accents
/// alone, above a stave or right below it, each over a note.
void ReadMarksAbove(const TabReading& reading, std::vector<NoteMark>& marks);

} // namespace TabText
