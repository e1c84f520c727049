#pragma once

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>

namespace TestSupport {

/// While it lives, no file of this process can grow beyond `bytes`: a write past that fails as on a full
/// disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : m_FormerHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        if (getrlimit(RLIMIT_FSIZE, &m_Former) != 0)
            std::abort();
        const rlimit small{bytes, m_Former.rlim_max};
        if (setrlimit(RLIMIT_FSIZE, &small) != 0)
            std::abort();
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_Former);
        std::signal(SIGXFSZ, m_FormerHandler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*m_FormerHandler)(int);
    rlimit m_Former{};
};

} // namespace TestSupport
