#include "Projects/Fretline/shell/IsTabFile.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace {

using Fretline::IsTabFile;
using Nvr::String;

const std::string kElevenHyphens(11, '-');
const std::string kTenHyphens(10, '-');

// `hyphens` of 100 bytes are hyphens, `foreign` are not plain text, the rest blanks.
std::string Hundred(std::size_t hyphens, std::size_t foreign, char foreignByte = '\x01') {
    return std::string(hyphens, '-') + std::string(foreign, foreignByte) +
           std::string(100 - hyphens - foreign, ' ');
}

TEST(IsTabFile, CountsHyphensOfALineAndPlainText) {
    const struct {
        const char* Why;
        std::string Bytes;
        bool IsTab;
    } rows[] = {
        {"empty", "", false},
        {"ten hyphens on the longest line", kTenHyphens + "\nx\n", false},
        {"eleven on the last line, without an end", "x\n" + kElevenHyphens, true},
        {"a line feed starts a new count", kTenHyphens + "\n" + kTenHyphens + "\n", false},
        {"95 of 100", Hundred(11, 5), true},
        {"94 of 100", Hundred(11, 6), false},
        {"bytes from 128 up are no plain text", Hundred(11, 6, '\xE9'), false},
        {"nor is a zero, and nothing ends there", std::string(6, '\0') + Hundred(11, 0).substr(0, 94), false},
        {"the last of plain text", kElevenHyphens + std::string(300, '~'), true},
        {"tabs and line ends are", kElevenHyphens + std::string(200, '\t') + "\r\n\r\n", true},
        {"the percent is a whole number: 94.9 is 94",
         std::string(11, '-') + std::string(938, ' ') + std::string(51, '\x02'), false},
    };
    const TestSupport::ScratchFolder folder;
    for (const auto& row : rows)
        EXPECT_EQ(IsTabFile(folder.Write("a.tab", row.Bytes).c_str()), row.IsTab) << row.Why;
}

TEST(IsTabFile, TakesTheExtensionsOfTheTableAndNone) {
    const struct {
        const char* Name;
        bool IsTab;
    } rows[] = {
        {"a.tab", true},        {"a.TAB", true},  {"a.BTab", true},     {"a.crd", true},
        {"no extension", true}, {"a.txt", false}, {"a.tab.txt", false}, {"a.txt.tab", true},
        {"a.tabs", false},      {"a.ta", false},  {"a.tab ", false},    {"with blank.tab", true},
        {"100%20.tab", true},   {"a.", true},
    };
    const TestSupport::ScratchFolder folder;
    for (const auto& row : rows)
        EXPECT_EQ(IsTabFile(folder.Write(row.Name, kElevenHyphens).c_str()), row.IsTab) << row.Name;
}

} // namespace
