#pragma once

#include "Shared/Utils/DiskObject.h"

#include <cstdint>

namespace Nvr {

/// A file, there or not yet. See DiskObject.
class DiskFile : public DiskObject {
public:
    /// No object.
    DiskFile() = default;
    /// From an absolute native path; a relative one gives an empty url, as does one too long for a url.
    explicit DiskFile(const String& path) : DiskObject(path) {}
    /// The child of a folder. The name cannot lead out of it: slashes and backslashes become blanks.
    DiskFile(const DiskFolder& folder, const String& name) : DiskObject(folder, name) {}
    /// The child with the name `name` + "." + `extension`; without the dot when there is no extension.
    DiskFile(const DiskFolder& folder, const String& name, const String& extension);
    /// Takes the url as it stands.
    static DiskFile FromUrl(const String& url);

    /// True when the path is there and is not a folder.
    bool Exists() const override;

    /// The part of the url after its last slash, extension included; with `unescape` the name as the user
    /// wrote it.
    String GetFileName(bool unescape) const;
    /// The unescaped name before its last dot; the whole name when it has none.
    String GetBaseName() const;
    /// The unescaped name after its last dot; empty when it has none.
    String GetExtension() const;
    /// Ignores case.
    bool HasExtension(const String& extension) const;
    /// In bytes; -1 when the file does not exist; 0 when it cannot be examined.
    std::int64_t GetSize() const;
    /// The date in the user's long format, a blank, and the time; empty when the file cannot be opened.
    String GetCreationDate() const;
    String GetModificationDate() const;

    /// Gives the object another name in the same folder: its base name, or with `keepOldExtension` its whole
    /// name, then a dot and `extension`; an empty extension takes no dot. With `renameOnDisk` a file that
    /// exists is moved to that name too. The new name is that of a child: nothing in the old name or in
    /// `extension` leads out of the folder. The object takes the new name in any case, and an empty url when
    /// the new one would be too long. False when the file was to be moved and could not be: it is then still
    /// where it was.
    bool ChangeExtension(const String& extension, bool renameOnDisk, bool keepOldExtension);

    /// Removes the file without asking anything, or with `allowUndo` moves it to the user's recycle place.
    /// False when it does not exist or cannot be removed.
    bool Delete(bool allowUndo) const;

    /// Makes the file, empty and for the user alone. False when anything has its name already, even a link
    /// that leads nowhere: after true nobody else has made it or can put another in its place in a folder for
    /// temporary files.
    bool CreateNew() const;
};

} // namespace Nvr
