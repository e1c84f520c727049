// The functions of exports.list, and nothing else. NVR_CHOOSETRANSPOSINGINSTRUMENTS, whose arguments only its
// caller and the host know, is in the assembly sources PassOn..., one a platform and word size.

#include "Projects/Fretline/shell/OpenFile.h"
#include "Projects/Fretline/shell/PluginState.h"
#include "Shared/NotaveraAPI/HostFunctions.h"

int NVR_INIT(const HostInitRecord* host, PluginInfoRecord* info) {
    if (host == nullptr || info == nullptr)
        return 0;
    return Fretline::InitialisePlugin(*host, *info) ? 1 : 0;
}

int NVR_TERM() {
    Fretline::TerminatePlugin();
    return 1;
}

int NVR_OPENFILE(const char* path) {
    return Fretline::OpenFile(path) ? 1 : 0;
}

void NVR_RESULTSDIALOGMESSAGE(const char* converterName, const char* fileName, int kind, int context1,
                              int context2, const char* message) {
    if (const NvrResultsDialogMessage host = Nvr::HostFunctions().ResultsDialogMessage)
        host(converterName, fileName, kind, context1, context2, message);
}
