#pragma once

#include <algorithm>
#include <string_view>

/// Tests and casing of single bytes as plain ASCII, whatever the locale of the process. Bytes from 128 up are
/// nothing and stay as they are. Characters of the system code page are the business of
/// Shared/Utils/platform/TextServices.h.
namespace Nvr::Ascii {

constexpr bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

constexpr bool IsUpper(char c) noexcept {
    return c >= 'A' && c <= 'Z';
}

constexpr bool IsLower(char c) noexcept {
    return c >= 'a' && c <= 'z';
}

constexpr bool IsAlpha(char c) noexcept {
    return IsUpper(c) || IsLower(c);
}

constexpr bool IsAlnum(char c) noexcept {
    return IsAlpha(c) || IsDigit(c);
}

/// Space, tab, line feed, vertical tab, form feed and carriage return.
constexpr bool IsSpace(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr char ToLower(char c) noexcept {
    return IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char ToUpper(char c) noexcept {
    return IsLower(c) ? static_cast<char>(c - 'a' + 'A') : c;
}

/// The value of a hexadecimal digit, 0 to 15; -1 for another byte.
constexpr int HexValue(char c) noexcept {
    if (IsDigit(c))
        return c - '0';
    const char lower = ToLower(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// True when `text` begins with `start`, in any case.
constexpr bool StartsWithIgnoreCase(std::string_view text, std::string_view start) noexcept {
    return text.size() >= start.size() && std::equal(start.begin(), start.end(), text.begin(),
                                                     [](char a, char b) { return ToLower(a) == ToLower(b); });
}

} // namespace Nvr::Ascii
