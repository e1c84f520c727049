#pragma once

#include "Shared/Utils/NvrString.h"

namespace Fretline {

/// True when the file is ours to handle: it has one of the extensions of FileTypeTable, in any case, or none;
/// at least 95 of 100 of its bytes are plain text (printable ASCII, tabs, line ends); and some line has more
/// than ten hyphens. False without opening a file of another extension, and for one that is empty or cannot
/// be read.
bool IsTabFile(const Nvr::String& path);

} // namespace Fretline
