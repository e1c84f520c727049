#include "Projects/Fretline/shell/PluginState.h"

#include "Projects/Fretline/shell/FileTypes.h"
#include "Shared/NotaveraAPI/HostFunctions.h"
#include "Shared/Utils/AllocationFailure.h"
#include "Shared/Utils/FloatingPoint.h"
#include "Shared/Utils/ResId.h"

#include <algorithm>
#include <string_view>

namespace Fretline {

namespace {

// What the host makes of it is not known here.
constexpr std::int32_t kLastWordOfInfo = 8;

bool BindAllOrNone() {
    Nvr::ClearHostFunctions();
    if (Nvr::BindHostFunctions())
        return true;
    Nvr::ClearHostFunctions();
    return false;
}

void KeepConfigFolder(const char* path) {
    std::array<char, 512>& folder = GetPluginState().ConfigFolder;
    folder.fill('\0');
    const std::string_view text = path != nullptr ? std::string_view(path) : std::string_view();
    std::copy_n(text.begin(), std::min(text.size(), folder.size() - 1), folder.begin());
}

void Describe(PluginInfoRecord& info) {
    info.FileTypeCount = static_cast<std::int32_t>(FileTypeTable.size());
    info.FileTypes = FileTypeTable.data();
    info.Eight = kLastWordOfInfo;
}

void MakeOutput() {
    std::shared_ptr<Nvr::PluginOutput>& output = GetPluginState().Output;
    if (output == nullptr)
        output = std::make_shared<Nvr::PluginOutput>(Nvr::String(), Nvr::String());
}

} // namespace

PluginState::~PluginState() {
    // The handler is code of this module, and the module may be on its way out.
    Nvr::RemoveAllocationFailureHandler();
}

PluginState& GetPluginState() {
    static PluginState state;
    return state;
}

std::shared_ptr<Nvr::PluginOutput> OutputOrStandIn() {
    const std::shared_ptr<Nvr::PluginOutput>& output = GetPluginState().Output;
    return output != nullptr ? output : std::make_shared<Nvr::PluginOutput>(Nvr::String(), Nvr::String());
}

bool InitialisePlugin(const HostInitRecord& host, PluginInfoRecord& info) noexcept {
    Describe(info);
    try {
        Nvr::InitFloatingPoint();
        Nvr::InstallAllocationFailureHandler();
        const bool isBound = BindAllOrNone();
        KeepConfigFolder(host.ConfigFolder);
        Nvr::ResId::SetResourceModule(host.ResourceModule);
        GetPluginState().ParentWindow = host.ParentWindow;
        Nvr::SetProgressContext(host.ProgressContext);
        if (isBound)
            MakeOutput();
        return isBound;
    } catch (...) {
        Nvr::ClearHostFunctions();
        return false;
    }
}

void TerminatePlugin() noexcept {
    GetPluginState().Output.reset();
    Nvr::ClearHostFunctions();
    Nvr::RemoveAllocationFailureHandler();
}

} // namespace Fretline
