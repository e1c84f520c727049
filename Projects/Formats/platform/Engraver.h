#pragma once

#include <string>

namespace Formats {

/// What LilyPond makes of a file of its language. One run of the program `lilypond` (2.24), without a shell,
/// in a temporary folder that goes afterwards; what it prints is kept for a failure.
///
/// `kind` is "pdf", "png" or "svg". The bytes of the picture; empty when there is none, and `why` then says
/// why: the program is missing (with the name of its package), it takes longer than two minutes, or it fails.
std::string Engrave(const std::string& lilyPond, const std::string& kind, std::string& why);

} // namespace Formats
