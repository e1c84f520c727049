#include "Projects/Opening/HostListener.h"

namespace Opening {

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

void LoadTempFile(const char* path) {
    if (g_listener != nullptr)
        g_listener->OnScore(TextOrEmpty(path));
}

void ResultsDialogMessage(const char* /*converter*/, const char* /*file*/, int /*kind*/, int /*context1*/,
                          int /*context2*/, const char* message) {
    if (g_listener != nullptr)
        g_listener->OnMessage(TextOrEmpty(message));
}

int UpdateProgressDialog(void* /*context*/, int percent, const char* /*text*/) {
    return g_listener == nullptr || g_listener->OnProgress(percent) ? 1 : 0;
}

void DestroyProgressDialog(void* /*context*/) {
    if (g_listener != nullptr)
        g_listener->OnProgressEnd();
}

void CreateProgressDialog2(void* /*context*/, const char* title, int /*lowest*/, int /*highest*/,
                           int /*number30*/) {
    if (g_listener != nullptr)
        g_listener->OnProgressBegin(TextOrEmpty(title));
}

intptr_t ChooseTransposingInstruments(intptr_t /*1*/, intptr_t /*2*/, intptr_t /*3*/, intptr_t /*4*/,
                                      intptr_t /*5*/, intptr_t /*6*/, intptr_t /*7*/, intptr_t /*8*/) {
    return 0;
}

} // namespace Opening
