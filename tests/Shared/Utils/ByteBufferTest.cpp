#include "Shared/Utils/ByteBuffer.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>

using Nvr::ByteBuffer;

TEST(ByteBuffer, StartsZeroed) {
    const ByteBuffer buffer;
    EXPECT_EQ(buffer.Capacity(), 1000);
    EXPECT_EQ(buffer.Size(), 0);
    EXPECT_TRUE(
        std::all_of(buffer.Data(), buffer.Data() + 1000, [](std::uint8_t byte) { return byte == 0; }));
}

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
    buffer.Append(expected.data(), 1000);
    buffer.Append(expected.data(), 1000);
    EXPECT_EQ(buffer.Capacity(), 4000) << "3001 bytes";
    const std::string large(20000, 'x');
    buffer.AppendText(large);
    EXPECT_EQ(buffer.Capacity(), 32000) << "doubled as often as it takes";
    EXPECT_EQ(buffer.Size(), 23001);
}

TEST(ByteBuffer, CopiesWithItsCapacity) {
    ByteBuffer exact("abc", 3);
    EXPECT_EQ(exact.Capacity(), 3);
    exact.AppendByte('d');
    EXPECT_EQ(exact.Capacity(), 6);
    const ByteBuffer copy(exact);
    EXPECT_EQ(copy.Capacity(), 6);
    EXPECT_EQ(copy.View(), "abcd");
    exact.Clear();
    EXPECT_EQ(exact.Size(), 0);
    EXPECT_EQ(exact.Capacity(), 6);
    exact = copy;
    EXPECT_EQ(exact.View(), "abcd");
    const ByteBuffer moved(std::move(exact));
    EXPECT_EQ(moved.View(), "abcd");
    ByteBuffer none(nullptr, 0);
    EXPECT_EQ(none.Capacity(), 0);
    none.AppendText(Nvr::String("xyz"));
    EXPECT_EQ(none.Capacity(), 4);
    EXPECT_EQ(none.View(), "xyz");
}

TEST(ByteBuffer, AppendsItself) {
    ByteBuffer buffer("abc", 3);
    buffer.Append(buffer);
    EXPECT_EQ(buffer.View(), "abcabc");
    buffer.Append(buffer.Data(4), 2);
    EXPECT_EQ(buffer.AppendFrom(buffer, 6, 1), 1);
    EXPECT_EQ(buffer.View(), "abcabcbcb");
}

TEST(ByteBuffer, ReadsAndTakesWithinTheSize) {
    struct Row {
        int Offset;
        int Count;
        const char* Expected;
        const char* Why;
    };
    const Row rows[] = {
        {0, 5, "abcde", "all"},           {1, 2, "bc", "a part"},
        {3, 100, "de", "clipped"},        {5, 1, "", "at the size"},
        {99, 1, "", "past the size"},     {-1, 2, "", "before the start"},
        {2, -1, "", "less than nothing"}, {1, std::numeric_limits<int>::max(), "bcde", "no overflow"},
    };
    const ByteBuffer buffer("abcde", 5);
    for (const Row& row : rows) {
        const std::string expected = row.Expected;
        std::array<char, 8> destination{};
        EXPECT_EQ(buffer.Read(destination.data(), row.Offset, row.Count), static_cast<int>(expected.size()))
            << row.Why;
        EXPECT_EQ(destination.data(), expected) << row.Why;
        ByteBuffer taker;
        EXPECT_EQ(taker.AppendFrom(buffer, row.Offset, row.Count), static_cast<int>(expected.size()))
            << row.Why;
        EXPECT_EQ(taker.View(), expected) << row.Why;
    }
    EXPECT_EQ(buffer.At(1), 'b');
    EXPECT_EQ(*buffer.Data(2), 'c');
}

TEST(ByteBuffer, IgnoresWhatIsNothing) {
    ByteBuffer buffer;
    buffer.Append(nullptr, 0);
    buffer.Append("abc", -1);
    buffer.AppendText("");
    EXPECT_EQ(buffer.Size(), 0);
}

TEST(ByteBuffer, FindsTheLastLineFeed) {
    const auto find = [](std::string_view text) {
        return ByteBuffer(text.data(), static_cast<int>(text.size())).FindLastLineFeed();
    };
    EXPECT_EQ(find("a\nb\r\nc"), 4);
    EXPECT_EQ(find("\n"), 0);
    EXPECT_EQ(find("a\r"), -1);
    EXPECT_EQ(find(""), -1);
}
