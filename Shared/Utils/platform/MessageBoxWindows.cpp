#include "Shared/Utils/platform/MessageBox.h"

#include <cstdio>
#include <windows.h>

namespace Nvr::Platform {

bool ShowInformationBox(const std::string& title, const std::string& text) {
    if (MessageBoxA(nullptr, text.c_str(), title.c_str(), MB_OK | MB_ICONINFORMATION | MB_TASKMODAL) > 0)
        return true;
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
    return false;
}

} // namespace Nvr::Platform
