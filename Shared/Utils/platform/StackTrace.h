#pragma once

#include <string>
#include <vector>

namespace Nvr::Platform {

/// The calls that led here, the nearest caller first, one line each: the module, the function as far as its
/// name is exported, and the address. Empty where the platform cannot tell. The caller of this function is
/// the first line.
std::vector<std::string> CaptureStackTrace();

} // namespace Nvr::Platform
