#include "Shared/NotaveraAPI/HostFunctions.h"

#include "Shared/Utils/Dynalink.h"
#include "Shared/Utils/FloatingPoint.h"

Nvr::HostFunctionTable NvrHostFunctionTable;

namespace Nvr {

namespace {

void* s_ProgressContext = nullptr;

template <class Function>
bool Bind(const Dynalink& host, const char* name, Function& function) {
    function = reinterpret_cast<Function>(host.GetFunction(name));
    return function != nullptr;
}

} // namespace

const HostFunctionTable& HostFunctions() {
    return NvrHostFunctionTable;
}

void ClearHostFunctions() {
    NvrHostFunctionTable = {};
}

bool BindHostFunctions() {
    const Dynalink host;
    HostFunctionTable& table = NvrHostFunctionTable;
    return Bind(host, "NVR_LOADTEMPFILE", table.LoadTempFile) &&
           Bind(host, "NVR_RESULTSDIALOGMESSAGE", table.ResultsDialogMessage) &&
           Bind(host, "NVR_UPDATEPROGRESSDIALOG", table.UpdateProgressDialog) &&
           Bind(host, "NVR_DESTROYPROGRESSDIALOG", table.DestroyProgressDialog) &&
           Bind(host, "NVR_CREATEPROGRESSDIALOG_2", table.CreateProgressDialog2) &&
           Bind(host, "NVR_CHOOSETRANSPOSINGINSTRUMENTS", table.ChooseTransposingInstruments);
}

HostCallGuard::~HostCallGuard() {
    ResetFloatingPoint();
}

void* ProgressContext() {
    return s_ProgressContext;
}

void SetProgressContext(void* context) {
    s_ProgressContext = context;
}

} // namespace Nvr
