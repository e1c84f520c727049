#pragma once

#include "Shared/Utils/NvrString.h"

#include <string>
#include <string_view>

namespace Nvr {

class DiskFolder;
class FileName;

/// A place on disk, named by a file URL with forward slashes and escapes ("%20" for a blank).
///
/// A value that holds no open file; whether something is there is asked anew each time. An empty url means
/// that there is no object, and every query then gives the empty or false answer. Any native path that is
/// absolute comes back byte for byte. Nothing here reports or throws.
class DiskObject {
public:
    virtual ~DiskObject() = default;
    /// True when something of this kind is there.
    virtual bool Exists() const = 0;

    const String& GetUrl() const { return m_Url; }
    /// The native path; empty for an empty url and for one that is no file's.
    String GetPath() const;
    /// From the attributes; false when nothing is there.
    bool IsHidden() const;
    bool IsReadOnly() const;
    /// Change the attribute when it differs. True when it is as asked for afterwards; false when nothing is
    /// there, and where hiding would need another name.
    bool SetHidden(bool hidden) const;
    bool SetReadOnly(bool readOnly) const;
    /// The folder that holds the object; one with an empty url for the topmost folder.
    DiskFolder GetParent() const;
    /// False for an empty url.
    bool ToFileName(FileName& fileName) const;

    /// Equal urls.
    friend bool operator==(const DiskObject& left, const DiskObject& right) {
        return left.m_Url == right.m_Url;
    }

    /// The longest url that an object can have; a path whose url would be longer gives an empty one.
    static constexpr std::size_t kLongestUrl = 2084;

protected:
    DiskObject() = default;
    DiskObject(const DiskObject&) = default;
    DiskObject(DiskObject&&) = default;
    DiskObject& operator=(const DiskObject&) = default;
    DiskObject& operator=(DiskObject&&) = default;
    /// From a native path; a relative path gives an empty url.
    explicit DiskObject(const String& path);
    /// The child of a folder. Slashes and backslashes in the name become blanks, so it stays in that folder.
    /// No name at all, "." and ".." are no child: the url is empty.
    DiskObject(const DiskFolder& folder, const String& name);

    void SetUrl(const String& url) { m_Url = url; }
    /// The native path as the platform takes it.
    std::string NativePath() const;
    /// The part of the url after its last slash, not counting a slash at the very end.
    std::string_view LastPart() const;

private:
    String m_Url;
};

} // namespace Nvr
