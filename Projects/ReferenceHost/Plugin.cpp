#include "Projects/ReferenceHost/Plugin.h"

#include "Projects/ReferenceHost/HostFunctions.h"

#include <dlfcn.h>

namespace ReferenceHost {

namespace {

constexpr std::size_t kLongestConfigFolder = 511;

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

} // namespace

Plugin::~Plugin() {
    if (m_Initialised)
        m_Terminate();
    if (m_Library != nullptr)
        dlclose(m_Library);
}

std::string Plugin::Load(const std::filesystem::path& library, const std::filesystem::path& configFolder,
                         bool hasWindow) {
    m_ConfigFolder = configFolder.string();
    if (m_ConfigFolder.size() > kLongestConfigFolder)
        return "the path of the configuration folder is longer than 511 bytes";
    m_Library = dlopen(std::filesystem::absolute(library).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_Library == nullptr)
        return std::string("the plug-in cannot be loaded: ") + dlerror();
    int (*initialise)(HostInitRecord*, PluginInfoRecord*) = nullptr;
    if (!Find(m_Library, "NVR_INIT", initialise) || !Find(m_Library, "NVR_OPENFILE", m_OpenFile) ||
        !Find(m_Library, "NVR_TERM", m_Terminate))
        return library.string() + " is not a plug-in of this kind: a function is missing";
    HostInitRecord host{};
    // Any handle but null stands for the terminal.
    host.ParentWindow = hasWindow ? this : nullptr;
    host.ResourceModule = m_Library;
    host.ProgressContext = ProgressContext();
    host.ConfigFolder = m_ConfigFolder.c_str();
    PluginInfoRecord info{};
    m_Initialised = initialise(&host, &info) != 0;
    return m_Initialised ? std::string() : "the plug-in does not accept this host";
}

bool Plugin::OpenFile(const std::filesystem::path& file) const {
    return m_OpenFile(file.c_str()) != 0;
}

} // namespace ReferenceHost
