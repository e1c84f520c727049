#include "Shared/Utils/NvrString.h"

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
    text += 'e';
    text += static_cast<const char*>(nullptr);
    text += '\0';
    text += text;
    ExpectEdits({
        {text, "abcdeabcde", "each form appends, and a string to itself"},
        {String("a") + "b" + 'c' + String("d"), "abcd", "each form of plus"},
        {static_cast<const char*>(nullptr) + String("b"), "b", "nothing in front"},
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
        {text.Mid(1, -1), "", "less than nothing asked for"},
    });
    EXPECT_TRUE(text.Mid(0).SharesTextWith(text));
}

TEST(NvrStringEdit, MakesNewTextsAndKeepsTheOld) {
    const String text(" a b\r\nA ");
    ExpectEdits({
        {text.Trim(), "a b\r\nA", "white space at both ends"},
        {String("\xA0x\xA0").Trim(), "x", "the no-break space is white"},
        {text.RemoveCRs(), " a b\nA ", "the line feed stays"},
        {text.ReplaceChar(' ', '_'), "_a_b\r\nA_", "each one"},
        {text.RemoveSpaces(), "abA", "none left"},
        {String("aba").RemoveChar('a'), "b", "wherever it stands"},
        {String("a.b").ReplaceChar('.', '\0'), "a", "a zero ends the text"},
        {String("a\xE9\xDF\xFF").ToUpper(), "A\xC9\xDF\x9F", "the code page's letters"},
        {String("A\xC9\xD7\x8A").ToLower(), "a\xE9\xD7\x9A", "the multiplication sign is no letter"},
        {text, " a b\r\nA ", "the text itself never changes"},
    });
}

TEST(NvrStringEdit, WhatChangesNothingSharesTheRepresentation) {
    const String text("abc");
    EXPECT_TRUE(text.RemoveCRs().SharesTextWith(text) && text.RemoveChar('x').SharesTextWith(text));
    EXPECT_TRUE(text.ReplaceChar('x', 'y').SharesTextWith(text));
    EXPECT_TRUE(text.ReplaceAll("x", "y").SharesTextWith(text));
    EXPECT_TRUE((text + String()).SharesTextWith(text));
    EXPECT_TRUE((String() + text).SharesTextWith(text));
}

TEST(NvrStringEdit, ReplaceAllGoesLeftToRight) {
    ExpectEdits({
        {String("aaa").ReplaceAll("aa", "b"), "ba", "occurrences do not overlap"},
        {String("abab").ReplaceAll("ab", "abab"), "abababab", "what was put in is not looked at again"},
        {String("xx").ReplaceAll("x", ""), "", "nothing left"},
        {String("a%1b%1").ReplaceAll("%1", "long text"), "along textblong text", "longer"},
        {String("abc").ReplaceAll("", "x"), "abc", "nothing to look for"},
    });
}

TEST(NvrStringEdit, WritesNumbers) {
    ExpectEdits({
        {String::FromInt(std::numeric_limits<std::int32_t>::min()), "-2147483648", "the lowest"},
        {String::FromInt64(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808", "in 64 bits"},
        {String::FromBool(true) + String::FromBool(false), "10", "yes and no"},
        {String::FromFloat(1.5), "1.500000", "six decimals"},
        {String::FromFloat(1.5, 3, true), "1.5", "zeros are cut"},
        {String::FromFloat(2.0, 3, true), "2", "and a bare point"},
        {String::FromFloat(2.0, 3, false), "2.000", "only when asked for"},
        {String::FromFloat(100.0, 0, true), "100", "zeros before the point stay"},
    });
}
