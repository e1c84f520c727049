#include "tests/support/Environment.h"

namespace TestSupport {

const char* const kTempFolderVariable = "TMPDIR";

void Environment::Set(const std::optional<std::string>& value) const {
    if (value)
        setenv(m_Name, value->c_str(), 1);
    else
        unsetenv(m_Name);
}

} // namespace TestSupport
