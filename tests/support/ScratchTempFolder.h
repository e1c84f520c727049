#pragma once

#include "tests/support/ScratchFolder.h"

#include <cstdlib>

namespace TestSupport {

/// Makes a ScratchFolder the system's folder for temporary files while it lives.
class ScratchTempFolder : public ScratchFolder {
public:
    ScratchTempFolder() {
        if (const char* const former = std::getenv("TMPDIR"))
            m_Former = former;
        setenv("TMPDIR", Path().c_str(), 1);
    }
    ~ScratchTempFolder() {
        if (m_Former.empty())
            unsetenv("TMPDIR");
        else
            setenv("TMPDIR", m_Former.c_str(), 1);
    }

private:
    std::string m_Former;
};

} // namespace TestSupport
