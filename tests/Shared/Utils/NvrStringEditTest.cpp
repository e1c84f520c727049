#include "Shared/Utils/NvrString.h"

#include <clocale>
#include <gtest/gtest.h>
#include <limits>
#include <string>

using Nvr::String;

namespace {

struct EditRow {
    String Result;
    const char* Expected;
    const char* Why;
};

void ExpectEdits(std::initializer_list<EditRow> rows) {
    for (const EditRow& row : rows)
        EXPECT_STREQ(row.Result.CStr(), row.Expected) << row.Why;
}

} // namespace

TEST(NvrStringEdit, Joins) {
    String text("ab");
    text += "cd";
    text += String("ef");
    text += 'g';
    text += static_cast<const char*>(nullptr);
    text += '\0';
    text += text;
    ExpectEdits({
        {text, "abcdefgabcdefg", "each form appends, and a string to itself"},
        {String("a") + "b" + 'c' + String("d"), "abcd", "each form of plus"},
        {"a" + String("b"), "ab", "text in front"},
        {static_cast<const char*>(nullptr) + String("b"), "b", "nothing in front"},
        {String() + String(), "", "nothing at all"},
    });
    String itself("xyz");
    itself += itself.CStr() + 1;
    EXPECT_STREQ(itself.CStr(), "xyzyz");
}

TEST(NvrStringEdit, MidIsClipped) {
    const String text("abcde");
    ExpectEdits({
        {text.Mid(3, 100), "de", "clipped to the end"},
        {text.Mid(5, 1), "", "at the end"},
        {text.Mid(6), "", "past the end"},
        {text.Mid(-1, 2), "", "before the start"},
        {text.Mid(1, 0), "", "nothing asked for"},
        {text.Mid(1, -1), "", "less than nothing asked for"},
        {text.Mid(1, 3), "bcd", "from the middle"},
        {text.Mid(2), "cde", "to the end"},
    });
    EXPECT_TRUE(text.Mid(0).SharesTextWith(text));
}

TEST(NvrStringEdit, MakesNewTextsAndKeepsTheOld) {
    const String text(" a b\r\nA ");
    ExpectEdits({
        {text.Trim(), "a b\r\nA", "white space at both ends"},
        {String("\xA0x\xA0").Trim(), "x", "the no-break space is white"},
        {text.RemoveSpaces(), "abA", "white space everywhere"},
        {String(" \t ").RemoveSpaces(), "", "nothing else there"},
        {text.RemoveChar('a'), "  b\r\nA ", "one letter, in one case"},
        {text.RemoveCRs(), " a b\nA ", "the line feed stays"},
        {text.ReplaceChar(' ', '_'), "_a_b\r\nA_", "each one"},
        {String("a.b").ReplaceChar('.', '\0'), "a", "a zero ends the text"},
        {String("a\xE9\xDF\xFF").ToUpper(), "A\xC9\xDF\x9F", "the code page's letters"},
        {String("A\xC9\xD7\x8A").ToLower(), "a\xE9\xD7\x9A", "the multiplication sign is no letter"},
        {text, " a b\r\nA ", "the text itself never changes"},
    });
}

TEST(NvrStringEdit, WhatChangesNothingSharesTheRepresentation) {
    const String text("abc");
    EXPECT_TRUE(text.RemoveChar('x').SharesTextWith(text));
    EXPECT_TRUE(text.RemoveCRs().SharesTextWith(text));
    EXPECT_TRUE(text.ReplaceChar('x', 'y').SharesTextWith(text));
    EXPECT_TRUE(text.ReplaceAll("x", "y").SharesTextWith(text));
    EXPECT_TRUE((text + String()).SharesTextWith(text));
    EXPECT_TRUE((String() + text).SharesTextWith(text));
}

TEST(NvrStringEdit, ReplaceAllGoesLeftToRight) {
    ExpectEdits({
        {String("aaa").ReplaceAll("aa", "b"), "ba", "occurrences do not overlap"},
        {String("abab").ReplaceAll("ab", "abab"), "abababab", "what was put in is not looked at again"},
        {String("xax").ReplaceAll("x", ""), "a", "shorter"},
        {String("xx").ReplaceAll("x", ""), "", "nothing left"},
        {String("a%1b%1").ReplaceAll("%1", "long text"), "along textblong text", "longer"},
        {String("abc").ReplaceAll("", "x"), "abc", "nothing to look for"},
        {String("abc").ReplaceAll("abc", "abc"), "abc", "the same again"},
    });
}

TEST(NvrStringEdit, ReadsNumbers) {
    EXPECT_EQ(String(" \t-12x").ToInt(), -12);
    EXPECT_EQ(String("x").ToInt(), 0);
    EXPECT_EQ(String("+7").ToLong(), 7L);
    EXPECT_EQ(String("99999999999").ToInt(), std::numeric_limits<int>::max());
    EXPECT_FLOAT_EQ(String(" 1.5e2mm").ToFloat(), 150.0F);
    EXPECT_EQ(String("1012").FromBinaryDigits(), 5U);
    EXPECT_EQ(String("x1").FromBinaryDigits(), 0U);
}

TEST(NvrStringEdit, WritesNumbers) {
    ExpectEdits({
        {String::FromInt(std::numeric_limits<std::int32_t>::min()), "-2147483648", "the lowest"},
        {String::FromUnsigned(4294967295U), "4294967295", "the highest"},
        {String::FromInt64(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808", "64 bits"},
        {String::FromUnsigned64(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615",
         "64 bits"},
        {String::FromBool(true), "1", "true"},
        {String::FromBool(false), "0", "false"},
        {String::FromFloat(1.5), "1.500000", "six decimals"},
        {String::FromFloat(1.5, 3, true), "1.5", "zeros are cut"},
        {String::FromFloat(2.0, 3, true), "2", "and a bare point"},
        {String::FromFloat(2.0, 3, false), "2.000", "only when asked for"},
        {String::FromFloat(100.0, 0, true), "100", "zeros before the point stay"},
        {String::FromFloat(-0.5, -1, true), "-0.5", "six decimals, cut"},
    });
}

TEST(NvrStringEdit, NumbersDoNotDependOnTheLocale) {
    // Where the locale is not installed, this sets nothing and the test says the same as the one above.
    const char* const given = std::setlocale(LC_ALL, "de_DE.UTF-8");
    const std::string withPoint = String::FromFloat(1.5, 2).CStr();
    const float read = String("2.25").ToFloat();
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(withPoint, "1.50") << (given != nullptr ? given : "no locale");
    EXPECT_FLOAT_EQ(read, 2.25F);
}
