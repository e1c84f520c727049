#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

/// The system's store of settings while it lives: empty at first, and the test's own.
class StoredSettings {
public:
    /// Names of sub-keys, which may be paths, and their default values.
    using Values = std::vector<std::pair<std::string, std::string>>;

    StoredSettings();
    ~StoredSettings();
    StoredSettings(const StoredSettings&) = delete;
    StoredSettings& operator=(const StoredSettings&) = delete;

    /// Puts keys below the key at the path `group`, for this user or for the whole machine.
    void Store(const std::string& group, const Values& values, bool forUser = true);

private:
    struct Place;
    std::unique_ptr<Place> m_Place;
};

} // namespace TestSupport
