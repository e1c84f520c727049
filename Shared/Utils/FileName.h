#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstdint>

namespace Nvr {

/// A native path held as text, for those who need no DiskObject. Holds no open file. Nothing here reports.
class FileName {
public:
    FileName() = default;
    /// Takes the text; a path with a drive is split and joined again.
    explicit FileName(const String& path);

    const String& GetPath() const { return m_Path; }

    /// Both false when there is nothing at the path.
    bool IsFile() const;
    bool IsFolder() const;
    /// In bytes; 0 when that fails.
    std::int64_t GetSize() const;
    /// Seconds since 1970 began; kNoModificationTime when that fails.
    std::int64_t GetModificationTime() const;
    /// Copies contents and access rights, in the place of a file that may be there. When it fails the target
    /// is as it was; so it is for a copy onto itself, which fails.
    bool CopyTo(const FileName& other) const;
    /// Compares the extension without its dot, ignoring case.
    bool HasExtension(const String& extension) const;

    static constexpr std::int64_t kNoModificationTime = 2147483647;

private:
    String m_Path;
};

} // namespace Nvr
