#pragma once

#include "Shared/Utils/Stream.h"

#include <ios>
#include <istream>
#include <ostream>

namespace Nvr {

/// The state queries of a stream, answered by a standard stream's state. Borrows that.
class CStream : public virtual Stream {
public:
    bool Good() const override { return m_State->good(); }
    bool Eof() const override { return m_State->eof(); }
    bool Bad() const override { return m_State->bad(); }
    void Clear() override { m_State->clear(); }

protected:
    /// For those who own the standard stream, which is made after its bases: they call `AttachState`.
    CStream() = default;
    explicit CStream(std::ios& state) : m_State(&state) {}
    void AttachState(std::ios& state) { m_State = &state; }

private:
    std::ios* m_State = nullptr;
};

/// Reads from a standard input stream, which it borrows and puts into the "C" locale.
class CInStream : public InStream, public CStream {
public:
    explicit CInStream(std::istream& stream) { Attach(stream); }

    InStream& operator>>(unsigned long& value) override;
    InStream& operator>>(unsigned char& value) override;
    std::streamoff Tell() override;
    InStream& Seek(std::streamoff offset, SeekDirection direction) override;
    InStream& Seek(std::streamoff position) override;
    std::size_t Read(void* buffer, std::size_t count) override;
    int Get() override;
    bool Get(unsigned char& byte) override;
    std::size_t LastReadCount() const override;
    int Peek() override;

protected:
    CInStream() = default;
    void Attach(std::istream& stream);

private:
    std::istream* m_Stream = nullptr;
};

/// Writes to a standard output stream, which it borrows and puts into the "C" locale.
class COutStream : public OutStream, public CStream {
public:
    explicit COutStream(std::ostream& stream) { Attach(stream); }

    OutStream& operator<<(float value) override;
    OutStream& operator<<(unsigned long value) override;
    OutStream& operator<<(long value) override;
    OutStream& operator<<(unsigned int value) override;
    OutStream& operator<<(int value) override;
    OutStream& operator<<(unsigned short value) override;
    OutStream& operator<<(short value) override;
    OutStream& operator<<(char character) override;
    OutStream& operator<<(unsigned char character) override;
    OutStream& operator<<(const char* text) override;
    OutStream& operator<<(const char16_t* text) override;
    OutStream& operator<<(signed char character) override;
    OutStream& Seek(std::streamoff offset, SeekDirection direction) override;
    OutStream& Seek(std::streamoff position) override;
    OutStream& Write(const void* buffer, std::size_t count) override;
    std::streamoff Tell() override;
    OutStream& Flush() override;

protected:
    COutStream() = default;
    void Attach(std::ostream& stream);

private:
    template <class Value>
    OutStream& Put(Value value);

    std::ostream* m_Stream = nullptr;
};

} // namespace Nvr
