#include "Shared/Utils/NvrString.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using Nvr::String;

TEST(NvrString, NothingNullAndEmptyShareOneRepresentation) {
    const String none;
    char* const emptyBuffer = new char[1]{'\0'};
    const std::vector<String> empties = {
        String(nullptr),       String(""),      String("abc", 0),           String('x', 0),
        String('x', -3),       String('\0', 3), String("\0b", 2),           String("abc").Mid(3),
        String(" ").Trim(),    String::Empty(), String(std::string_view()), String::Adopt(emptyBuffer),
        String::Adopt(nullptr)};
    for (std::size_t i = 0; i < empties.size(); ++i)
        EXPECT_TRUE(none.SharesTextWith(empties[i])) << "at " << i;
    EXPECT_STREQ(none.CStr(), "");
}

TEST(NvrString, IsMadeUpToTheFirstZero) {
    struct Row {
        String Made;
        const char *Expected, *Why;
    };
    const Row rows[] = {
        {String("abc"), "abc", "up to the zero"},
        {String("abc", 2), "ab", "a length cuts"},
        {String("abc", 10), "abc", "a zero before the length ends the text"},
        {String("abc", -1), "abc", "a negative length means up to the zero"},
        {String("a\0c", 3), "a", "bytes after the first zero are lost"},
        {String(std::string_view("a\0c", 3)), "a", "the same for a view"},
        {String('-', 4), "----", "a character repeated"},
    };
    for (const Row& row : rows) {
        EXPECT_STREQ(row.Made.CStr(), row.Expected) << row.Why;
        EXPECT_EQ(row.Made.Length(), std::strlen(row.Expected)) << row.Why;
    }
}

TEST(NvrString, CopiesShareAndOutliveTheirSource) {
    String copy;
    {
        const String source("shared text");
        copy = source;
        EXPECT_TRUE(copy.SharesTextWith(source));
    }
    const String& itself = copy;
    copy = itself;
    EXPECT_STREQ(copy.CStr(), "shared text");
}

TEST(NvrString, HashFollowsItsDefinition) {
    const struct {
        const char* Text;
        std::uint32_t Hash;
    } rows[] = {{"", 1U}, {"a", 98U}, {"Items", 70973345U}, {"\xE9 is negative", 380576949U}};
    for (const auto& row : rows)
        EXPECT_EQ(String(row.Text).Hash(), row.Hash) << row.Text;
    // A sum that wraps to -1 gives the hash 0, which is the mark of "not computed": it is computed again.
    const String wraps("\xFF");
    EXPECT_EQ(wraps.Hash(), 0U);
    EXPECT_TRUE(wraps == String("\xFF"));
    EXPECT_FALSE(wraps == String("\x01"));
}

TEST(NvrString, EqualityLooksAtTheBytes) {
    // "Aa" and "BB" have the same length and the same hash.
    EXPECT_EQ(String("Aa").Hash(), String("BB").Hash());
    EXPECT_FALSE(String("Aa") == String("BB"));
    EXPECT_FALSE(String("e").EqualsIgnoreCase("\xE9")) << "an accent is no case";
    EXPECT_TRUE(String("Tr\xC9").EqualsIgnoreCase("tR\xE9"));
}

TEST(NvrString, OrdersAsADictionaryDoes) {
    const char* const ordered[] = {"",  "-", "10",   "9",    "a",       "A",       "ab",    "\xE4\x62",
                                   "b", "B", "cote", "Cote", "cot\xE9", "c\xF4te", "coted", "z"};
    for (std::size_t i = 0; i < std::size(ordered); ++i) {
        for (std::size_t j = 0; j < std::size(ordered); ++j) {
            const String left(ordered[i]), right(ordered[j]);
            EXPECT_EQ(left < right, i < j) << ordered[i] << " " << ordered[j];
            EXPECT_EQ(left >= right, i >= j) << ordered[i] << " " << ordered[j];
            EXPECT_EQ(left > right, i > j) << ordered[i] << " " << ordered[j];
            EXPECT_EQ(left <= right, i <= j) << ordered[i] << " " << ordered[j];
        }
    }
}

TEST(NvrString, SearchesGiveAnIndexOrMinusOne) {
    const String text("ab ab\tc");
    const struct {
        int Result, Expected;
        const char* Why;
    } rows[] = {
        {text.Find(1, "ab"), 3, "from a start on"},
        {text.Find(4, "ab"), -1, "after the last"},
        {text.Find(7, ""), -1, "a start at the end finds nothing at all"},
        {text.Find(-1, "ab"), -1, "a start before the text"},
        {text.FindChar(99, 'a'), -1, "a start past the end"},
        {text.FindLastChar('a'), 3, "the last one"},
        {text.FindSpace(3), 5, "a tab is a space"},
        {text.FindSpace(7), -1, "at the end"},
        {String("  ").FindNonSpace(0), -1, "nothing but blanks"},
        {text.LastNonSpace(5), 4, "before a tab"},
        {text.LastNonSpace(99), 6, "from past the end"},
        {text.LastNonSpace(-1), -1, "from before the text"},
        {String("  a").LastNonSpace(1), -1, "blanks up to the start"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Result, row.Expected) << row.Why;
    const struct {
        bool Result, Expected;
        const char* Why;
    } tests[] = {
        {text.MatchesAt(3, 2, "ab"), true, "the same bytes"},
        {text.MatchesAt(3, 2, "abc"), false, "the other is longer"},
        {text.MatchesAtIgnoreCase(3, 2, "ABC"), true, "here its start is enough"},
        {text.MatchesAtIgnoreCase(3, 2, "aB"), true, "no more than its start"},
        {text.MatchesAtIgnoreCase(3, 3, "AB"), false, "but it has to have one"},
        {text.MatchesAtIgnoreCase(6, 2, "c"), false, "past the end"},
        {text.MatchesAt(-1, 1, "a"), false, "before the start"},
        {text.MatchesAt(7, 0, ""), true, "nothing at the end"},
        {String("09").IsDigits() && String().IsDigits(), true, "digits, or nothing at all"},
        {String("0x").IsDigits(), false, "a letter"},
        {String("0x\xE9").IsAlphanumeric(), true, "letters of the code page"},
        {String("0 x").IsAlphanumeric(), false, "a blank"},
    };
    for (const auto& test : tests)
        EXPECT_EQ(test.Result, test.Expected) << test.Why;
    EXPECT_EQ(String(" -12x").ToInt() + String("30").ToLong(), 18);
    EXPECT_EQ(String("0x1.8p1").ToFloat(), 3.0F);
    EXPECT_EQ(String("1012").FromBinaryDigits(), 5U) << "the leading run";
    EXPECT_EQ(text.CharAt(8), '\0');
    EXPECT_EQ(text.CharAt(-1), '\0');
}
