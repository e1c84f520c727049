#pragma once

#include "Shared/Utils/DiskFolder.h"

/// Where the platform keeps things. A place that the platform does not have is a folder with an empty url.
namespace Nvr {

/// For temporary files. `ok` tells whether it exists.
DiskFolder TempFolder(bool& ok);

/// Holds the executable of the process.
DiskFolder ApplicationFolder();

/// Application data of the user. With `first` the sub-folder "Notavera Software" of it, with `second` the
/// sub-folder "Notavera" of that, or of it. Not created.
DiskFolder UserDataFolder(bool first, bool second);
/// The same for all users.
DiskFolder CommonDataFolder(bool first, bool second);

/// "Notavera Software" under the user's application data, then "Logs"; both created if missing.
DiskFolder LogsFolder();

} // namespace Nvr
