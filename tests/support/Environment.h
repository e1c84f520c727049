#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace TestSupport {

/// The variable by which a user chooses the folder for temporary files.
extern const char* const kTempFolderVariable;

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
    void Set(const std::optional<std::string>& value) const;

    const char* m_Name;
    std::optional<std::string> m_Former;
};

} // namespace TestSupport
