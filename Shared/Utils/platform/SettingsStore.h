#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The system's store of settings: keys in a tree, each with a name and a default value that may be missing.
/// One source a platform; docs/settings.md says where it is and how it is written.
namespace Nvr::Platform {

enum class SettingsBranch { Machine, User };

/// One key of a subtree that was read.
struct SettingsKey {
    /// 0 for the key that was asked for, 1 for its sub-keys, and so on.
    std::size_t Depth;
    std::string Name;
    /// Empty also when the value is missing or is no text.
    std::string Value;
};

/// The key at the end of `path`, names from the top downward, with all keys below it: each followed by its
/// sub-keys, in the store's order. Empty when there is no such key or the store cannot be read; that is no
/// failure. What a store holds of exaggerated size or depth is left out.
std::vector<SettingsKey> ReadSettingsKey(SettingsBranch branch, const std::vector<std::string>& path);

} // namespace Nvr::Platform
