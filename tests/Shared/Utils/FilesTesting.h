#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <unistd.h>

/// What the tests of files share.
namespace FilesTesting {

/// A folder of the test's own, gone with the object.
class Scratch {
public:
    Scratch() {
        std::string pattern = "/tmp/fretline-files-XXXXXX";
        m_Path = mkdtemp(pattern.data());
    }
    ~Scratch() { std::filesystem::remove_all(m_Path); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string Path() const { return m_Path.string(); }
    std::string Path(const std::string& name) const { return (m_Path / name).string(); }
    Nvr::String PathText(const std::string& name) const { return Nvr::String(Path(name)); }
    /// Makes a file; gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    std::size_t CountEntries() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_Path),
                                                      std::filesystem::directory_iterator()));
    }

private:
    std::filesystem::path m_Path;
};

inline std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::string Text(const Nvr::String& text) {
    return std::string(text.View());
}

inline unsigned RightsOf(const std::string& path) {
    return static_cast<unsigned>(std::filesystem::status(path).permissions());
}

/// Sets an environment variable, or takes it away, while it lives.
class Environment {
public:
    Environment(const char* name, const std::optional<std::string>& value) : m_Name(name) {
        if (const char* const former = std::getenv(name))
            m_Former = former;
        Set(value);
    }
    ~Environment() { Set(m_Former); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    void Set(const std::optional<std::string>& value) const {
        if (value)
            setenv(m_Name, value->c_str(), 1);
        else
            unsetenv(m_Name);
    }

    const char* m_Name;
    std::optional<std::string> m_Former;
};

/// Makes the process one without rights while it lives; the tests may run as the one who may everything.
class AsNobody {
public:
    AsNobody() : m_Former(geteuid()) {
        if (m_Former == 0)
            m_Failed = seteuid(kNobody) != 0;
    }
    ~AsNobody() {
        if (m_Former == 0 && seteuid(m_Former) != 0)
            std::abort();
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    bool Failed() const { return m_Failed; }

private:
    static constexpr uid_t kNobody = 65534;
    uid_t m_Former;
    bool m_Failed = false;
};

} // namespace FilesTesting
