#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/platform/FileServices.h"

#include <string>

namespace Fretline {

/// Deletes a file at the end of its own life, however that comes. Refers to the path, which must outlive it
/// and may be settled later; nothing happens for an empty one or when there is no such file. Whoever settles
/// it has made the file: one that another made under that name would go too.
class TemporaryFile {
public:
    explicit TemporaryFile(const Nvr::String& path) : m_Path(path) { m_Room.reserve(kLongestPath); }
    ~TemporaryFile() { Delete(); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Deletes it now.
    void Delete() noexcept {
        try {
            m_Room.assign(m_Path.View());
            Nvr::Platform::RemoveFile(m_Room);
        } catch (...) {
            // A file too many in the folder for temporary files is the lesser evil.
        }
    }

private:
    /// More than a path that was a url can have: deleting needs no memory, which may be what is short.
    static constexpr std::size_t kLongestPath = 4096;

    const Nvr::String& m_Path;
    std::string m_Room;
};

} // namespace Fretline
