#pragma once

#include <string>
#include <string_view>

/// Escapes of URLs, byte for byte: "%" and two hexadecimal digits.
namespace Nvr {

/// Escapes every byte that the path of a URL cannot hold as it is: blanks, control characters, bytes from 128
/// up, and those with a meaning of their own, such as "%", "#", "?" and backslash. Slashes stay.
std::string EscapeUrlPath(std::string_view path);

/// Undoes the escapes. A "%" without two hexadecimal digits behind it stays as it is.
std::string UnescapeUrl(std::string_view url);

} // namespace Nvr
