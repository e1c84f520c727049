#pragma once

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

#include <filesystem>
#include <string>

namespace Opening {

/// The functions of a plug-in that a host calls, wherever they come from: a library that was loaded, or the
/// program itself. They must stay callable as long as a Plugin uses them.
struct PluginFunctions {
    decltype(&NVR_INIT) Initialise = nullptr;
    decltype(&NVR_OPENFILE) OpenFile = nullptr;
    decltype(&NVR_TERM) Terminate = nullptr;
    /// As HostInitRecord::ResourceModule.
    void* ResourceModule = nullptr;
};

/// The running plug-in, as any host holds it: its functions, and the records of its start. Terminated with
/// the object. Not to be copied.
class Plugin {
public:
    Plugin() = default;
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    /// Initialises it with the options folder; once. `hasWindow` says whether this host has a window (such as
    /// its terminal) for the plug-in's dialog; without one nobody is asked. Empty when it went well, else a
    /// sentence that says what is wrong.
    std::string Start(const PluginFunctions& functions, const std::filesystem::path& configFolder,
                      bool hasWindow);

    bool IsStarted() const { return m_IsStarted; }

    /// REQUIRES: IsStarted. True when the plug-in took the file. What came of it is told to the host
    /// functions.
    bool OpenFile(const std::filesystem::path& file) const;

private:
    PluginFunctions m_Functions;
    bool m_IsStarted = false;
    std::string m_ConfigFolder;
};

} // namespace Opening
