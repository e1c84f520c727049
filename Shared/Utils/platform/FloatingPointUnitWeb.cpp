#include "Shared/Utils/platform/FloatingPointUnit.h"

namespace Nvr::Platform {

// Nothing is ever raised here, everything is rounded to nearest, and neither can be changed.

void ResetFloatingPointUnit() {}

std::uint32_t GetFloatingPointUnitMask() {
    return kMaskAll;
}

std::uint64_t GetFloatingPointUnitControl() {
    return kMaskAll;
}

void SetFloatingPointUnitMask(std::uint32_t /*mask*/) {}

} // namespace Nvr::Platform
