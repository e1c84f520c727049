#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace Opening {

/// All bytes of a file, which may be a stream; empty when it cannot be read.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path);

} // namespace Opening
