#include "Shared/Utils/ByteBuffer.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>

using Nvr::ByteBuffer;

TEST(ByteBuffer, DoublesAndKeepsItsBytes) {
    ByteBuffer buffer;
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        buffer.AppendByte(static_cast<std::uint8_t>(i * 7));
        expected += static_cast<char>(i * 7);
    }
    EXPECT_EQ(buffer.Capacity(), 1000);
    buffer.AppendByte(1);
    EXPECT_EQ(buffer.Capacity(), 2000);
    EXPECT_EQ(buffer.View(), expected + '\x01');
    buffer.AppendText(std::string(20000, 'x'));
    EXPECT_EQ(buffer.Capacity(), 32000) << "doubled as often as it takes";
    EXPECT_EQ(buffer.Size(), 21001);
    ByteBuffer none(nullptr, 0);
    none.AppendText("xyz");
    EXPECT_EQ(none.Capacity(), 4) << "doubled from nothing";
}

TEST(ByteBuffer, AppendsItself) {
    ByteBuffer buffer("abc", 3);
    buffer.Append(buffer);
    EXPECT_EQ(buffer.View(), "abcabc");
    buffer.Append(buffer.Data(4), 2);
    EXPECT_EQ(buffer.AppendFrom(buffer, 6, 1), 1);
    EXPECT_EQ(buffer.View(), "abcabcbcb");
}

TEST(ByteBuffer, CopiesAreTheirOwn) {
    ByteBuffer buffer("a\nb\nc", 5);
    ByteBuffer copy(buffer);
    buffer.At(2) = 'x';
    EXPECT_EQ(copy.View(), "a\nb\nc");
    ByteBuffer moved(std::move(buffer));
    EXPECT_EQ(moved.View(), "a\nx\nc");
    copy = moved;
    moved.Clear();
    EXPECT_EQ(copy.FindLastLineFeed(), 3);
    EXPECT_EQ(moved.FindLastLineFeed(), -1);
    moved = std::move(copy);
    EXPECT_EQ(moved.View(), "a\nx\nc");
}

TEST(ByteBuffer, ReadsWithinTheSize) {
    const struct {
        int Offset, Count;
        const char *Expected, *Why;
    } rows[] = {
        {3, 100, "de", "clipped"},    {5, 1, "", "at the size"},
        {-1, 2, "", "before"},        {2, -1, "", "less than nothing"},
        {99, 1, "", "past the size"}, {1, std::numeric_limits<int>::max(), "bcde", "no overflow"},
    };
    const ByteBuffer buffer("abcde", 5);
    for (const auto& row : rows) {
        const std::string expected = row.Expected;
        std::array<char, 8> destination{};
        EXPECT_EQ(buffer.Read(destination.data(), row.Offset, row.Count), static_cast<int>(expected.size()))
            << row.Why;
        EXPECT_EQ(destination.data(), expected) << row.Why;
    }
}
