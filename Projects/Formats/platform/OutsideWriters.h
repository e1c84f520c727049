#pragma once

#include "Projects/Formats/Formats.h"

/// The writers that lean on something outside of this project that not every platform has: a library for
/// archives, the program LilyPond. One source a platform; null for what it has no way to do, and the table of
/// formats then has no such row.
namespace Formats::Platform {

/// As Format::Write.
using Writer = decltype(Format::Write);

extern const Writer kWriteCompressedMusicXml;
extern const Writer kWritePdf;
extern const Writer kWritePng;
extern const Writer kWriteSvg;

} // namespace Formats::Platform
