#pragma once

#include <filesystem>
#include <string>

namespace Opening {

/// The file of the plug-in's options in a folder for them.
std::filesystem::path OptionsFileIn(const std::filesystem::path& folder);

/// Stores how far rhythms are to be imported, as the plug-in's own dialog does. Empty when it went well, else
/// a sentence that says what is wrong.
std::string StoreRhythmLevel(const std::filesystem::path& folder, int level);

} // namespace Opening
