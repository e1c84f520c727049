#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// Numbers as text and back, as the C library does it in the "C" locale, whatever locale the host has set.
namespace Nvr {

/// The decimal text of a whole number, as "%d", "%u", "%ld" and their kin give it. Allocates nothing; the
/// text lives in the object.
class IntegerText {
public:
    explicit IntegerText(int value) : IntegerText(static_cast<long long>(value)) {}
    explicit IntegerText(long value) : IntegerText(static_cast<long long>(value)) {}
    explicit IntegerText(unsigned value) : IntegerText(static_cast<unsigned long long>(value)) {}
    explicit IntegerText(unsigned long value) : IntegerText(static_cast<unsigned long long>(value)) {}
    explicit IntegerText(long long value);
    explicit IntegerText(unsigned long long value);

    const char* CStr() const { return m_Text.data(); }
    std::string_view View() const { return {m_Text.data(), m_Length}; }

private:
    // A sign, the 20 digits of the largest 64-bit number, the zero.
    static constexpr std::size_t kRoom = 22;
    std::array<char, kRoom> m_Text;
    std::size_t m_Length;
};

/// `value` with `decimals` digits after the point, as "%.*f" gives it; a negative `decimals` means six, as
/// in "%f". "inf", "-inf", "nan" and "-nan" for what is no number.
std::string FormatFixed(double value, int decimals = -1);

/// The number that `text` starts with, in base 10: white space, a sign and digits, as strtol and atoi read
/// it. 0 when there is none; the nearest limit of the type for a number that it cannot hold.
int ParseInt(std::string_view text);
long ParseLong(std::string_view text);

/// The number that `text` starts with, as strtod and atof read it: white space, a sign, then digits with an
/// optional point and exponent, or hexadecimal after "0x", or "inf", "infinity", "nan". 0 when there is
/// none; infinity for a number too large, 0 for one too small.
double ParseDouble(std::string_view text);
/// The same, narrowed to a float.
float ParseFloat(std::string_view text);

} // namespace Nvr
