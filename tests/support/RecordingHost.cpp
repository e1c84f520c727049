#include "tests/support/RecordingHost.h"

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

namespace TestSupport {

RecordingHost::RecordingHost(const std::string& library, const std::string& configFolder, void* parentWindow,
                             std::optional<Nvr::Platform::ModuleHandle> resources)
    : m_Library(Nvr::String(library.c_str())) {
    const auto initialise = m_Library.GetFunctionAs<int(HostInitRecord*, PluginInfoRecord*)>("NVR_INIT");
    m_OpenFile = m_Library.GetFunctionAs<int(const char*)>("NVR_OPENFILE");
    m_Terminate = m_Library.GetFunctionAs<int()>("NVR_TERM");
    HostInitRecord record{};
    record.ParentWindow = parentWindow;
    record.ResourceModule = resources.value_or(m_Library.GetModule());
    record.ProgressContext = m_Host.Context();
    record.ConfigFolder = configFolder.c_str();
    PluginInfoRecord info{};
    m_Ready = initialise != nullptr && m_OpenFile != nullptr && m_Terminate != nullptr &&
              initialise(&record, &info) == 1;
}

RecordingHost::~RecordingHost() {
    if (m_Terminate != nullptr)
        m_Terminate();
}

int RecordingHost::Open(const std::string& file) {
    m_Host.Calls.clear();
    m_Host.LoadedBytes.clear();
    return m_OpenFile(file.c_str());
}

} // namespace TestSupport
