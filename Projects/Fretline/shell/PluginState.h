#pragma once

#include "Shared/NotaveraAPI/NotaveraPlugin.h"
#include "Shared/NotaveraAPI/PluginOutput.h"

#include <array>
#include <memory>

namespace Fretline {

/// What the plug-in keeps from one call of the host to the next, once for the process. The host functions and
/// the progress context are kept by Shared/NotaveraAPI/HostFunctions.h, the resource module by ResId.
struct PluginState {
    PluginState() = default;
    ~PluginState();
    PluginState(const PluginState&) = delete;
    PluginState& operator=(const PluginState&) = delete;

    /// Native handle of the window that owns the options dialog; null for none.
    void* ParentWindow = nullptr;
    /// Path of the folder with the options file; empty until the host has named one.
    std::array<char, 512> ConfigFolder{};
    /// From a successful start to the end. A conversion holds it too, should the end come during it.
    std::shared_ptr<Nvr::PluginOutput> Output;
    /// 1 while a conversion runs: turns away an open from inside of it.
    int ConversionInProgress = 0;
};

PluginState& GetPluginState();

/// The plug-in's output, or without a successful start one that has no host to speak to: a conversion then
/// ends at its first progress report.
std::shared_ptr<Nvr::PluginOutput> OutputOrStandIn();

/// Start-up: floating point, failed allocations, host functions, what `host` names. `info` is filled
/// whatever happens. False when the host lacks a function, or memory fails; none is bound then.
bool InitialisePlugin(const HostInitRecord& host, PluginInfoRecord& info) noexcept;

/// Gives up the output and the host functions. May be called in any state, also twice.
void TerminatePlugin() noexcept;

} // namespace Fretline
