#include "Shared/Utils/platform/Modules.h"

#include <windows.h>

namespace Nvr::Platform {

namespace {

// A library that cannot be loaded is an answer, and nothing to stop the user for with a box of the system's.
class QuietErrors {
public:
    QuietErrors() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &m_Former); }
    ~QuietErrors() { SetThreadErrorMode(m_Former, nullptr); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    DWORD m_Former = 0;
};

HMODULE Native(ModuleHandle module) {
    return static_cast<HMODULE>(module);
}

} // namespace

ModuleHandle ProcessModule() {
    return GetModuleHandleA(nullptr);
}

ModuleHandle LoadModule(const std::string& path) {
    if (path.empty())
        return nullptr;
    const QuietErrors quiet;
    return LoadLibraryA(path.c_str());
}

void UnloadModule(ModuleHandle module) {
    if (module != nullptr && module != ProcessModule())
        FreeLibrary(Native(module));
}

void* FindFunction(ModuleHandle module, const char* name) {
    if (module == nullptr || name == nullptr)
        return nullptr;
    return reinterpret_cast<void*>(GetProcAddress(Native(module), name));
}

ModuleHandle ModuleOfAddress(const void* address) {
    HMODULE module = nullptr;
    constexpr DWORD kOnlyLook =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (address == nullptr || GetModuleHandleExA(kOnlyLook, static_cast<const char*>(address), &module) == 0)
        return nullptr;
    return module;
}

} // namespace Nvr::Platform
