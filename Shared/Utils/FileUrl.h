#pragma once

#include <string>
#include <string_view>

/// What URLs of files are made of. Escapes go byte for byte: "%" and two hexadecimal digits.
namespace Nvr {

/// What a file's URL begins with.
inline constexpr std::string_view kFileScheme = "file://";
/// The name of a computer that may follow it and means this one.
inline constexpr std::string_view kThisComputer = "localhost";

/// Escapes every byte that the path of a URL cannot hold as it is: blanks, control characters, bytes from 128
/// up, and those with a meaning of their own, such as "%", "#", "?" and backslash. Slashes stay.
std::string EscapeUrlPath(std::string_view path);

/// Undoes the escapes. A "%" without two hexadecimal digits after it stays as it is.
std::string UnescapeUrl(std::string_view url);

} // namespace Nvr
