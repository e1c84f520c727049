#include "Projects/TabText/prepare/Characters.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using std::string;
using std::string_view;
using CodePoint = char32_t;

struct Range {
    CodePoint First;
    CodePoint Last;
};

struct Likeness {
    Range Of;
    char Ascii;
};

// By code point. What follows from a range of letters is in the strings below.
constexpr std::array kLikenesses = std::to_array<Likeness>({
    {{0x00A0, 0x00A0}, ' '},  {{0x00A6, 0x00A6}, '|'},  {{0x00AA, 0x00AA}, 'a'},  {{0x00AB, 0x00AB}, '"'},
    {{0x00AD, 0x00AD}, '-'},  {{0x00AF, 0x00AF}, '-'},  {{0x00B0, 0x00B0}, 'o'},  {{0x00B2, 0x00B2}, '2'},
    {{0x00B3, 0x00B3}, '3'},  {{0x00B4, 0x00B4}, '\''}, {{0x00B7, 0x00B7}, '.'},  {{0x00B9, 0x00B9}, '1'},
    {{0x00BA, 0x00BA}, 'o'},  {{0x00BB, 0x00BB}, '"'},  {{0x01C0, 0x01C0}, '|'},  {{0x02BC, 0x02BC}, '\''},
    {{0x02C6, 0x02C6}, '^'},  {{0x02D7, 0x02D7}, '-'},  {{0x02DC, 0x02DC}, '~'},  {{0x2000, 0x200A}, ' '},
    {{0x2010, 0x2015}, '-'},  {{0x2016, 0x2016}, '|'},  {{0x2018, 0x201B}, '\''}, {{0x201C, 0x201F}, '"'},
    {{0x2022, 0x2022}, '*'},  {{0x2024, 0x2027}, '.'},  {{0x2028, 0x2029}, ' '},  {{0x202F, 0x202F}, ' '},
    {{0x2032, 0x2032}, '\''}, {{0x2033, 0x2033}, '"'},  {{0x2039, 0x2039}, '<'},  {{0x203A, 0x203A}, '>'},
    {{0x2043, 0x2043}, '-'},  {{0x2044, 0x2044}, '/'},  {{0x205F, 0x205F}, ' '},  {{0x2070, 0x2070}, '0'},
    {{0x2190, 0x2190}, '<'},  {{0x2191, 0x2191}, '^'},  {{0x2192, 0x2192}, '>'},  {{0x2193, 0x2193}, 'v'},
    {{0x2197, 0x2197}, '/'},  {{0x2198, 0x2198}, '\\'}, {{0x219D, 0x219D}, '~'},  {{0x2212, 0x2212}, '-'},
    {{0x2215, 0x2215}, '/'},  {{0x2216, 0x2216}, '\\'}, {{0x2217, 0x2219}, '*'},  {{0x2223, 0x2225}, '|'},
    {{0x223C, 0x223C}, '~'},  {{0x223F, 0x223F}, '~'},  {{0x2307, 0x2307}, '~'},  {{0x23AF, 0x23AF}, '-'},
    {{0x23BA, 0x23BD}, '-'},  {{0x23D0, 0x23D0}, '|'},  {{0x2500, 0x2501}, '-'},  {{0x2502, 0x2503}, '|'},
    {{0x2504, 0x2505}, '-'},  {{0x2506, 0x2507}, '|'},  {{0x2508, 0x2509}, '-'},  {{0x250A, 0x254B}, '|'},
    {{0x254C, 0x254D}, '-'},  {{0x254E, 0x254F}, '|'},  {{0x2550, 0x2550}, '-'},  {{0x2551, 0x2570}, '|'},
    {{0x2571, 0x2571}, '/'},  {{0x2572, 0x2572}, '\\'}, {{0x2573, 0x2573}, 'x'},  {{0x2574, 0x2574}, '-'},
    {{0x2575, 0x2575}, '|'},  {{0x2576, 0x2576}, '-'},  {{0x2577, 0x2577}, '|'},  {{0x2578, 0x2578}, '-'},
    {{0x2579, 0x2579}, '|'},  {{0x257A, 0x257A}, '-'},  {{0x257B, 0x257B}, '|'},  {{0x257C, 0x257C}, '-'},
    {{0x257D, 0x257D}, '|'},  {{0x257E, 0x257E}, '-'},  {{0x257F, 0x257F}, '|'},  {{0x25CB, 0x25CB}, 'o'},
    {{0x25CF, 0x25CF}, '*'},  {{0x266D, 0x266D}, 'b'},  {{0x266F, 0x266F}, '#'},  {{0x2715, 0x2718}, 'x'},
    {{0x2758, 0x275A}, '|'},  {{0x2A2F, 0x2A2F}, 'x'},  {{0x3000, 0x3000}, ' '},  {{0x301C, 0x301C}, '~'},
    {{0x3030, 0x3030}, '~'},  {{0x30FC, 0x30FC}, '-'},  {{0xFE58, 0xFE58}, '-'},  {{0xFE63, 0xFE63}, '-'},
});

