#include "Projects/ReferenceHost/PluginLibrary.h"

#include <dlfcn.h>

namespace ReferenceHost {

namespace {

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

} // namespace

PluginLibrary::Handle::~Handle() {
    if (Get != nullptr)
        dlclose(Get);
}

std::string PluginLibrary::Load(const std::filesystem::path& library,
                                const std::filesystem::path& configFolder, bool hasWindow) {
    m_Library.Get = dlopen(std::filesystem::absolute(library).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_Library.Get == nullptr)
        return std::string("the plug-in cannot be loaded: ") + dlerror();
    Opening::PluginFunctions functions;
    functions.ResourceModule = m_Library.Get;
    if (!Find(m_Library.Get, "NVR_INIT", functions.Initialise) ||
        !Find(m_Library.Get, "NVR_OPENFILE", functions.OpenFile) ||
        !Find(m_Library.Get, "NVR_TERM", functions.Terminate))
        return library.string() + " is not a plug-in of this kind: a function is missing";
    return m_Plugin.Start(functions, configFolder, hasWindow);
}

} // namespace ReferenceHost
