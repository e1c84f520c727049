#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/PosixFile.h"

#include <cerrno>

#include <fcntl.h>

namespace Nvr::Platform {

bool FlushToDisk(const std::string& path) {
    const PosixFile file(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
    // Not every device and file system knows the request.
    return file.IsOpen() && (fsync(file.Get()) == 0 || errno == EINVAL || errno == ENOSYS);
}

} // namespace Nvr::Platform
