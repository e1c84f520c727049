#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace TestSupport {

inline unsigned RightsOf(const std::string& path) {
    return static_cast<unsigned>(std::filesystem::status(path).permissions());
}

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

} // namespace TestSupport