constexpr CodePoint kLatin = 0xC0;
constexpr string_view kLatinLetters = "AAAAAAACEEEEIIIIDNOOOOOxOUUUUYTsaaaaaaaceeeeiiiidnooooo/ouuuuyty"
                                      "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiJjJjKkkLlLlLlLlLl"
                                      "NnNnNnnNnOoOoOoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
static_assert(kLatinLetters.size() == 192, "a letter for each from U+00C0 to U+017F");

constexpr CodePoint kSuperscriptFour = 0x2074;
constexpr CodePoint kSuperscriptNine = 0x2079;
constexpr CodePoint kFirstFullWidth = 0xFF01;
constexpr CodePoint kLastFullWidth = 0xFF5E;

constexpr std::array kWithoutWidth = std::to_array<Range>({{0x0300, 0x036F},
                                                           {0x1AB0, 0x1AFF},
                                                           {0x1DC0, 0x1DFF},
                                                           {0x200B, 0x200F},
                                                           {0x202A, 0x202E},
                                                           {0x2060, 0x2064},
                                                           {0x20D0, 0x20FF},
                                                           {0xFE00, 0xFE0F},
                                                           {0xFE20, 0xFE2F},
                                                           {0xFEFF, 0xFEFF}});
constexpr std::array kWide = std::to_array<Range>({{0x1100, 0x115F},
                                                   {0x2E80, 0x303E},
                                                   {0x3041, 0xA4CF},
                                                   {0xAC00, 0xD7A3},
                                                   {0xF900, 0xFAFF},
                                                   {0xFE30, 0xFE6F},
                                                   {0xFF01, 0xFF60},
                                                   {0xFFE0, 0xFFE6},
                                                   {0x1F300, 0x1F64F},
                                                   {0x1F680, 0x1F6FF},
                                                   {0x1F900, 0x1F9FF},
                                                   {0x20000, 0x3FFFD}});

template <std::size_t Size>
bool IsIn(const std::array<Range, Size>& ranges, CodePoint c) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [c](const Range& range) { return c >= range.First && c <= range.Last; });
}

