#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ReferenceHost {

/// Makes the folder of the options file when it is missing and stores the rhythm level in it when one is
/// given; other options stay. Empty when it went well, else a sentence that says what is wrong.
std::string PrepareOptions(const std::filesystem::path& configFolder, const std::optional<int>& rhythmLevel);

} // namespace ReferenceHost
