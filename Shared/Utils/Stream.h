#pragma once

#include <cstddef>
#include <ios>

namespace Nvr {

/// Where an offset counts from.
enum class SeekDirection { Begin, Current, End };

/// What reading and writing have in common: the state of a stream of bytes.
///
/// Nothing in a stream throws or reports. A failed operation is remembered in the state until `Clear`, and
/// later operations then do nothing; callers ask `Good` after opening and after writing. Not safe across
/// threads. Streams are neither copied nor assigned.
class Stream {
public:
    Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    virtual ~Stream() = default;

    /// True when nothing has failed and no read has met the end.
    virtual bool Good() const = 0;
    /// True once a read has asked for more than there is; standing at the end is not enough.
    virtual bool Eof() const = 0;
    /// True when bytes may have been lost: the medium failed, the disk is full.
    virtual bool Bad() const = 0;
    /// Forgets all of that.
    virtual void Clear() = 0;
};

/// A source of bytes with a position.
class InStream : public virtual Stream {
public:
    /// A decimal number, white space before it skipped. 0 and a failure when there is none.
    virtual InStream& operator>>(unsigned long& value) = 0;
    /// The next byte that is not white space; `value` stays when there is none.
    virtual InStream& operator>>(unsigned char& value) = 0;
    /// Bytes from the start to the next one read; -1 when the source has no positions or has failed.
    virtual std::streamoff Tell() = 0;
    /// Moves the position; afterwards an end met earlier, and a read cut short by it, are forgotten. A place
    /// before the start or a source that cannot seek is a failure and leaves the position.
    virtual InStream& Seek(std::streamoff offset, SeekDirection direction) = 0;
    /// The same, counted from the start.
    virtual InStream& Seek(std::streamoff position) = 0;
    /// Reads `count` bytes, or what is left of the source, and gives the number of bytes read. Fewer than
    /// `count` leave the stream at its end, no longer good; the rest of the buffer is untouched.
    virtual std::size_t Read(void* buffer, std::size_t count) = 0;
    /// The next byte, 0 to 255; -1 at the end.
    virtual int Get() = 0;
    /// The same: false at the end, and then `byte` is untouched.
    virtual bool Get(unsigned char& byte) = 0;
    /// Bytes that the last `Read` or `Get` gave.
    virtual std::size_t LastReadCount() const = 0;
    /// What `Get` would give, without moving on.
    virtual int Peek() = 0;
};

/// A target of bytes with a position. Numbers are written in decimal, the same in every locale.
class OutStream : public virtual Stream {
public:
    /// Six significant digits, zeros after the point left out.
    virtual OutStream& operator<<(float value) = 0;
    virtual OutStream& operator<<(unsigned long value) = 0;
    virtual OutStream& operator<<(long value) = 0;
    virtual OutStream& operator<<(unsigned int value) = 0;
    virtual OutStream& operator<<(int value) = 0;
    virtual OutStream& operator<<(unsigned short value) = 0;
    virtual OutStream& operator<<(short value) = 0;
    /// Characters of all three types are written as one byte.
    virtual OutStream& operator<<(char character) = 0;
    virtual OutStream& operator<<(unsigned char character) = 0;
    /// Zero-terminated text without its zero. A null pointer writes nothing.
    virtual OutStream& operator<<(const char* text) = 0;
    /// Zero-terminated UTF-16: the code units as raw bytes in the machine's order, without the terminator.
    virtual OutStream& operator<<(const char16_t* text) = 0;
    virtual OutStream& operator<<(signed char character) = 0;
    /// Moves the place of the next write; a place before the start is a failure.
    virtual OutStream& Seek(std::streamoff offset, SeekDirection direction) = 0;
    /// The same, counted from the start.
    virtual OutStream& Seek(std::streamoff position) = 0;
    virtual OutStream& Write(const void* buffer, std::size_t count) = 0;
    /// Bytes from the start to the next write; -1 when the target has no positions or has failed.
    virtual std::streamoff Tell() = 0;
    /// Hands everything written to the system. Only after it does `Good` speak for all writes before.
    virtual OutStream& Flush() = 0;
};

} // namespace Nvr
