#pragma once

#include "Projects/Fretline/text/TabFile.h"

#include <string>

namespace Fretline {

/// The analysis of a text once more, step by step and cell by cell, with no thought for its cost: every
/// column is walked to the length of the longest line, and every question is answered by going through all
/// there is. The real analysis is measured by it.
///
/// Gives what it finds as text, a line each: messages ("message 101 2 3": id and line numbers), time
/// signatures, labels, each stave with its barlines and bars, and for each line of the file a picture of what
/// lies there. Bars of no width to the right of all others are left out.
std::string AnalysePlainly(const TabFile& file);

} // namespace Fretline
