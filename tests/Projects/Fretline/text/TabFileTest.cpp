#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace Fretline {
namespace {

using TestSupport::TabText;
using namespace std::string_view_literals;

std::vector<std::string> LinesOf(const TabFile& file) {
    std::vector<std::string> lines;
    lines.reserve(static_cast<std::size_t>(file.GetLineCount()));
    for (int line = 0; line < file.GetLineCount(); ++line)
        lines.emplace_back(file.GetLine(line));
    return lines;
}

TEST(TabFile, LaysBytesOutAsLines) {
    const struct {
        std::string_view Bytes;
        std::vector<std::string> Lines;
        const char* Why;
    } rows[] = {
        {"", {""}, "an empty file has one empty line"},
        {"a\n", {"a", ""}, "what stands after the last line end is a line too"},
        {"a\n\rb", {"a", "b"}, "LF CR is one line end"},
        {"a\rb", {"a", "b"}, "CR is one line end"},
        {"a\rb\nc", {"a", "b", "c"}, "and so is LF in the next line"},
        {"a\r\rb", {"a", "", "b"}, "CR CR are two"},
        {"a\r\n\rb", {"a", "", "b"}, "a line end takes one further byte, not two"},
        {"a\n\r\nb", {"a", "", "b"}, "also the other way round"},
        {"a\r\n\r\nb", {"a", "", "b"}, "two pairs are two line ends"},
        {"a\r", {"a", ""}, "a pair that the file's end cuts off"},
        {"\tx", {"        x"}, "a tab goes to column 8"},
        {"12345678\tx", {"12345678        x"}, "from column 8 to 16"},
        {"a\n\tx", {"a", "        x"}, "tab stops count from the line's start"},
        {"\xE9\x80\v\f", {"\xE9\x80\v\f"}, "other bytes are not touched"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(LinesOf(TabText(row.Bytes).File), row.Lines) << row.Why;
}

TEST(TabFile, KnowsTheLongestLine) {
    EXPECT_EQ(TabText("ab\nabcd\nabc").File.GetMaxLineLength(), 4);
    EXPECT_EQ(TabText("ab\na\tb").File.GetMaxLineLength(), 9) << "the padding of a tab counts";
}

TEST(TabFile, ReadsLineEndsAndTabsAcrossBlocks) {
    // Longer than any block in which a file may be read, with a pair of bytes at every possible place.
    std::string bytes;
    for (int i = 0; i < 150'001; ++i)
        bytes += i % 3 == 0 ? "x\r\n" : "\ty\r\n";
    const TabText text(bytes);
    ASSERT_EQ(text.File.GetLineCount(), 150'002);
    for (int line = 0; line < 150'001; ++line)
        ASSERT_EQ(text.File.GetLine(line), line % 3 == 0 ? "x" : "        y") << line;
}

TEST(TabFile, FindsCharacters) {
    const TabText text("a-b-\nlonger line\n\0-"sv);
    const struct {
        int Line, Start;
        char Character;
        int Column;
        const char* Why;
    } rows[] = {
        {0, 2, '-', 3, "the next one"},
        {0, 4, '-', -1, "the line's end"},
        {0, 0, '\0', 4, "which can be found"},
        {0, 11, '\0', -1, "up to the length of the longest line"},
        {1, 0, '\0', -1, "which has none itself"},
        {2, 1, '\0', 2, "the space after the line"},
        {1, 100, 'l', -1, "a start beyond all lines"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(text.File.FindChar(row.Line, row.Start, row.Character), row.Column) << row.Why;
}

TEST(TabFile, RaisesForALineOutsideTheTable) {
    const TabText text("a\nb");
    for (const int line : {-1, 2, 1'000'000'000}) {
        try {
            text.File.GetLineLength(line);
            ADD_FAILURE() << "line " << line << " is taken for one";
        } catch (const std::out_of_range& outside) {
            EXPECT_STREQ(outside.what(), "invalid vector<T> subscript");
        }
        EXPECT_THROW(text.File.GetChar(line, 0), std::out_of_range);
        EXPECT_THROW(text.File.FindChar(line, 0, 'a'), std::out_of_range);
        EXPECT_THROW(text.File.GetText(line, 0, 0), std::out_of_range);
    }
}

TEST(TabFile, HasNoLinesWhenTheFileCannotBeOpened) {
    TestSupport::FakeOutput output;
    const TabFile file(Nvr::String("/no such folder/no such file.tab"), nullptr, &output);
    EXPECT_EQ(file.GetLineCount(), 0);
    EXPECT_EQ(file.GetMaxLineLength(), 0);
    EXPECT_TRUE(output.Messages.empty());
    EXPECT_THROW(file.GetChar(0, 0), std::out_of_range);
}

} // namespace
} // namespace Fretline
