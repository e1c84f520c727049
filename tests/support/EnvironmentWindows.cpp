#include "tests/support/Environment.h"

namespace TestSupport {

const char* const kTempFolderVariable = "TMP";

void Environment::Set(const std::optional<std::string>& value) const {
    // An empty value takes the variable away.
    _putenv_s(m_Name, value.value_or("").c_str());
}

} // namespace TestSupport
