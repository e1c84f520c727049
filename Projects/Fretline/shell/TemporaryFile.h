#pragma once

#include "Shared/Utils/DiskFile.h"

namespace Fretline {

/// Deletes a file at the end of its own life, however that comes. Refers to the path, which must outlive it
/// and may be settled later; nothing happens for an empty one or when there is no such file.
class TemporaryFile {
public:
    explicit TemporaryFile(const Nvr::String& path) : m_Path(path) {}
    ~TemporaryFile() {
        try {
            Nvr::DiskFile(m_Path).Delete(false);
        } catch (...) {
            // Out of memory: a file too many in the folder for temporary files is the lesser evil.
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

private:
    const Nvr::String& m_Path;
};

} // namespace Fretline
