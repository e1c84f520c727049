#pragma once

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

namespace Nvr {

/// The six functions of the host, as far as they are bound; null for one that is not. All are null until a
/// bind, after a failed one, and after ClearHostFunctions.
struct HostFunctionTable {
    NvrLoadTempFile LoadTempFile = nullptr;
    NvrResultsDialogMessage ResultsDialogMessage = nullptr;
    NvrUpdateProgressDialog UpdateProgressDialog = nullptr;
    NvrDestroyProgressDialog DestroyProgressDialog = nullptr;
    NvrCreateProgressDialog2 CreateProgressDialog2 = nullptr;
    NvrChooseTransposingInstruments ChooseTransposingInstruments = nullptr;
};

/// The one table of the process, under its C name NvrHostFunctionTable.
const HostFunctionTable& HostFunctions();

/// Empties the table.
void ClearHostFunctions();

/// Looks the six up in the main executable of the process, in the order of the table, and stops at the first
/// that is missing. False then, with those before it bound: the caller clears the table.
bool BindHostFunctions();

/// The value that goes with every progress call; null until the host has given one.
void* ProgressContext();
void SetProgressContext(void* context);

/// Follows each call of a host function during a conversion: a host may leave the
/// floating-point unit as it likes, and the plug-in goes on with its own state when the call has returned or
/// thrown.
class HostCallGuard {
public:
    HostCallGuard() = default;
    ~HostCallGuard();
    HostCallGuard(const HostCallGuard&) = delete;
    HostCallGuard& operator=(const HostCallGuard&) = delete;
};

} // namespace Nvr

/// For the code that passes calls on without knowing their arguments, which is not written in C++ and reads
/// the sixth pointer from here. All others use the operations above.
extern "C" Nvr::HostFunctionTable NvrHostFunctionTable;
static_assert(offsetof(Nvr::HostFunctionTable, ChooseTransposingInstruments) == 5 * sizeof(void*));
