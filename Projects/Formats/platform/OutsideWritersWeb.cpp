#include "Projects/Formats/platform/OutsideWriters.h"

namespace Formats::Platform {

// A page runs no programs, and packs no archives for as little as they would save.
constinit const Writer kWriteCompressedMusicXml = nullptr;
constinit const Writer kWritePdf = nullptr;
constinit const Writer kWritePng = nullptr;
constinit const Writer kWriteSvg = nullptr;

} // namespace Formats::Platform
