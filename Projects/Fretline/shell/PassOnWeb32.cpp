// NVR_CHOOSETRANSPOSINGINSTRUMENTS in a WebAssembly module, where a call through a pointer has to have the
// type of the function that it reaches: the arguments that are passed on are the declared ones.

#include "Shared/NotaveraAPI/HostFunctions.h"

intptr_t NVR_CHOOSETRANSPOSINGINSTRUMENTS(intptr_t argument1, intptr_t argument2, intptr_t argument3,
                                          intptr_t argument4, intptr_t argument5, intptr_t argument6,
                                          intptr_t argument7, intptr_t argument8) {
    const NvrChooseTransposingInstruments host = Nvr::HostFunctions().ChooseTransposingInstruments;
    return host == nullptr
               ? 0
               : host(argument1, argument2, argument3, argument4, argument5, argument6, argument7, argument8);
}
