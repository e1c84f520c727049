#include "Shared/Utils/platform/Modules.h"

#include <dlfcn.h>
#include <link.h>

namespace Nvr::Platform {

// The loader's handle of a module is its link map, so handles that the loader gave to others and those found
// from an address compare equal.

ModuleHandle ProcessModule() {
    static const ModuleHandle process = dlopen(nullptr, RTLD_LAZY);
    return process;
}

ModuleHandle LoadModule(const std::string& path) {
    // An empty name would give the main executable.
    if (path.empty())
        return nullptr;
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void UnloadModule(ModuleHandle module) {
    if (module != nullptr && module != ProcessModule())
        dlclose(module);
}

void* FindFunction(ModuleHandle module, const char* name) {
    if (module == nullptr || name == nullptr)
        return nullptr;
    // The search begins with the module itself and goes on through what it depends on, or, for the process,
    // through all that is loaded for everybody: what comes from there is not the module's.
    void* const found = dlsym(module, name);
    return found != nullptr && ModuleOfAddress(found) == module ? found : nullptr;
}

ModuleHandle ModuleOfAddress(const void* address) {
    Dl_info info{};
    void* map = nullptr;
    if (address == nullptr || dladdr1(address, &info, &map, RTLD_DL_LINKMAP) == 0)
        return nullptr;
    return map;
}

} // namespace Nvr::Platform
