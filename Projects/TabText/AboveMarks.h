#pragma once

#include "Projects/TabText/Markings.h"

namespace TabText {

/// Appends the marks of the lines above the staves: "P.M.-----|", "let ring---". One covers the notes from
/// the word to the end of the dashes and dots after it. Also those of a line of strokes ("D  D U") or accents
/// alone, each over a note. Lines right below a stave belong to it where a blank line separates them from the
/// next one. What stands over no note, or among other words, is unclear.
void ReadMarksAbove(const TabReading& reading, std::vector<NoteMark>& marks,
                    std::vector<UnclearSign>& unclear);

} // namespace TabText
