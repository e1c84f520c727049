#include "Shared/Utils/FileStream.h"

#include "Shared/Utils/platform/FileServices.h"

#include <string>

namespace Nvr {

namespace {

// A tree is written and read in many small pieces; this many bytes at a time go to and come from the system.
constexpr std::size_t kBufferSize = 64UL * 1024;

std::ios::openmode StandardMode(int openMode) {
    std::ios::openmode mode{};
    if ((openMode & kOpenInput) != 0)
        mode |= std::ios::in;
    if ((openMode & kOpenOutput) != 0)
        mode |= std::ios::out | std::ios::trunc;
    if ((openMode & kOpenBinary) != 0)
        mode |= std::ios::binary;
    return mode;
}

// A standard stream takes a buffer only before it opens.
template <class File>
void Open(File& file, std::vector<char>& buffer, const String& path, int openMode) {
    buffer.resize(kBufferSize);
    file.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    file.open(path.CStr(), StandardMode(openMode));
}

} // namespace

InFileStream::InFileStream(const String& path, int openMode) {
    Attach(m_File);
    // Some systems open a folder like a file and fail only in the first read; a pipe or a device may keep the
    // reader waiting for ever.
    const Platform::FileFacts facts = Platform::ExamineFile(std::string(path.View()));
    if (facts.Kind == Platform::FileKind::Missing || facts.IsRegular)
        Open(m_File, m_Buffer, path, (openMode & ~kOpenOutput) | kOpenInput);
    else
        m_File.setstate(std::ios::failbit);
}

OutFileStream::OutFileStream(const String& path, int openMode) {
    Attach(m_File);
    Open(m_File, m_Buffer, path, openMode | kOpenOutput);
}

bool OutFileStream::Close() {
    m_File.close();
    return m_File.good();
}

} // namespace Nvr
