#pragma once

#include "Shared/Utils/DiskFile.h"
#include "Shared/Utils/DiskFolder.h"

/// Names that no other file has.
namespace Nvr {

/// Makes an empty file in `TempFolder`, for the user alone: "nv", a number that nobody can predict, ".tmp".
/// An empty url when the folder is missing or takes no file. The caller deletes it.
///
/// Whoever writes a second file beside it (the same name, another extension) makes that with
/// `DiskFile::CreateNew` first: in a folder that others can write to, they may have seen the first name.
DiskFile CreateTempFile();
/// The same in a folder of the caller's choice.
DiskFile CreateTempFile(const DiskFolder& folder);
/// The first, with the file's native path, for those who have to delete it whatever happens: from the moment
/// when the file is there `path` names it. Unchanged when none was made, also by an exception.
DiskFile CreateTempFile(String& path);

/// A name in the folder under which no file exists, "temp" and ten digits. The file is not created. An empty
/// url when there is no folder, or when 5000 tries have found no free name.
DiskFile UniqueFile(const DiskFolder& folder);

} // namespace Nvr
