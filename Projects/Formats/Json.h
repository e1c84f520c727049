#pragma once

#include "Projects/Formats/Conversion.h"

#include <span>
#include <string>
#include <string_view>

namespace Formats {

/// What is in a conversion as one JSON object on one line, without a line end: docs/fretline.schema.json says
/// what stands in it. `files` are those written of it.
std::string JsonText(const Conversion& conversion, std::span<const std::string> files);

/// The like for a file, or a part of it, that gave no score. `part` is empty for the whole.
std::string RefusalJson(std::string_view source, std::string_view part, std::string_view reason);

} // namespace Formats
