#include "Projects/Fretline/shell/OpenFile.h"

#include "Projects/Fretline/resources/ResourceNumbers.h"
#include "Projects/Fretline/shell/ConvertFile.h"
#include "Projects/Fretline/shell/IsTabFile.h"
#include "Projects/Fretline/shell/PluginState.h"
#include "Projects/Fretline/shell/ShowOptions.h"
#include "Projects/Fretline/shell/TemporaryFile.h"
#include "Shared/NotaveraAPI/HostFunctions.h"
#include "Shared/Utils/DiskFile.h"
#include "Shared/Utils/Exceptions.h"
#include "Shared/Utils/FloatingPoint.h"
#include "Shared/Utils/ResId.h"
#include "Shared/Utils/tree/TreeNode.h"

namespace Fretline {

using Nvr::HostFunctions;
using Nvr::String;

namespace {

constexpr int kNoContext = -2;

// What the host's progress dialog is created with.
constexpr int kLowestPercent = 0;
constexpr int kHighestPercent = 100;
constexpr int kLastDialogNumber = 30;

void CreateProgressDialog() {
    const String title{Nvr::ResId(kProgressTitleResource)};
    const Nvr::HostCallGuard guard;
    if (HostFunctions().CreateProgressDialog2 != nullptr)
        HostFunctions().CreateProgressDialog2(Nvr::ProgressContext(), title.CStr(), kLowestPercent,
                                              kHighestPercent, kLastDialogNumber);
}

// Its answer is not looked at: the dialog has only just come, or is about to go.
void UpdateProgressDialog(int percent) {
    const Nvr::HostCallGuard guard;
    if (HostFunctions().UpdateProgressDialog != nullptr)
        HostFunctions().UpdateProgressDialog(Nvr::ProgressContext(), percent, "");
}

void DestroyProgressDialog() {
    const Nvr::HostCallGuard guard;
    if (HostFunctions().DestroyProgressDialog != nullptr)
        HostFunctions().DestroyProgressDialog(Nvr::ProgressContext());
}

void LoadScore(const String& path) {
    const Nvr::HostCallGuard guard;
    if (HostFunctions().LoadTempFile != nullptr)
        HostFunctions().LoadTempFile(path.CStr());
}

// A step that must not keep the next one from running, whatever it throws.
template <class Step>
void RunShielded(Step step) noexcept {
    try {
        step();
    } catch (...) {
        // The host's own failure, or want of memory: there is nobody to tell.
    }
}

// Runs at the end of every open that got past the test of the file.
class ClosingSequence {
public:
    ClosingSequence() = default;
    ~ClosingSequence() {
        RunShielded([] { UpdateProgressDialog(kHighestPercent); });
        RunShielded(DestroyProgressDialog);
        RunShielded(Nvr::ClearNodeStringTable);
        RunShielded(Nvr::ResetFloatingPoint);
        GetPluginState().ConversionInProgress = 0;
    }
    ClosingSequence(const ClosingSequence&) = delete;
    ClosingSequence& operator=(const ClosingSequence&) = delete;
};

void SetUpOutput(Nvr::PluginOutput& output, const String& fileName) {
    output.SetConverterName("Fretline Import");
    output.SetFileName(fileName);
    output.SetContext1(kNoContext);
    output.SetContext2(kNoContext);
    output.SetContext3(kNoContext);
}

void ConvertAndLoad(const String& path) {
    TemporaryFile score;
    if (ConvertFile(path, score.Path(), GetPluginState().ConfigFolder.data()) != 0)
        LoadScore(score.Path());
}

void OpenTabFile(const String& path) {
    const String fileName = Nvr::DiskFile(path).GetFileName(true);
    const std::shared_ptr<Nvr::PluginOutput> output = OutputOrStandIn();
    SetUpOutput(*output, fileName);
    Nvr::ResetFloatingPoint();
    if (!ShowOptions(GetPluginState().ParentWindow, GetPluginState().ConfigFolder.data()))
        return;
    CreateProgressDialog();
    UpdateProgressDialog(kLowestPercent);
    GetPluginState().ConversionInProgress = 1;
    // Another file may have been opened and converted from inside the dialogs.
    SetUpOutput(*output, fileName);
    ConvertAndLoad(path);
}

bool IsOurs(const char* path) noexcept {
    try {
        return path != nullptr && IsTabFile(path);
    } catch (...) {
        return false;
    }
}

} // namespace

bool OpenFile(const char* path) noexcept {
    const bool accepted = IsOurs(path);
    if (GetPluginState().ConversionInProgress != 0 || !accepted)
        return accepted;
    const ClosingSequence closing;
    try {
        OpenTabFile(path);
    } catch (const Nvr::OutOfMemoryException&) {
        // The closing sequence is all that can be done.
    } catch (const std::exception&) {
        RunShielded(Nvr::ResetFloatingPoint);
    } catch (...) {
        // The user's cancel among them.
        RunShielded(Nvr::ResetFloatingPoint);
    }
    return accepted;
}

} // namespace Fretline
