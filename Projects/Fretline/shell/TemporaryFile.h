#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/platform/FileServices.h"

#include <string>

namespace Fretline {

/// Deletes a file when it is destroyed. Owns the path, which is empty at first: then, and when there is no
/// such file, nothing happens.
class TemporaryFile {
public:
    TemporaryFile() { m_PathToDelete.reserve(kLongestPath); }
    ~TemporaryFile() { Delete(); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// The path of the file. Whoever sets it has made the file: one that another made under that name would
    /// be deleted too.
    Nvr::String& Path() { return m_Path; }

    /// Deletes it now.
    void Delete() noexcept {
        try {
            m_PathToDelete.assign(m_Path.View());
            Nvr::Platform::RemoveFile(m_PathToDelete);
        } catch (...) {
            // A file too many in the folder for temporary files is the lesser evil.
        }
    }

private:
    // More than a path that was a url can have: deleting needs no memory, which may be what is short.
    static constexpr std::size_t kLongestPath = 4096;

    Nvr::String m_Path;
    std::string m_PathToDelete;
};

} // namespace Fretline
