#pragma once

#include "Shared/Utils/CStream.h"
#include "Shared/Utils/NvrString.h"

#include <fstream>
#include <vector>

namespace Nvr {

/// Bits of an open mode; they are added up.
inline constexpr int kOpenInput = 1;
inline constexpr int kOpenOutput = 2;
/// No translation of line ends on any platform. The forms of the tree store need it.
inline constexpr int kOpenBinary = 32;

/// Reads a file. Closed with the object, which shares the file with whoever else has it open.
class InFileStream : public CInStream {
public:
    /// Opens the file at a native path, `openMode` being bits from above; the bit for output does nothing. A
    /// file that is missing or cannot be read, a folder, a pipe and a device give a stream that is not
    /// `Good`.
    explicit InFileStream(const String& path, int openMode = kOpenInput | kOpenBinary);

private:
    std::vector<char> m_Buffer;
    std::ifstream m_File;
};

/// Writes a file, in the file itself: what stood there is gone as soon as it is opened. See SafeFileWriter
/// for files that must not be lost. Closed with the object, and then failures of the last writes go unseen.
class OutFileStream : public COutStream {
public:
    /// Opens the file at a native path and makes it empty, or makes a new one. A file that cannot be written
    /// gives a stream that is not `Good`.
    explicit OutFileStream(const String& path, int openMode = kOpenOutput | kOpenBinary);

    /// Writes what is left and closes. False when any write, the last one included, has failed.
    bool Close();

private:
    std::vector<char> m_Buffer;
    std::ofstream m_File;
};

} // namespace Nvr
