// The six functions that the plug-in looks up in the program that loaded it.

#include "Projects/Opening/HostListener.h"

extern "C" {
#define HOST_EXPORT [[gnu::visibility("default"), gnu::used]]

HOST_EXPORT void NVR_LOADTEMPFILE(const char* path) {
    Opening::LoadTempFile(path);
}

HOST_EXPORT void NVR_RESULTSDIALOGMESSAGE(const char* converter, const char* file, int kind, int context1,
                                          int context2, const char* message) {
    Opening::ResultsDialogMessage(converter, file, kind, context1, context2, message);
}

HOST_EXPORT int NVR_UPDATEPROGRESSDIALOG(void* context, int percent, const char* text) {
    return Opening::UpdateProgressDialog(context, percent, text);
}

HOST_EXPORT void NVR_DESTROYPROGRESSDIALOG(void* context) {
    Opening::DestroyProgressDialog(context);
}

HOST_EXPORT void NVR_CREATEPROGRESSDIALOG_2(void* context, const char* title, int lowest, int highest,
                                            int number30) {
    Opening::CreateProgressDialog2(context, title, lowest, highest, number30);
}

HOST_EXPORT intptr_t NVR_CHOOSETRANSPOSINGINSTRUMENTS(intptr_t argument1, intptr_t argument2,
                                                      intptr_t argument3, intptr_t argument4,
                                                      intptr_t argument5, intptr_t argument6,
                                                      intptr_t argument7, intptr_t argument8) {
    return Opening::ChooseTransposingInstruments(argument1, argument2, argument3, argument4, argument5,
                                                 argument6, argument7, argument8);
}
}
