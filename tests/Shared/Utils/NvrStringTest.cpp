#include "Shared/Utils/NvrString.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using Nvr::String;

namespace {

std::string ToStd(const String& text) {
    return std::string(text.View());
}

// The hash as it is defined, step by step.
std::uint32_t PlainHash(const std::string& text) {
    std::uint32_t hash = 0;
    for (const char c : text)
        hash = 31 * hash + static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
    return hash + 1;
}

} // namespace

TEST(NvrString, NothingNullAndEmptyShareOneRepresentation) {
    const String none;
    char* const emptyBuffer = new char[1]{'\0'};
    const std::vector<String> empties = {
        String(nullptr),       String(""),      String("abc", 0),           String('x', 0),
        String('x', -3),       String('\0', 3), String("\0b", 2),           String("abc").Mid(3),
        String(" ").Trim(),    String::Empty(), String(std::string_view()), String::Adopt(emptyBuffer),
        String::Adopt(nullptr)};
    for (std::size_t i = 0; i < empties.size(); ++i) {
        EXPECT_TRUE(none.SharesTextWith(empties[i])) << "at " << i;
        EXPECT_EQ(empties[i].Length(), 0U) << "at " << i;
        EXPECT_STREQ(empties[i].CStr(), "") << "at " << i;
    }
    EXPECT_EQ(none.Hash(), 1U);
}

