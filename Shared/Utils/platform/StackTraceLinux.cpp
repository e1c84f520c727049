#include "Shared/Utils/platform/StackTrace.h"

#include <array>
#include <cstdlib>
#include <execinfo.h>
#include <memory>

namespace Nvr::Platform {

std::vector<std::string> CaptureStackTrace() {
    constexpr int kDeepestTrace = 64;
    constexpr int kThisFunction = 1;
    std::array<void*, kDeepestTrace> frames{};
    const int count = backtrace(frames.data(), kDeepestTrace);
    const auto release = [](char** lines) { std::free(lines); };
    const std::unique_ptr<char*, decltype(release)> lines(backtrace_symbols(frames.data(), count), release);
    if (lines == nullptr || count <= kThisFunction)
        return {};
    return {lines.get() + kThisFunction, lines.get() + count};
}

} // namespace Nvr::Platform
