#include "Projects/Opening/Plugin.h"

#include "Projects/Opening/HostListener.h"

namespace Opening {

namespace {
constexpr std::size_t kLongestConfigFolder = 511;
}

Plugin::~Plugin() {
    if (m_IsStarted)
        m_Functions.Terminate();
}

std::string Plugin::Start(const PluginFunctions& functions, const std::filesystem::path& configFolder,
                          bool hasWindow) {
    m_ConfigFolder = configFolder.string();
    if (m_ConfigFolder.size() > kLongestConfigFolder)
        return "the path of the configuration folder is longer than 511 bytes";
    m_Functions = functions;
    HostInitRecord host{};
    // Any handle but null stands for the terminal.
    host.ParentWindow = hasWindow ? this : nullptr;
    host.ResourceModule = m_Functions.ResourceModule;
    host.ProgressContext = ProgressContext();
    host.ConfigFolder = m_ConfigFolder.c_str();
    PluginInfoRecord info{};
    m_IsStarted = m_Functions.Initialise(&host, &info) != 0;
    return m_IsStarted ? std::string() : "the plug-in does not accept this host";
}

bool Plugin::OpenFile(const std::filesystem::path& file) const {
    return m_Functions.OpenFile(file.c_str()) != 0;
}

} // namespace Opening
