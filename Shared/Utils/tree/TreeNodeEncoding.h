#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Stored UTF-16 and the system code page, in which strings are held.
namespace Nvr {

/// A code unit from its two bytes, the more significant one first.
constexpr char16_t UnitFromBytes(std::uint8_t high, std::uint8_t low) {
    return static_cast<char16_t>(high << 8 | low);
}

/// True for a byte that every code page holds as the code unit of the same number, and that no form of a tree
/// leaves out: ASCII but for the carriage return. Text of such bytes alone needs no conversion.
constexpr bool IsPlainByte(std::uint8_t byte) {
    constexpr std::uint8_t kFirstBeyondAscii = 0x80;
    return byte < kFirstBeyondAscii && byte != '\r';
}

/// Replaces `text` by the units in the system code page; keeps its capacity. Raises an Exception when the
/// platform cannot convert, which nothing can go on from.
void ConvertFromUtf16(std::u16string_view units, std::string& text);

/// Replaces `units` by `text`, which is in the Macintosh code page for the encoding 1 and in that of the
/// system for any other. A page that the platform does not know is replaced by the system's.
void ConvertToUtf16(int encoding, std::string_view text, std::u16string& units);

} // namespace Nvr
