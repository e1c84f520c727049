#pragma once

#include "Shared/Utils/NvrString.h"

namespace Fretline {

/// Makes a score of the tab file at `sourcePath`, with the options stored in `configFolder`. `tempPath` gets
/// the path of the score file as soon as it is settled; the caller deletes that file, which may not be there.
/// 1 when a score was made, else 0. Throws what the conversion throws: ConverterCancelled, std::out_of_range
/// for a text without a stave, and what a host function throws. Progress and messages go to the plug-in's
/// output.
int ConvertFile(const Nvr::String& sourcePath, Nvr::String& tempPath, const Nvr::String& configFolder);

} // namespace Fretline
