#pragma once

#include "Shared/Utils/NvrString.h"

namespace Fretline {

/// Makes a score of the tab file at `sourcePath`, with the options stored in `configFolder`. `tempPath` gets
/// the path of the score file as soon as that is made: empty then, for the user alone, under a name that
/// nobody could predict or take before. The caller deletes it. An empty path when no file could be made; the
/// conversion runs all the same, and its score is lost.
///
/// 1 when a score was made, else 0. Throws what the conversion throws: ConverterCancelled, std::out_of_range
/// for a text without a stave, and what a host function throws. Progress and messages go to the plug-in's
/// output.
int ConvertFile(const Nvr::String& sourcePath, Nvr::String& tempPath, const Nvr::String& configFolder);

} // namespace Fretline
