#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace Nvr {

class InStream;

/// A growing block of bytes, which it owns.
///
/// Offsets count from 0. When an addition does not fit, the capacity doubles until it does. A failed
/// allocation, or a size that 31 bits cannot hold, raises the allocation failure and leaves the buffer as it
/// was. Pointers into the block last until the next addition.
class ByteBuffer {
public:
    /// Capacity 1000, size 0, the storage zeroed.
    ByteBuffer();
    /// Copies `size` bytes, which are the capacity too. A size below 1 copies nothing.
    ByteBuffer(const void* bytes, int size);
    /// The same capacity and size; copies the used bytes.
    ByteBuffer(const ByteBuffer& other);
    ByteBuffer(ByteBuffer&& other) noexcept;
    ByteBuffer& operator=(const ByteBuffer& other);
    ByteBuffer& operator=(ByteBuffer&& other) noexcept;

    /// Adds `count` bytes, which may lie in this buffer. Nothing for a count below 1.
    void Append(const void* bytes, int count);
    void Append(const ByteBuffer& other) { Append(other.Data(), other.Size()); }
    void AppendByte(std::uint8_t byte) {
        if (m_Size == m_Capacity)
            MakeRoom(1);
        m_Bytes[static_cast<std::size_t>(m_Size++)] = byte;
    }
    /// Without the terminating zero.
    void AppendText(std::string_view text);
    void AppendText(const String& text) { AppendText(text.View()); }
    /// Null is nothing.
    void AppendText(const char* text) { AppendText(std::string_view(text != nullptr ? text : "")); }
    /// At most `count` bytes of `other` from `offset` on. How many were taken: 0 when `offset` is at or past
    /// the other's size, or negative.
    int AppendFrom(const ByteBuffer& other, int offset, int count);
    /// All that the stream holds, from its start; from its present position when it cannot seek. A
    /// stream that fails on the way gives what it gave before, and says so itself.
    void AppendStream(InStream& stream);
    /// `count` bytes from the stream's present position, in blocks, so that a wrong count costs no more than
    /// the stream holds. True when the stream ends or fails before.
    bool AppendStream(InStream& stream, int count);

    /// Copies at most `count` bytes from `offset` on. How many were copied: 0 when `offset` is at or past the
    /// size, or negative.
    int Read(void* destination, int offset, int count) const;

    std::uint8_t* Data() { return m_Bytes.get(); }
    const std::uint8_t* Data() const { return m_Bytes.get(); }
    /// Unchecked, as is At.
    std::uint8_t* Data(int offset) { return m_Bytes.get() + offset; }
    const std::uint8_t* Data(int offset) const { return m_Bytes.get() + offset; }
    std::uint8_t& At(int offset) { return m_Bytes[static_cast<std::size_t>(offset)]; }
    std::uint8_t At(int offset) const { return m_Bytes[static_cast<std::size_t>(offset)]; }
    int Size() const { return m_Size; }
    int Capacity() const { return m_Capacity; }
    /// The used bytes as text, zero bytes included.
    std::string_view View() const {
        return {reinterpret_cast<const char*>(m_Bytes.get()), static_cast<std::size_t>(m_Size)};
    }

    /// Size 0; the storage stays.
    void Clear() { m_Size = 0; }
    /// The index of the last line feed (0A), or -1.
    int FindLastLineFeed() const;

private:
    /// Makes the capacity fit `count` more bytes. Gives back the former block when there is a new one.
    std::unique_ptr<std::uint8_t[]> MakeRoom(int count);

    std::int32_t m_Capacity;
    std::int32_t m_Size;
    std::unique_ptr<std::uint8_t[]> m_Bytes;
};

} // namespace Nvr