// The bytes from 0x80 on as Windows has them; 0 where it has none.
constexpr std::array<CodePoint, 32> kWindows{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                             0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// The bytes from 0x80 on as DOS has them, in ASCII already: letters, then what boxes are drawn with.
constexpr string_view kDos = "CueaaaaceeeiiiAA"
                             "EaAooouuyOU?????"
                             "aiounNao??????\"\""
                             "???|||||||||||||"
                             "||||-||||||||-||"
                             "|||||||||||?????"
                             "????????????????"
                             "??????????????? ";
constexpr std::size_t kFirstHighByte = 0x80;
static_assert(kDos.size() == kFirstHighByte, "one for each byte from 0x80 on");

char AsciiOf(CodePoint c) {
    if (c >= kFirstFullWidth && c <= kLastFullWidth)
        return static_cast<char>(c - kFirstFullWidth + '!');
    if (c >= kSuperscriptFour && c <= kSuperscriptNine)
        return static_cast<char>(c - kSuperscriptFour + '4');
    if (c >= kLatin && c - kLatin < kLatinLetters.size())
        return kLatinLetters[c - kLatin];
    const auto* like =
        std::lower_bound(kLikenesses.begin(), kLikenesses.end(), c,
                         [](const Likeness& entry, CodePoint value) { return entry.Of.Last < value; });
    return like != kLikenesses.end() && c >= like->Of.First ? like->Ascii : '?';
}

void AppendAscii(CodePoint c, string& text) {
    if (IsIn(kWithoutWidth, c))
        return;
    const char ascii = AsciiOf(c);
    text += ascii;
    if (IsIn(kWide, c))
        text += ascii == '-' || ascii == '?' || ascii == '~' ? ascii : ' ';
}

unsigned char ByteAt(string_view text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

struct Decoded {
    CodePoint Value = 0;
    // 0 when the bytes are no character of UTF-8.
    std::size_t Bytes = 0;
};

Decoded DecodeUtf8(string_view text, std::size_t at) {
    const unsigned lead = ByteAt(text, at);
    const std::size_t bytes = lead >= 0xF0 && lead < 0xF5   ? 4
                              : lead >= 0xE0 && lead < 0xF0 ? 3
                              : lead >= 0xC2 && lead < 0xE0 ? 2
                                                            : 0;
    constexpr std::array<CodePoint, 5> kLeast{0, 0, 0x80, 0x800, 0x10000};
    constexpr std::array<unsigned, 5> kLeadBits{0, 0, 0x1F, 0x0F, 0x07};
    CodePoint value = lead & kLeadBits[bytes];
    for (std::size_t i = 1; i < bytes; ++i) {
        const unsigned next = ByteAt(text, at + i);
        if ((next & 0xC0U) != 0x80U)
            return {};
        value = value << 6U | (next & 0x3FU);
    }
    return {value, value >= kLeast[bytes] ? bytes : 0};
}

// Two lines of a box side by side: no language writes these two letters so.
bool IsDrawnInDos(string_view text) {
    return text.find("\xC4\xC4") != string_view::npos || text.find("\xCD\xCD") != string_view::npos;
}

void AppendUtf8(CodePoint c, string& text) {
    const auto add = [&text](CodePoint byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xC0 | c >> 6U);
        add(0x80 | (c & 0x3FU));
    } else if (c < 0x10000) {
        add(0xE0 | c >> 12U);
        add(0x80 | (c >> 6U & 0x3FU));
        add(0x80 | (c & 0x3FU));
    } else {
        add(0xF0 | c >> 18U);
        add(0x80 | (c >> 12U & 0x3FU));
        add(0x80 | (c >> 6U & 0x3FU));
        add(0x80 | (c & 0x3FU));
    }
}

enum class ByteOrder { None, LowFirst, HighFirst };

ByteOrder OrderOfUtf16(string_view text) {
    if (text.starts_with("\xFF\xFE"))
        return ByteOrder::LowFirst;
    if (text.starts_with("\xFE\xFF"))
        return ByteOrder::HighFirst;
    // Without a mark: plain text has a 0 in every other byte, and nowhere else.
    constexpr std::size_t kFewest = 16;
    std::array<std::size_t, 2> zeros{};
    for (std::size_t at = 0; at < text.size(); ++at)
        zeros[at % 2] += text[at] == '\0' ? 1 : 0;
    const std::size_t units = text.size() / 2;
    if (text.size() < kFewest)
        return ByteOrder::None;
    if (zeros[1] * 10 >= units * 8 && zeros[0] == 0)
        return ByteOrder::LowFirst;
    return zeros[0] * 10 >= units * 8 && zeros[1] == 0 ? ByteOrder::HighFirst : ByteOrder::None;
}

} // namespace

string FromUtf16(string_view text) {
    const ByteOrder order = OrderOfUtf16(text);
    string utf8;
    if (order == ByteOrder::None)
        return utf8;
    const auto unitAt = [&](std::size_t at) {
        const unsigned first = ByteAt(text, at);
        const unsigned second = ByteAt(text, at + 1);
        return static_cast<CodePoint>(order == ByteOrder::LowFirst ? second << 8U | first
                                                                   : first << 8U | second);
    };
    for (std::size_t at = 0; at < text.size(); at += 2) {
        CodePoint c = unitAt(at);
        const CodePoint low = at + 2 < text.size() ? unitAt(at + 2) : 0;
        if (c >= 0xD800 && c < 0xDC00 && low >= 0xDC00 && low < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10U) + (low - 0xDC00);
            at += 2;
        }
        AppendUtf8(c == 0 ? U' ' : c, utf8);
    }
    return utf8;
}

string ToAscii(string_view text) {
    const bool isDos = IsDrawnInDos(text);
    string ascii;
    ascii.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t byte = ByteAt(text, at);
        const Decoded decoded = byte < kFirstHighByte || isDos ? Decoded{} : DecodeUtf8(text, at);
        if (byte < kFirstHighByte)
            ascii += text[at];
        else if (decoded.Bytes > 0)
            AppendAscii(decoded.Value, ascii);
        else if (isDos)
            ascii += kDos[byte - kFirstHighByte];
        else
            AppendAscii(byte - kFirstHighByte < kWindows.size() ? kWindows[byte - kFirstHighByte]
                                                                : static_cast<CodePoint>(byte),
                        ascii);
        at += std::max<std::size_t>(decoded.Bytes, 1);
    }
    return ascii;
}

} // namespace TabText
