#include "Shared/Utils/platform/TextServices.h"

#include <gtest/gtest.h>
#include <string>

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
    EXPECT_EQ(Units(CodePage::System, "A\x7F\x80\x81\x85\x8A\x8D\x8F\x90\x92\x96\x99\x9D\x9F\xA0\xE9\xFF"),
              u"A\x7F\u20AC\x81\u2026\u0160\x8D\x8F\x90\u2019\u2013\u2122\x9D\u0178\xA0\xE9\xFF");
}

TEST(TextServices, WhatDoesNotFitBecomesAQuestionMark) {
    // A letter whose mark the page lacks, a flat sign, each half of a pair, a control that gave its place.
    EXPECT_EQ(Bytes(u"a\u0100b\u266D\U0001F3B8\x80\xFFFF"), "a?b?????");
}

TEST(TextServices, Utf8IsThatOfTheCodePage) {
    EXPECT_EQ(Platform::ToUtf8("a\x7F\x80\xE9\xFF"), "a\x7F\xE2\x82\xAC\xC3\xA9\xC3\xBF");
}

TEST(TextServices, MacintoshPage) {
    EXPECT_EQ(Units(CodePage::Macintosh, "A\x80\x8E\xA5\xCA\xD5\xDB\xFF"),
              u"A\u00C4\u00E9\u2022\u00A0\u2019\u20AC\u02C7");
}

TEST(TextServices, BytesHaveTheirKinds) {
    int letters = 0;
    std::string spaces;
    for (const char byte : AllBytes()) {
        const char lower = Platform::ToLower(byte);
        const char upper = Platform::ToUpper(byte);
        EXPECT_EQ(Platform::ToUpper(lower), upper) << int{byte};
        EXPECT_EQ(Platform::ToLower(upper), lower) << int{byte};
        EXPECT_TRUE(lower == upper || Platform::IsLetter(byte)) << int{byte};
        letters += Platform::IsLetter(byte) ? 1 : 0;
        if (Platform::IsSpace(byte))
            spaces += byte;
    }
    // 52 of ASCII, the 60 accented pairs' letters, the 8 scattered ones and the 6 without a capital.
    EXPECT_EQ(letters, 52 + 60 + 8 + 6);
    EXPECT_EQ(spaces, "\t\n\v\f\r \xA0");
}

TEST(TextServices, CollationIsAnOrder) {
    // Every single byte has its own place.
    for (const char left : AllBytes()) {
        for (const char right : AllBytes()) {
            const std::string_view l(&left, 1), r(&right, 1);
            EXPECT_EQ(Platform::Collate(l, r) == 0, left == right);
            EXPECT_EQ(Platform::Collate(l, r) < 0, Platform::Collate(r, l) > 0);
            EXPECT_EQ(Platform::CollateIgnoringCase(l, r) == 0,
                      Platform::ToLower(left) == Platform::ToLower(right));
        }
    }
    EXPECT_EQ(Platform::CollateIgnoringCase("C\xD4TE", "c\xF4te"), 0);
}
