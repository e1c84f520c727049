#include "Shared/Utils/platform/PosixSystem.h"

#include "Shared/Utils/platform/FileServices.h"

namespace Nvr::Platform {

// The files are in memory, and live no longer than the page.
std::optional<std::int64_t> BirthTime(const std::string& /*path*/) {
    return std::nullopt;
}

// The program is no file.
std::string ExecutableFolder() {
    return "/";
}

// There is nobody who could get it back.
bool MoveFileToRecyclePlace(const std::string& /*path*/) {
    return false;
}

} // namespace Nvr::Platform
