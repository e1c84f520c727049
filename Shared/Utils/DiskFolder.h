#pragma once

#include "Shared/Utils/DiskObject.h"

namespace Nvr {

/// A folder, there or not yet. See DiskObject.
class DiskFolder : public DiskObject {
public:
    /// No object.
    DiskFolder() = default;
    /// From an absolute native path; a relative one gives an empty url, as does one too long for a url.
    explicit DiskFolder(const String& path) : DiskObject(path) {}
    /// The child of a folder. The name cannot lead out of it: slashes and backslashes become blanks.
    DiskFolder(const DiskFolder& folder, const String& name) : DiskObject(folder, name) {}
    /// Takes the url as it stands.
    static DiskFolder FromUrl(const String& url);

    /// True when the path is there and is a folder.
    bool Exists() const override;
    /// The last part of the url, unescaped; empty for the topmost folder.
    String GetName() const;
    /// True when the folder is there and holds nothing.
    bool IsEmpty() const;
};

} // namespace Nvr
