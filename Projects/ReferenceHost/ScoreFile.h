#pragma once

#include <filesystem>
#include <string>

namespace ReferenceHost {

/// Writes `bytes` to `target`: into a new file beside it, which takes its place once everything has reached
/// the disk; its folder is made when it is missing. Empty when it went well, else a sentence that says what
/// is wrong; `target` is as it was then.
std::string WriteWholeFile(const std::filesystem::path& target, const std::string& bytes);

} // namespace ReferenceHost
