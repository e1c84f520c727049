#include "Shared/Utils/platform/StackTrace.h"

namespace Nvr::Platform {

// The calls are the engine's own business.
std::vector<std::string> CaptureStackTrace() {
    return {};
}

} // namespace Nvr::Platform
