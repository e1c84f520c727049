#include "Projects/ReferenceHost/HostFunctions.h"

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

namespace ReferenceHost {

namespace {
HostListener* g_listener = nullptr;
char g_progressTag = 0;

std::string TextOrEmpty(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}
} // namespace

void SetHostListener(HostListener* listener) {
    g_listener = listener;
}

void* ProgressContext() {
    return &g_progressTag;
}

} // namespace ReferenceHost

// The six functions that the plug-in looks up in the program that loaded it.
extern "C" {
#define HOST_EXPORT [[gnu::visibility("default"), gnu::used]]

HOST_EXPORT void NVR_LOADTEMPFILE(const char* path) {
    if (ReferenceHost::g_listener != nullptr)
        ReferenceHost::g_listener->OnScore(ReferenceHost::TextOrEmpty(path));
}

HOST_EXPORT void NVR_RESULTSDIALOGMESSAGE(const char* /*converter*/, const char* /*file*/, int /*kind*/,
                                          int /*context1*/, int /*context2*/, const char* message) {
    if (ReferenceHost::g_listener != nullptr)
        ReferenceHost::g_listener->OnMessage(ReferenceHost::TextOrEmpty(message));
}

HOST_EXPORT int NVR_UPDATEPROGRESSDIALOG(void* /*context*/, int percent, const char* /*text*/) {
    return ReferenceHost::g_listener == nullptr || ReferenceHost::g_listener->OnProgress(percent) ? 1 : 0;
}

HOST_EXPORT void NVR_DESTROYPROGRESSDIALOG(void* /*context*/) {
    if (ReferenceHost::g_listener != nullptr)
        ReferenceHost::g_listener->OnProgressEnd();
}

HOST_EXPORT void NVR_CREATEPROGRESSDIALOG_2(void* /*context*/, const char* title, int /*lowest*/,
                                            int /*highest*/, int /*width*/) {
    if (ReferenceHost::g_listener != nullptr)
        ReferenceHost::g_listener->OnProgressBegin(ReferenceHost::TextOrEmpty(title));
}

// No tab asks for transposing instruments: nothing to choose.
HOST_EXPORT intptr_t NVR_CHOOSETRANSPOSINGINSTRUMENTS(intptr_t /*1*/, intptr_t /*2*/, intptr_t /*3*/,
                                                      intptr_t /*4*/, intptr_t /*5*/, intptr_t /*6*/,
                                                      intptr_t /*7*/, intptr_t /*8*/) {
    return 0;
}
}
