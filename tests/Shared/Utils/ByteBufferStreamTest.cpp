#include "Shared/Utils/ByteBuffer.h"
#include "Shared/Utils/Stream.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace {

// A source of bytes that may be one without positions, as a pipe is; notes the sizes of the reads.
class TextSource : public Nvr::InStream {
public:
    explicit TextSource(std::string text, bool hasPositions = true)
        : m_Text(std::move(text)), m_HasPositions(hasPositions) {}

    bool Good() const override { return !m_Failed && !m_Ended; }
    bool Eof() const override { return m_Ended; }
    bool Bad() const override { return false; }
    void Clear() override { m_Failed = m_Ended = false; }
    InStream& operator>>(unsigned long&) override { return *this; }
    InStream& operator>>(unsigned char&) override { return *this; }
    std::streamoff Tell() override { return m_Failed ? -1 : static_cast<std::streamoff>(m_At); }
    InStream& Seek(std::streamoff offset, Nvr::SeekDirection direction) override {
        if (!m_HasPositions)
            m_Failed = true;
        else
            m_At =
                static_cast<std::size_t>(offset) + (direction == Nvr::SeekDirection::End ? m_Text.size() : 0);
        return *this;
    }
    InStream& Seek(std::streamoff position) override { return Seek(position, Nvr::SeekDirection::Begin); }
    std::size_t Read(void* buffer, std::size_t count) override {
        LargestRead = std::max(LargestRead, count);
        m_Last = Good() ? std::min(count, m_Text.size() - m_At) : 0;
        m_Text.copy(static_cast<char*>(buffer), m_Last, m_At);
        m_At += m_Last;
        m_Ended = m_Last < count;
        return m_Last;
    }
    int Get() override { return -1; }
    bool Get(unsigned char&) override { return false; }
    std::size_t LastReadCount() const override { return m_Last; }
    int Peek() override { return -1; }

    std::size_t LargestRead = 0;

private:
    std::string m_Text;
    bool m_HasPositions;
    std::size_t m_At = 0;
    std::size_t m_Last = 0;
    bool m_Failed = false;
    bool m_Ended = false;
};

std::string LongText() {
    std::string text;
    for (int i = 0; i < 10'000; ++i)
        text += static_cast<char>(i * 7);
    return text;
}

} // namespace

TEST(ByteBufferStream, TakesTheWholeStreamFromItsStart) {
    TextSource source(LongText());
    source.Seek(17);
    Nvr::ByteBuffer buffer("<", 1);
    buffer.AppendStream(source);
    EXPECT_EQ(buffer.View().substr(0, 1), "<");
    EXPECT_EQ(buffer.View().substr(1), LongText());
    EXPECT_TRUE(source.Good()) << "no more was asked for than there is";
    EXPECT_EQ(source.LargestRead, 4096U);
    TextSource empty("");
    buffer.AppendStream(empty);
    EXPECT_EQ(buffer.Size(), 10'001);
}

TEST(ByteBufferStream, TakesWhatIsLeftWithoutPositions) {
    TextSource source(LongText(), false);
    Nvr::ByteBuffer buffer;
    buffer.AppendStream(source);
    EXPECT_EQ(buffer.View(), LongText());
}

TEST(ByteBufferStream, TakesACountFromThePresentPosition) {
    struct Row {
        int Count;
        bool EndsFirst;
        const char* Why;
    };
    const Row rows[] = {
        {9'990, false, "exactly what is left"},
        {9'991, true, "one more than is left"},
        {2'147'483'647, true, "a wrong count costs no more than the stream holds"},
        {4'096, false, "a whole block"},
        {0, false, "nothing"},
        {-1, false, "less than nothing"},
    };
    for (const Row& row : rows) {
        TextSource source(LongText());
        source.Seek(10);
        Nvr::ByteBuffer buffer;
        EXPECT_EQ(buffer.AppendStream(source, row.Count), row.EndsFirst) << row.Why;
        EXPECT_EQ(buffer.View(), LongText().substr(10, static_cast<std::size_t>(std::max(row.Count, 0))))
            << row.Why;
        EXPECT_LE(buffer.Capacity(), 16'000) << row.Why;
    }
}
