#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What POSIX leaves to each system, for the POSIX sources of this folder; nothing else includes it. One
/// source a system.
namespace Nvr::Platform {

/// When a file was made, in seconds since 1970 began, UTC; nothing where the system does not keep it.
std::optional<std::int64_t> BirthTime(const std::string& path);

} // namespace Nvr::Platform
