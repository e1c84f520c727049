// The functions of exports.list, and nothing else.

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

std::intptr_t NVR_CHOOSETRANSPOSINGINSTRUMENTS(std::intptr_t argument1, std::intptr_t argument2,
                                               std::intptr_t argument3, std::intptr_t argument4,
                                               std::intptr_t argument5, std::intptr_t argument6,
                                               std::intptr_t argument7, std::intptr_t argument8) {
    const NvrChooseTransposingInstruments host = Nvr::HostFunctions().ChooseTransposingInstruments;
    if (host == nullptr)
        return 0;
    return host(argument1, argument2, argument3, argument4, argument5, argument6, argument7, argument8);
}
