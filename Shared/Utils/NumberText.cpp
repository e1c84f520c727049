#include "Shared/Utils/NumberText.h"

#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/platform/DecimalNumbers.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <system_error>

namespace Nvr {

namespace {

constexpr int kDecimalsOfPercentF = 6;
constexpr std::size_t kHexadecimalPrefixLength = 2;
// Digits before the point of the largest double, a sign, the point and a little room.
constexpr std::size_t kRoomForWholePart = std::numeric_limits<double>::max_exponent10 + 8;

template <class Number>
std::size_t WriteInteger(Number value, char* first, char* last) {
    char* const end = std::to_chars(first, last - 1, value).ptr;
    *end = '\0';
    return static_cast<std::size_t>(end - first);
}

struct SignedText {
    std::string_view Magnitude;
    bool IsNegative = false;
};

SignedText SkipSpaceAndSign(std::string_view text) {
    text.remove_prefix(
        static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), Ascii::IsSpace) - text.begin()));
    if (text.empty() || (text.front() != '-' && text.front() != '+'))
        return {text, false};
    return {text.substr(1), text.front() == '-'};
}

template <class Number>
Number ParseWhole(std::string_view text) {
    using Limits = std::numeric_limits<Number>;
    const auto [magnitude, isNegative] = SkipSpaceAndSign(text);
    if (magnitude.empty() || !Ascii::IsDigit(magnitude.front()))
        return 0;
    // The magnitude of the lowest number is one larger than that of the highest.
    unsigned long long value = 0;
    const auto result = std::from_chars(magnitude.data(), magnitude.data() + magnitude.size(), value);
    const auto limit = static_cast<unsigned long long>(Limits::max()) + (isNegative ? 1U : 0U);
    if (result.ec == std::errc::result_out_of_range || value >= limit)
        return isNegative ? Limits::min() : Limits::max();
    const auto number = static_cast<Number>(value);
    return isNegative ? static_cast<Number>(-number) : number;
}

bool StartsWithHexadecimal(std::string_view text) {
    return text.size() > kHexadecimalPrefixLength && text[0] == '0' && Ascii::ToLower(text[1]) == 'x';
}

// The platform gives the same answer for "too large" and "too small". The power of ten of the first digit
// other than 0, with the exponent added, tells which it is.
bool IsTooLarge(std::string_view digits) {
    long long power = -1;
    bool seenPoint = false;
    bool seenDigit = false;
    std::size_t at = 0;
    for (; at < digits.size() && (Ascii::IsDigit(digits[at]) || (digits[at] == '.' && !seenPoint)); ++at) {
        if (digits[at] == '.') {
            seenPoint = true;
            continue;
        }
        seenDigit = seenDigit || digits[at] != '0';
        if (!seenPoint && seenDigit)
            ++power;
        else if (seenPoint && !seenDigit)
            --power;
    }
    if (at < digits.size() && Ascii::ToLower(digits[at]) == 'e')
        power += ParseInt(digits.substr(at + 1));
    return power > 0;
}

// A number Mantissa * 2^Exponent. The lowest bit of a mantissa of more than 60 bits stands for all that
// follow: it is set when any of them is.
struct BinaryNumber {
    std::uint64_t Mantissa = 0;
    long long Exponent = 0;
};

// Digits with an optional point and exponent; 0 when there are none.
BinaryNumber ReadHexadecimal(std::string_view digits) {
    constexpr std::uint64_t kFull = std::uint64_t{1} << 60U;
    constexpr int kBitsOfDigit = 4;
    BinaryNumber number;
    bool seenPoint = false;
    std::size_t at = 0;
    for (; at < digits.size() && (Ascii::HexValue(digits[at]) >= 0 || (digits[at] == '.' && !seenPoint));
         ++at) {
        if (digits[at] == '.') {
            seenPoint = true;
            continue;
        }
        const auto digit = static_cast<unsigned>(Ascii::HexValue(digits[at]));
        const bool isFull = number.Mantissa >= kFull;
        number.Mantissa = isFull ? number.Mantissa | (digit != 0 ? 1U : 0U) : number.Mantissa * 16 + digit;
        number.Exponent += (isFull ? kBitsOfDigit : 0) - (seenPoint ? kBitsOfDigit : 0);
    }
    if (at < digits.size() && Ascii::ToLower(digits[at]) == 'p')
        number.Exponent += ParseInt(digits.substr(at + 1));
    return number;
}

// Rounds to the nearest double, and to an even one between two.
double ToDouble(const BinaryNumber& number) {
    using Limits = std::numeric_limits<double>;
    constexpr long long kLowestExponent = Limits::min_exponent - Limits::digits;
    const auto bits = static_cast<int>(std::bit_width(number.Mantissa));
    if (bits == 0 || number.Exponent + bits < kLowestExponent)
        return 0;
    if (number.Exponent + bits > Limits::max_exponent)
        return Limits::infinity();
    const auto dropped =
        std::max({0LL, static_cast<long long>(bits - Limits::digits), kLowestExponent - number.Exponent});
    // All 64 bits may go, so one more than fits is shifted in two steps.
    const std::uint64_t half = dropped == 0 ? 0 : std::uint64_t{1} << (dropped - 1);
    const std::uint64_t rest = half == 0 ? 0 : number.Mantissa & (half * 2 - 1);
    std::uint64_t kept = dropped == 0 ? number.Mantissa : number.Mantissa >> (dropped - 1) >> 1U;
    if (rest > half || (half != 0 && rest == half && kept % 2 == 1))
        ++kept;
    return std::ldexp(static_cast<double>(kept), static_cast<int>(number.Exponent + dropped));
}

std::optional<double> ParseMagnitude(std::string_view text) {
    if (StartsWithHexadecimal(text))
        return ToDouble(ReadHexadecimal(text.substr(kHexadecimalPrefixLength)));
    // A second sign is no number, though the platform would take it.
    if (text.empty() || text.front() == '-')
        return std::nullopt;
    double value = 0;
    switch (Platform::ReadDecimal(text, value)) {
    case Platform::DecimalResult::Number:
        return value;
    case Platform::DecimalResult::OutOfRange:
        return IsTooLarge(text) ? std::numeric_limits<double>::infinity() : 0;
    default:
        return std::nullopt;
    }
}

} // namespace

IntegerText::IntegerText(long long value) : m_Text{} {
    m_Length = WriteInteger(value, m_Text.data(), m_Text.data() + m_Text.size());
}

IntegerText::IntegerText(unsigned long long value) : m_Text{} {
    m_Length = WriteInteger(value, m_Text.data(), m_Text.data() + m_Text.size());
}

std::string FormatFixed(double value, int decimals) {
    const int places = decimals < 0 ? kDecimalsOfPercentF : decimals;
    std::string text(kRoomForWholePart + static_cast<std::size_t>(places), '\0');
    text.resize(Platform::WriteFixed(value, places, text));
    return text;
}

int ParseInt(std::string_view text) {
    return ParseWhole<int>(text);
}

long ParseLong(std::string_view text) {
    return ParseWhole<long>(text);
}

double ParseDouble(std::string_view text) {
    const auto [magnitude, isNegative] = SkipSpaceAndSign(text);
    const auto value = ParseMagnitude(magnitude);
    if (!value)
        return 0;
    return isNegative ? -*value : *value;
}

float ParseFloat(std::string_view text) {
    return static_cast<float>(ParseDouble(text));
}

} // namespace Nvr
