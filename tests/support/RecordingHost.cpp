#include "tests/support/RecordingHost.h"

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

#include <dlfcn.h>

namespace TestSupport {

RecordingHost::RecordingHost(const std::filesystem::path& library, const std::filesystem::path& configFolder)
    : m_ConfigFolder(configFolder.string()) {
    m_Library = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_Library == nullptr)
        return;
    const auto initialise =
        reinterpret_cast<int (*)(HostInitRecord*, PluginInfoRecord*)>(dlsym(m_Library, "NVR_INIT"));
    m_OpenFile = reinterpret_cast<int (*)(const char*)>(dlsym(m_Library, "NVR_OPENFILE"));
    m_Terminate = reinterpret_cast<int (*)()>(dlsym(m_Library, "NVR_TERM"));
    HostInitRecord record{};
    record.ResourceModule = m_Library;
    record.ProgressContext = m_Host.Context();
    record.ConfigFolder = m_ConfigFolder.c_str();
    PluginInfoRecord info{};
    m_Ready = initialise != nullptr && m_OpenFile != nullptr && m_Terminate != nullptr &&
              initialise(&record, &info) == 1;
}

RecordingHost::~RecordingHost() {
    if (m_Terminate != nullptr)
        m_Terminate();
    if (m_Library != nullptr)
        dlclose(m_Library);
}

int RecordingHost::Open(const std::filesystem::path& file) {
    m_Host.Calls.clear();
    m_Host.LoadedBytes.clear();
    return m_OpenFile(file.c_str());
}

} // namespace TestSupport
