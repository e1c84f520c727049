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

// Nobody else sees the files, so nobody is there to predict a name; it only has to be a new one.
std::uint64_t UnguessableNumber() {
    static std::uint64_t last = 0;
    return ++last;
}

// There is nobody who could get it back.
bool MoveFileToRecyclePlace(const std::string& /*path*/) {
    return false;
}

} // namespace Nvr::Platform
