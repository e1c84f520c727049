#include "Shared/Utils/platform/TextServices.h"

#include <algorithm>
#include <array>

namespace Nvr::Platform {

namespace {

constexpr std::size_t kBytes = 256;
constexpr std::size_t kFirstUpperByte = 0x80;

using PageTable = std::array<char16_t, kBytes>;

constexpr unsigned char ToByte(char c) {
    return static_cast<unsigned char>(c);
}

// Bytes 80 to 9F of Windows-1252; all others are the code units of their number.
constexpr std::array<char16_t, 32> kWindows1252From80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// Bytes 80 to FF of Macintosh Roman.
constexpr std::array<char16_t, 128> kMacintoshFrom80 = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1, 0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5,
    0x00E7, 0x00E9, 0x00E8, 0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3, 0x00F2, 0x00F4,
    0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC, 0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6,
    0x00DF, 0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8, 0x221E, 0x00B1, 0x2264, 0x2265,
    0x00A5, 0x00B5, 0x2202, 0x2211, 0x220F, 0x03C0, 0x222B, 0x00AA, 0x00BA, 0x2126, 0x00E6, 0x00F8, 0x00BF,
    0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB, 0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5,
    0x0152, 0x0153, 0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x25CA, 0x00FF, 0x0178, 0x2044,
    0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02, 0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1,
    0x00CB, 0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4, 0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9,
    0x0131, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,
};

template <std::size_t Count>
constexpr PageTable MakePage(const std::array<char16_t, Count>& from80) {
    PageTable page{};
    for (std::size_t byte = 0; byte < kBytes; ++byte)
        page[byte] = static_cast<char16_t>(byte);
    for (std::size_t i = 0; i < Count; ++i)
        page[kFirstUpperByte + i] = from80[i];
    return page;
}

constexpr PageTable kSystemPage = MakePage(kWindows1252From80);
constexpr PageTable kMacintoshPage = MakePage(kMacintoshFrom80);

constexpr char kDoesNotFit = '?';

constexpr char FromUnit(char16_t unit) {
    if (unit < kBytes && kSystemPage[unit] == unit)
        return static_cast<char>(unit);
    for (std::size_t i = 0; i < kWindows1252From80.size(); ++i) {
        if (kWindows1252From80[i] == unit)
            return static_cast<char>(kFirstUpperByte + i);
    }
    return kDoesNotFit;
}

} // namespace

bool ToUtf16(CodePage page, std::string_view text, std::u16string& units) {
    const PageTable& table = page == CodePage::Macintosh ? kMacintoshPage : kSystemPage;
    units.resize(text.size());
    std::transform(text.begin(), text.end(), units.begin(), [&table](char c) { return table[ToByte(c)]; });
    return true;
}

bool FromUtf16(std::u16string_view units, std::string& text) {
    text.resize(units.size());
    std::transform(units.begin(), units.end(), text.begin(), FromUnit);
    return true;
}

std::string ToUtf8(std::string_view text) {
    // The code page holds nothing beyond U+FFFF, and no surrogates.
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        const unsigned unit = kSystemPage[ToByte(c)];
        if (unit < 0x80) {
            result += c;
        } else if (unit < 0x800) {
            result += static_cast<char>(0xC0 | (unit >> 6));
            result += static_cast<char>(0x80 | (unit & 0x3F));
        } else {
            result += static_cast<char>(0xE0 | (unit >> 12));
            result += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
            result += static_cast<char>(0x80 | (unit & 0x3F));
        }
    }
    return result;
}

} // namespace Nvr::Platform
