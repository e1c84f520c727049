#include "Shared/Utils/platform/TextServices.h"

#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Nvr::Platform {

namespace {

constexpr std::size_t kBytes = 256;

constexpr unsigned char ToByte(char c) {
    return static_cast<unsigned char>(c);
}

using ByteTable = std::array<char, kBytes>;

struct LetterPair {
    unsigned char Upper;
    unsigned char Lower;
};

// S, OE and Z with their marks, and Y with diaeresis, whose small letters lie elsewhere than 20 further on.
constexpr std::array<LetterPair, 4> kScatteredPairs = {
    {{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}}};

// Bytes C0 to DE are capitals with the small letter 20 further on, but for the multiplication sign and, in
// the place of its small letter, the division sign.
constexpr unsigned kFirstAccentedCapital = 0xC0;
constexpr unsigned kLastAccentedCapital = 0xDE;
constexpr unsigned kMultiplicationSign = 0xD7;
constexpr unsigned kDistanceToSmallLetter = 0x20;

constexpr ByteTable MakeLowerTable() {
    ByteTable table{};
    for (unsigned byte = 0; byte < kBytes; ++byte) {
        const bool isAccented =
            byte >= kFirstAccentedCapital && byte <= kLastAccentedCapital && byte != kMultiplicationSign;
        table[byte] = isAccented ? static_cast<char>(byte + kDistanceToSmallLetter)
                                 : Ascii::ToLower(static_cast<char>(byte));
    }
    for (const LetterPair& pair : kScatteredPairs)
        table[pair.Upper] = static_cast<char>(pair.Lower);
    return table;
}

constexpr ByteTable kLower = MakeLowerTable();

constexpr ByteTable MakeUpperTable() {
    ByteTable table{};
    for (unsigned byte = 0; byte < kBytes; ++byte)
        table[byte] = static_cast<char>(byte);
    for (unsigned byte = 0; byte < kBytes; ++byte) {
        if (ToByte(kLower[byte]) != byte)
            table[ToByte(kLower[byte])] = static_cast<char>(byte);
    }
    return table;
}

constexpr ByteTable kUpper = MakeUpperTable();

// Letters without a capital in the code page: florin, the circumflex that modifies others, feminine and
// masculine ordinal, micro, sharp s.
constexpr std::array<unsigned char, 6> kUncasedLetters = {0x83, 0x88, 0xAA, 0xB5, 0xBA, 0xDF};

constexpr unsigned char kNoBreakSpace = 0xA0;

constexpr bool IsLetterByte(unsigned byte) {
    const char c = static_cast<char>(byte);
    return kLower[byte] != c || kUpper[byte] != c ||
           std::find(kUncasedLetters.begin(), kUncasedLetters.end(), byte) != kUncasedLetters.end();
}

// The small letters without their accents, in the order of the bytes from E0 on; 0 for the division sign.
constexpr std::string_view kBasesFromE0("aaaaaaaceeeeiiiidnooooo\0ouuuuyty", 32);

constexpr char BaseLetter(char lower) {
    constexpr unsigned kFirst = 0xE0;
    constexpr std::array<std::array<unsigned char, 2>, 6> kOthers = {
        {{0x9A, 's'}, {0x9C, 'o'}, {0x9E, 'z'}, {0x83, 'f'}, {0xDF, 's'}, {0xB5, 'm'}}};
    const unsigned byte = ToByte(lower);
    if (byte >= kFirst)
        return kBasesFromE0[byte - kFirst];
    for (const auto& [letter, base] : kOthers) {
        if (letter == byte)
            return static_cast<char>(base);
    }
    return lower;
}

using WeightTable = std::array<std::uint16_t, kBytes>;

// The order by base letter: what is no letter or digit by its number, then digits, then letters.
constexpr WeightTable MakePrimaryWeights() {
    constexpr std::uint16_t kDigits = 0x100;
    constexpr std::uint16_t kLetters = 0x200;
    WeightTable weights{};
    for (unsigned byte = 0; byte < kBytes; ++byte) {
        const char c = static_cast<char>(byte);
        const char base = IsLetterByte(byte) ? BaseLetter(kLower[byte]) : c;
        const unsigned group = Ascii::IsDigit(c) ? kDigits : IsLetterByte(byte) ? kLetters : 0U;
        weights[byte] = static_cast<std::uint16_t>(group + ToByte(base));
    }
    return weights;
}

constexpr WeightTable kPrimaryWeights = MakePrimaryWeights();

// Orders by the weights of the bytes; a text comes before its own continuation.
template <class Weight>
int CompareBy(std::string_view left, std::string_view right, Weight weight) {
    const std::size_t shared = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const int difference = int{weight(left[i])} - int{weight(right[i])};
        if (difference != 0)
            return difference;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

} // namespace

int CollateIgnoringCase(std::string_view left, std::string_view right) {
    const int byBase = CompareBy(left, right, [](char c) { return kPrimaryWeights[ToByte(c)]; });
    return byBase != 0 ? byBase : CompareBy(left, right, [](char c) { return ToByte(kLower[ToByte(c)]); });
}

int Collate(std::string_view left, std::string_view right) {
    const int withoutCase = CollateIgnoringCase(left, right);
    if (withoutCase != 0)
        return withoutCase;
    // Small letters come first.
    return CompareBy(left, right, [](char c) { return kLower[ToByte(c)] == c ? 0 : 1; });
}

char ToUpper(char byte) {
    return kUpper[ToByte(byte)];
}

char ToLower(char byte) {
    return kLower[ToByte(byte)];
}

bool IsDigit(char byte) {
    return Ascii::IsDigit(byte);
}

bool IsLetter(char byte) {
    return IsLetterByte(ToByte(byte));
}

bool IsAlphanumeric(char byte) {
    return IsDigit(byte) || IsLetter(byte);
}

bool IsSpace(char byte) {
    return Ascii::IsSpace(byte) || ToByte(byte) == kNoBreakSpace;
}

} // namespace Nvr::Platform
