#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/PosixFile.h"

#include <cerrno>

#include <fcntl.h>

namespace Nvr::Platform {

namespace {

bool Flush(const std::string& path, int access) {
    const PosixFile file(open(path.c_str(), access | O_NONBLOCK | O_CLOEXEC));
    // Not every device and file system knows the request.
    return file.IsOpen() && (fsync(file.Get()) == 0 || errno == EINVAL || errno == ENOSYS);
}

} // namespace

bool FlushToDisk(const std::string& path) {
    return Flush(path, O_WRONLY) && Flush(FolderOfPath(path), O_RDONLY | O_DIRECTORY);
}

} // namespace Nvr::Platform
