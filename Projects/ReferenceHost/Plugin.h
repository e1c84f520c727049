#pragma once

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

#include <filesystem>
#include <string>

namespace ReferenceHost {

/// The loaded plug-in, as any host holds it: the library, its five functions, and the records of its start.
/// Unloaded with the object. Not to be copied.
class Plugin {
public:
    Plugin() = default;
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    /// Loads the library and initialises it with the options folder. `hasWindow` says whether this host has a
    /// window (here: its terminal) for the plug-in's dialog; without one nobody is asked. Empty when it went
    /// well, else a sentence that says what is wrong.
    std::string Load(const std::filesystem::path& library, const std::filesystem::path& configFolder,
                     bool hasWindow);

    bool IsLoaded() const { return m_Initialised; }

    /// True when the plug-in took the file. What came of it is told to the host functions.
    bool OpenFile(const std::filesystem::path& file) const;

private:
    void* m_Library = nullptr;
    int (*m_OpenFile)(const char*) = nullptr;
    int (*m_Terminate)() = nullptr;
    bool m_Initialised = false;
    std::string m_ConfigFolder;
};

} // namespace ReferenceHost
