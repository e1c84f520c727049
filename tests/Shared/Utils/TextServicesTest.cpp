#include "Shared/Utils/platform/TextServices.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace Platform = Nvr::Platform;
using Platform::CodePage;

namespace {

std::string AllBytes() {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
}

std::u16string Units(CodePage page, const std::string& text) {
    std::u16string units;
    EXPECT_TRUE(Platform::ToUtf16(page, text, units));
    return units;
}

std::string Bytes(const std::u16string& units) {
    std::string text;
    EXPECT_TRUE(Platform::FromUtf16(units, text));
    return text;
}

} // namespace

TEST(TextServices, EveryByteSurvivesTheWayThereAndBack) {
    EXPECT_EQ(Bytes(Units(CodePage::System, AllBytes())), AllBytes());
}

TEST(TextServices, SystemCodePageIsWindows1252) {
    struct Row {
        unsigned char Byte;
        char16_t Unit;
    };
    const Row rows[] = {{0x00, 0x0000}, {0x41, 0x0041}, {0x7F, 0x007F}, {0x80, 0x20AC}, {0x81, 0x0081},
                        {0x8D, 0x008D}, {0x8F, 0x008F}, {0x90, 0x0090}, {0x9D, 0x009D}, {0x85, 0x2026},
                        {0x8A, 0x0160}, {0x92, 0x2019}, {0x96, 0x2013}, {0x99, 0x2122}, {0x9F, 0x0178},
                        {0xA0, 0x00A0}, {0xE9, 0x00E9}, {0xFF, 0x00FF}};
    for (const Row& row : rows) {
        const std::string text(1, static_cast<char>(row.Byte));
        EXPECT_EQ(Units(CodePage::System, text), std::u16string(1, row.Unit)) << int{row.Byte};
    }
}

TEST(TextServices, WhatDoesNotFitBecomesAQuestionMark) {
    EXPECT_EQ(Bytes(u"a\u0100b"), "a?b") << "not even as the letter without its mark";
    EXPECT_EQ(Bytes(u"\u266D"), "?") << "a flat sign";
    EXPECT_EQ(Bytes(u"\U0001F3B8"), "??") << "each half of a pair";
    EXPECT_EQ(Bytes(std::u16string(1, char16_t{0x0080})), "?") << "a control that gave its place to the euro";
    EXPECT_EQ(Bytes(std::u16string(1, char16_t{0xFFFF})), "?");
}

TEST(TextServices, MacintoshPage) {
    EXPECT_EQ(Units(CodePage::Macintosh, "A\x80\x8E\xA5\xCA\xD5\xDB\xFF"),
              u"A\u00C4\u00E9\u2022\u00A0\u2019\u20AC\u02C7");
    EXPECT_EQ(Units(CodePage::Macintosh, "\r\n"), u"\r\n");
    EXPECT_EQ(Units(CodePage::Macintosh, AllBytes()).size(), 256U);
}

TEST(TextServices, ConversionReplacesWhatWasThere) {
    std::u16string units = u"before";
    EXPECT_TRUE(Platform::ToUtf16(CodePage::System, "", units));
    EXPECT_TRUE(units.empty());
    EXPECT_EQ(Platform::ToUtf8("a\xE9\x80"), "a\xC3\xA9\xE2\x82\xAC");
}

TEST(TextServices, CasesGoTogether) {
    int letters = 0;
    for (const char byte : AllBytes()) {
        const char lower = Platform::ToLower(byte);
        const char upper = Platform::ToUpper(byte);
        EXPECT_EQ(Platform::ToUpper(lower), upper) << int{byte};
        EXPECT_EQ(Platform::ToLower(upper), lower) << int{byte};
        EXPECT_TRUE(lower == upper || Platform::IsLetter(byte)) << int{byte};
        letters += Platform::IsLetter(byte) ? 1 : 0;
    }
    // 52 of ASCII, the 60 accented pairs' letters, the 8 scattered ones and the 5 without a capital.
    EXPECT_EQ(letters, 52 + 60 + 8 + 5);
    EXPECT_FALSE(Platform::IsLetter('\xD7'));
    EXPECT_FALSE(Platform::IsLetter('\xF7'));
}

TEST(TextServices, WhiteSpaceAndDigits) {
    std::string spaces, digits;
    for (const char byte : AllBytes()) {
        if (Platform::IsSpace(byte))
            spaces += byte;
        if (Platform::IsDigit(byte))
            digits += byte;
    }
    EXPECT_EQ(spaces, "\t\n\v\f\r \xA0");
    EXPECT_EQ(digits, "0123456789");
}

TEST(TextServices, CollationIsAnOrder) {
    // Every single byte has its own place, and texts are ordered by letter, then accent, then case.
    for (const char left : AllBytes()) {
        for (const char right : AllBytes()) {
            const std::string_view l(&left, 1), r(&right, 1);
            EXPECT_EQ(Platform::Collate(l, r) == 0, left == right);
            EXPECT_EQ(Platform::Collate(l, r) < 0, Platform::Collate(r, l) > 0);
            EXPECT_EQ(Platform::CollateIgnoringCase(l, r) == 0,
                      Platform::ToLower(left) == Platform::ToLower(right));
        }
    }
    const std::vector<std::string> ordered = {"cote", "Cote", "cot\xE9", "c\xF4te", "coted"};
    for (std::size_t i = 1; i < ordered.size(); ++i)
        EXPECT_LT(Platform::Collate(ordered[i - 1], ordered[i]), 0) << ordered[i];
    EXPECT_EQ(Platform::CollateIgnoringCase("C\xD4TE", "c\xF4te"), 0);
}
