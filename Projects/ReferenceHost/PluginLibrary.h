#pragma once

#include "Projects/Opening/Plugin.h"

#include <filesystem>
#include <string>

namespace ReferenceHost {

/// The library of the plug-in while it is loaded, and the plug-in that runs in it. Unloaded with the object.
class PluginLibrary {
public:
    PluginLibrary() = default;

    /// Loads the library and starts the plug-in; once. As Opening::Plugin::Start.
    std::string Load(const std::filesystem::path& library, const std::filesystem::path& configFolder,
                     bool hasWindow);

    bool IsLoaded() const { return m_Plugin.IsStarted(); }
    const Opening::Plugin& GetPlugin() const { return m_Plugin; }

private:
    // The plug-in ends before its library goes.
    class Handle {
    public:
        Handle() = default;
        ~Handle();
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        void* Get = nullptr;
    };
    Handle m_Library;
    Opening::Plugin m_Plugin;
};

} // namespace ReferenceHost
