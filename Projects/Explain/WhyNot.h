#pragma once

#include <filesystem>
#include <string>

namespace Explain {

/// Says why the plug-in did not take a file, as the end of a sentence that begins with its name. Looks at the
/// file as the plug-in does.
std::string WhyNotTaken(const std::filesystem::path& file);

/// True when the text of the file, whatever its extension, is tab and holds a stave that can be read. `file`
/// is absolute or relative to the current folder.
bool HoldsStave(const std::filesystem::path& file);

/// Says the same of a file that was taken and gave no score.
std::string WhyNoScore(const std::filesystem::path& file);

} // namespace Explain
