#include "Shared/Utils/platform/PosixSystem.h"

#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/PosixFile.h"

#include <climits>
#include <random>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace Nvr::Platform {

std::optional<std::int64_t> BirthTime(const std::string& path) {
    struct statx birth {};
    if (statx(AT_FDCWD, path.c_str(), 0, STATX_BTIME, &birth) != 0 || (birth.stx_mask & STATX_BTIME) == 0)
        return std::nullopt;
    return birth.stx_btime.tv_sec;
}

std::string ExecutableFolder() {
    // As long as a path can be.
    std::vector<char> path(PATH_MAX);
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0)
        return {};
    return FolderOfPath(std::string(path.data(), static_cast<std::size_t>(length)));
}

std::uint64_t UnguessableNumber() {
    std::uint64_t number = 0;
    if (getentropy(&number, sizeof number) == 0)
        return number;
    std::random_device device;
    return std::uniform_int_distribution<std::uint64_t>()(device);
}

} // namespace Nvr::Platform