TEST(NvrString, IsMadeUpToTheFirstZero) {
    struct Row {
        String Made;
        const char* Expected;
        const char* Why;
    };
    const Row rows[] = {
        {String("abc"), "abc", "up to the zero"},
        {String("abc", 2), "ab", "a length cuts"},
        {String("abc", 10), "abc", "a zero before the length ends the text"},
        {String("abc", -1), "abc", "a negative length means up to the zero"},
        {String("a\0c", 3), "a", "bytes behind the first zero are lost"},
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
    EXPECT_EQ(ToStd(copy), "shared text");
    const String& itself = copy;
    copy = itself;
    EXPECT_EQ(ToStd(copy), "shared text");
    String moved = std::move(copy);
    EXPECT_EQ(ToStd(moved), "shared text");
    copy = "new";
    EXPECT_EQ(ToStd(copy), "new");
}

TEST(NvrString, AdoptsABufferWithoutCopying) {
    char* const buffer = new char[6]{'a', 'd', 'o', 'p', 't', '\0'};
    const String adopted = String::Adopt(buffer);
    EXPECT_EQ(adopted.CStr(), buffer);
    EXPECT_EQ(adopted.Length(), 5U);
    EXPECT_TRUE(adopted == String("adopt"));
}

TEST(NvrString, HashFollowsItsDefinition) {
    for (const std::string text : {"", "a", "Items", "\xE9\xFF high bytes are negative", "AaBB"})
        EXPECT_EQ(String(text).Hash(), PlainHash(text)) << text;
    // A sum that wraps to -1 gives the hash 0, which is the mark of "not computed": it is computed again.
    const String wraps("\xFF");
    EXPECT_EQ(wraps.Hash(), 0U);
    EXPECT_EQ(wraps.Hash(), 0U);
    EXPECT_TRUE(wraps == String("\xFF"));
    EXPECT_FALSE(wraps == String("\x01"));
}

TEST(NvrString, EqualityLooksAtTheBytes) {
    // "Aa" and "BB" have the same length and the same hash.
    EXPECT_EQ(String("Aa").Hash(), String("BB").Hash());
    EXPECT_FALSE(String("Aa") == String("BB"));
    EXPECT_TRUE(String("Aa") == String("Aa"));
    EXPECT_TRUE(String("Aa") != String("aa"));
    EXPECT_TRUE(String("ab") == "ab");
    EXPECT_TRUE("ab" == String("ab"));
    EXPECT_TRUE(String("ab") != "abc");
    EXPECT_TRUE(String() == static_cast<const char*>(nullptr));
}

TEST(NvrString, OrdersAsADictionaryDoes) {
    const char* const ordered[] = {"", "-", "10", "9", "a", "A", "ab", "\xE4\x62", "b", "B", "z"};
    for (std::size_t i = 0; i < std::size(ordered); ++i) {
        for (std::size_t j = 0; j < std::size(ordered); ++j) {
            const String left(ordered[i]), right(ordered[j]);
            EXPECT_EQ(left < right, i < j) << ordered[i] << " " << ordered[j];
            EXPECT_EQ(left > right, i > j) << ordered[i] << " " << ordered[j];
            EXPECT_EQ(left <= right, i <= j) << ordered[i] << " " << ordered[j];
            EXPECT_EQ(left >= right, i >= j) << ordered[i] << " " << ordered[j];
        }
    }
}

TEST(NvrString, ComparesIgnoringCase) {
    EXPECT_TRUE(String("True").EqualsIgnoreCase("tRUE"));
    EXPECT_TRUE(String("True").EqualsIgnoreCase(String("true")));
    EXPECT_TRUE(String().EqualsIgnoreCase(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(String("True").EqualsIgnoreCase("Tru"));
    EXPECT_FALSE(String("e").EqualsIgnoreCase("\xE9")) << "an accent is no case";
    EXPECT_TRUE(String("\xC9").EqualsIgnoreCase("\xE9"));
}

TEST(NvrString, MatchesAtLooksAtARange) {
    struct Row {
        int Index;
        int Count;
        const char* Other;
        bool Exact;
        bool IgnoringCase;
        const char* Why;
    };
    const Row rows[] = {
        {2, 3, "cde", true, true, "the range is the other text"},
        {2, 3, "cDe", false, true, "it is but for case"},
        {2, 3, "cdef", false, true, "only the start of the other text"},
        {2, 3, "cd", false, false, "the other text is too short"},
        {4, 3, "efg", false, false, "the range runs past the end"},
        {6, 0, "", true, true, "an empty range at the end"},
        {7, 0, "", false, false, "past the end"},
        {-1, 1, "a", false, false, "before the start"},
        {0, -1, "", false, false, "no range"},
        {0, 2147483647, "abcdef", false, false, "the range overflows"},
    };
    const String text("abcdef");
    for (const Row& row : rows) {
        EXPECT_EQ(text.MatchesAt(row.Index, row.Count, row.Other), row.Exact) << row.Why;
        EXPECT_EQ(text.MatchesAtIgnoreCase(row.Index, row.Count, row.Other), row.IgnoringCase) << row.Why;
    }
}

TEST(NvrString, SearchesGiveAnIndexOrMinusOne) {
    const String text("ab ab\tc");
    EXPECT_EQ(text.Find("ab"), 0);
    EXPECT_EQ(text.Find(1, "ab"), 3);
    EXPECT_EQ(text.Find(4, "ab"), -1);
    EXPECT_EQ(text.Find(7, ""), -1) << "a start at the end finds nothing at all";
    EXPECT_EQ(text.Find(-1, "ab"), -1);
    EXPECT_EQ(text.FindChar('b'), 1);
    EXPECT_EQ(text.FindChar(2, 'b'), 4);
    EXPECT_EQ(text.FindChar('x'), -1);
    EXPECT_EQ(text.FindChar(99, 'a'), -1);
    EXPECT_EQ(text.FindLastChar('a'), 3);
    EXPECT_EQ(text.FindLastChar('x'), -1);
    EXPECT_EQ(text.FindSpace(0), 2);
    EXPECT_EQ(text.FindSpace(3), 5);
    EXPECT_EQ(text.FindSpace(6), -1);
    EXPECT_EQ(text.FindSpace(7), -1);
    EXPECT_EQ(text.FindNonSpace(2), 3);
    EXPECT_EQ(String("  ").FindNonSpace(0), -1);
    EXPECT_EQ(text.LastNonSpace(5), 4);
    EXPECT_EQ(text.LastNonSpace(99), 6);
    EXPECT_EQ(text.LastNonSpace(-1), -1);
    EXPECT_EQ(String("  a").LastNonSpace(1), -1);
    EXPECT_EQ(text.CharAt(1), 'b');
    EXPECT_EQ(text.CharAt(7), '\0');
    EXPECT_EQ(text.CharAt(8), '\0');
    EXPECT_EQ(text.CharAt(-1), '\0');
}

TEST(NvrString, TestsLookAtEveryByte) {
    EXPECT_TRUE(String().IsDigits());
    EXPECT_TRUE(String("0123456789").IsDigits());
    EXPECT_FALSE(String("12 ").IsDigits());
    EXPECT_FALSE(String("\xB2").IsDigits()) << "a raised 2 is no digit that a number is made of";
    EXPECT_TRUE(String("A1\xE9").IsAlphanumeric());
    EXPECT_FALSE(String("A-1").IsAlphanumeric());
}
