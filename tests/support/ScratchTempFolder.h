#pragma once

#include "tests/support/Environment.h"
#include "tests/support/ScratchFolder.h"

namespace TestSupport {

/// Makes a ScratchFolder the system's folder for temporary files while it lives.
class ScratchTempFolder : public ScratchFolder {
private:
    Environment m_Temp{kTempFolderVariable, Path().string()};
};

} // namespace TestSupport
