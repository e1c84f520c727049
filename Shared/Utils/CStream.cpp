#include "Shared/Utils/CStream.h"

#include <cstring>
#include <limits>
#include <locale>
#include <string>

namespace Nvr {

namespace {

std::ios::seekdir StandardDirection(SeekDirection direction) {
    switch (direction) {
    case SeekDirection::Current:
        return std::ios::cur;
    case SeekDirection::End:
        return std::ios::end;
    case SeekDirection::Begin:
        break;
    }
    return std::ios::beg;
}

// More than this is no size of anything in memory.
std::streamsize StandardCount(std::size_t count) {
    constexpr auto largest = static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max());
    return static_cast<std::streamsize>(count < largest ? count : largest);
}

} // namespace

void CInStream::Attach(std::istream& stream) {
    AttachState(stream);
    m_Stream = &stream;
    stream.imbue(std::locale::classic());
}

InStream& CInStream::operator>>(unsigned long& value) {
    *m_Stream >> value;
    return *this;
}

InStream& CInStream::operator>>(unsigned char& value) {
    *m_Stream >> value;
    return *this;
}

std::streamoff CInStream::Tell() {
    // The standard operation would make a failure of having met the end.
    return Bad() ? -1 : std::streamoff(m_Stream->rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in));
}

InStream& CInStream::Seek(std::streamoff offset, SeekDirection direction) {
    if (!Bad()) {
        Clear();
        m_Stream->seekg(offset, StandardDirection(direction));
    }
    return *this;
}

InStream& CInStream::Seek(std::streamoff position) {
    return Seek(position, SeekDirection::Begin);
}

std::size_t CInStream::Read(void* buffer, std::size_t count) {
    m_Stream->read(static_cast<char*>(buffer), StandardCount(count));
    return LastReadCount();
}

int CInStream::Get() {
    return m_Stream->get();
}

bool CInStream::Get(unsigned char& byte) {
    const int got = Get();
    if (got < 0)
        return false;
    byte = static_cast<unsigned char>(got);
    return true;
}

std::size_t CInStream::LastReadCount() const {
    return static_cast<std::size_t>(m_Stream->gcount());
}

int CInStream::Peek() {
    return m_Stream->peek();
}

void COutStream::Attach(std::ostream& stream) {
    AttachState(stream);
    m_Stream = &stream;
    stream.imbue(std::locale::classic());
}

template <class Value>
OutStream& COutStream::Put(Value value) {
    *m_Stream << value;
    return *this;
}

OutStream& COutStream::operator<<(float value) {
    return Put(value);
}

OutStream& COutStream::operator<<(unsigned long value) {
    return Put(value);
}

OutStream& COutStream::operator<<(long value) {
    return Put(value);
}

OutStream& COutStream::operator<<(unsigned int value) {
    return Put(value);
}

OutStream& COutStream::operator<<(int value) {
    return Put(value);
}

OutStream& COutStream::operator<<(unsigned short value) {
    return Put(value);
}

OutStream& COutStream::operator<<(short value) {
    return Put(value);
}

OutStream& COutStream::operator<<(char character) {
    m_Stream->put(character);
    return *this;
}

OutStream& COutStream::operator<<(unsigned char character) {
    return *this << static_cast<char>(character);
}

OutStream& COutStream::operator<<(const char* text) {
    return text != nullptr ? Write(text, std::strlen(text)) : *this;
}

OutStream& COutStream::operator<<(const char16_t* text) {
    return text != nullptr ? Write(text, std::char_traits<char16_t>::length(text) * sizeof(char16_t)) : *this;
}

OutStream& COutStream::operator<<(signed char character) {
    return *this << static_cast<char>(character);
}

OutStream& COutStream::Seek(std::streamoff offset, SeekDirection direction) {
    m_Stream->seekp(offset, StandardDirection(direction));
    return *this;
}

OutStream& COutStream::Seek(std::streamoff position) {
    return Seek(position, SeekDirection::Begin);
}

OutStream& COutStream::Write(const void* buffer, std::size_t count) {
    m_Stream->write(static_cast<const char*>(buffer), StandardCount(count));
    return *this;
}

std::streamoff COutStream::Tell() {
    return m_Stream->tellp();
}

OutStream& COutStream::Flush() {
    m_Stream->flush();
    return *this;
}

} // namespace Nvr
