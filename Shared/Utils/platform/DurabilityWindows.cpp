#include "Shared/Utils/platform/FileServices.h"

#include <fcntl.h>
#include <io.h>

namespace Nvr::Platform {

bool FlushToDisk(const std::string& path) {
    const int file = _open(path.c_str(), _O_WRONLY | _O_BINARY);
    if (file < 0)
        return false;
    const bool isFlushed = _commit(file) == 0;
    return _close(file) == 0 && isFlushed;
}

} // namespace Nvr::Platform
