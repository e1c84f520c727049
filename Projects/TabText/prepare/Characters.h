#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Characters that are not ASCII, and what a tab can say in their place.
namespace TabText {

/// The text in UTF-8 when it is UTF-16 (marked as such, or with every other byte 0); else empty. A character
/// of value 0 becomes a blank.
std::string FromUtf16(std::string_view text);

/// The text in ASCII: dashes, strokes, quotes, blanks and letters as those that look like them, anything else
/// as "?". UTF-8 is read where it is valid; any other byte is one of Windows, or of DOS where the text draws
/// with lines of DOS. Each character keeps its width: marks over a letter have none, wide ones give two
/// characters. Bytes of ASCII stay.
std::string ToAscii(std::string_view text);

} // namespace TabText
