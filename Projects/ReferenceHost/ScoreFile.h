#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ReferenceHost {

/// All bytes of a file; empty when it cannot be read.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path);

/// Writes `bytes` to `target`: into a new file beside it, which takes its place once everything has reached
/// the disk; its folder is made when it is missing. Empty when it went well, else a sentence that says what
/// is wrong; `target` is as it was then.
std::string WriteWholeFile(const std::filesystem::path& target, const std::string& bytes);

} // namespace ReferenceHost
