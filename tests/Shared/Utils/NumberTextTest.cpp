#include "Shared/Utils/NumberText.h"

#include "Shared/Utils/AsciiChars.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

// The C library in the "C" locale, in which the tests run, is what these functions are compared with.

namespace {

template <class Number>
void ExpectSamePrinted(const char* format, Number value) {
    char printed[64];
    std::snprintf(printed, sizeof printed, format, value);
    EXPECT_EQ(Nvr::IntegerText(value).View(), printed);
    EXPECT_STREQ(Nvr::IntegerText(value).CStr(), printed);
}

void ExpectSameFixed(double value, int decimals) {
    std::string printed(400 + static_cast<std::size_t>(decimals), '\0');
    const int length = std::snprintf(printed.data(), printed.size(), "%.*f", decimals, value);
    printed.resize(static_cast<std::size_t>(length));
    EXPECT_EQ(Nvr::FormatFixed(value, decimals), printed);
}

void ExpectSameParsed(const std::string& text) {
    EXPECT_EQ(Nvr::ParseLong(text), std::strtol(text.c_str(), nullptr, 10)) << text;
    char* end = nullptr;
    const double read = std::strtod(text.c_str(), &end);
    // Some libraries give the sign of a number that is none.
    const double expected = end == text.c_str() ? 0 : read;
    const double parsed = Nvr::ParseDouble(text);
    if (std::isnan(expected))
        EXPECT_TRUE(std::isnan(parsed)) << text;
    else
        EXPECT_EQ(parsed, expected) << text;
    EXPECT_EQ(std::signbit(parsed), std::signbit(expected)) << text;
}

} // namespace

TEST(NumberText, WritesWholeNumbersAsPrintf) {
    for (const int value : {0, -7, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        ExpectSamePrinted("%d", value);
    ExpectSamePrinted("%u", std::numeric_limits<unsigned>::max());
    ExpectSamePrinted("%llu", std::numeric_limits<unsigned long long>::max());
    ExpectSamePrinted("%lld", std::numeric_limits<long long>::min());
}

TEST(NumberText, WritesFixedPointAsPrintf) {
    using Limits = std::numeric_limits<double>;
    std::vector<double> values = {-0.0, 0.5, -1.25, 2.5, 0.125, 1e15, 1e-7, 123456.789, 0.1, 1e300};
    for (const double extreme :
         {Limits::max(), Limits::denorm_min(), Limits::infinity(), -Limits::infinity()})
        values.push_back(extreme);
    for (const double value : values) {
        for (const int decimals : {0, 1, 2, 6, 20})
            ExpectSameFixed(value, decimals);
    }
}

TEST(NumberText, ReadsWhatTheCLibraryReads) {
    std::istringstream texts(
        "| |-0|12|-12|+12| \t\r\n\v\f 12|12abc|1 2|abc|-|+|--1|+-1|- 1|1.5|.5|-.5|5.|.|-.|1,5"
        "|9223372036854775807|-9223372036854775808|9223372036854775808|-9223372036854775809|-2147483649"
        "|1e3|1E-3|1e|1e+|1.5e400|-1.5e400|1e-400|-1e-400|0.0000000001e400|100000e-400|0e999999999999"
        "|1e99999999999|1e-99999999999|4.9e-324|2.2250738585072011e-308|1.7976931348623159e308"
        "|0x10|0x|0x1.8p1|0x1p99999|0x1p-99999|inf|-INF|infinity|nan|-nan"
        "|0xinf|-0xg|0x.|0x.p5|0x.8|-0X1.FP|0xap+|0x1.2.3|0x1p1p1|0x0p99999|0x1P+3"
        "|0x1.fffffffffffff7p0|0x1.fffffffffffff8p0|0x1.fffffffffffff80000000000000001p0|0x1.00000000000008p0"
        "|0x1.000000000000080000000000000001p0|0x1.fffffffffffffp1023|0x1.fffffffffffff8p1023|0x1p1024"
        "|0x1p-1074|0x1p-1075|0x1.8p-1075|0x3p-1075|0x1p-1076|0x1.fp-1023"
        "|0xffffffffffffffffp-1138|0xfffffffffffffbff|0xfffffffffffffc00|0x80000000000004000000000000000000");
    for (std::string text; std::getline(texts, text, '|');)
        ExpectSameParsed(text);
    // One library takes this for half of the least number, and so for 0.
    EXPECT_EQ(Nvr::ParseDouble("0x1.00000000000000000001p-1075"), std::numeric_limits<double>::denorm_min());
    const std::string zeros(500, '0');
    for (const std::string& text : {"1." + zeros + "e-400", "1." + zeros + "e400", "0x1" + zeros,
                                    "0x1" + zeros + "p-2000", "0x." + zeros + "1p2004", "0x" + zeros + "1"})
        ExpectSameParsed(text);
}

TEST(NumberText, ReadsIntsToTheirLimits) {
    EXPECT_EQ(Nvr::ParseInt("2147483648"), 2147483647);
    EXPECT_EQ(Nvr::ParseInt("-2147483649"), std::numeric_limits<int>::min());
    EXPECT_EQ(Nvr::ParseFloat("1e39"), std::numeric_limits<float>::infinity());
}

TEST(NumberText, GeneratedNumbersGoThereAndBack) {
    std::mt19937 random(20240229);
    std::uniform_real_distribution<double> mantissas(-10, 10);
    std::uniform_int_distribution<int> exponents(-330, 330);
    for (int i = 0; i < 2000; ++i) {
        const double value = mantissas(random);
        ExpectSameFixed(value * 1000, i % 9);
        ExpectSameParsed(std::to_string(value) + "e" + std::to_string(exponents(random)));
        char hexadecimal[64];
        std::snprintf(hexadecimal, sizeof hexadecimal, "%a%d", value, exponents(random));
        ExpectSameParsed(hexadecimal);
    }
}

TEST(AsciiChars, AreThoseOfTheCLocale) {
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool isAscii = code < 128;
        EXPECT_EQ(Nvr::Ascii::IsDigit(c), isAscii && std::isdigit(code) != 0) << code;
        EXPECT_EQ(Nvr::Ascii::IsAlpha(c), isAscii && std::isalpha(code) != 0) << code;
        EXPECT_EQ(Nvr::Ascii::IsSpace(c), isAscii && std::isspace(code) != 0) << code;
        const std::size_t hexValue = std::string("0123456789abcdef").find(Nvr::Ascii::ToLower(c));
        EXPECT_EQ(Nvr::Ascii::HexValue(c), static_cast<int>(hexValue)) << code;
        EXPECT_EQ(Nvr::Ascii::ToLower(c), static_cast<char>(isAscii ? std::tolower(code) : code)) << code;
        EXPECT_EQ(Nvr::Ascii::ToUpper(c), static_cast<char>(isAscii ? std::toupper(code) : code)) << code;
    }
}
