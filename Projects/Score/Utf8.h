#pragma once

#include <string>
#include <string_view>

namespace Score {

/// Bytes of the score's code page (Windows-1252) as UTF-8; control characters become "?", so that the result
/// can be shown on a terminal and stand in XML.
std::string ToUtf8(std::string_view bytes);

/// `text` with `number` in decimal after it.
std::string Numbered(std::string_view text, long long number);

} // namespace Score
