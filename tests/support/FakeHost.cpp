#include "tests/support/FakeHost.h"

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

TestSupport::FakeHost* g_host = nullptr;

int Hear(const std::string& call) {
    if (g_host == nullptr)
        return 1;
    g_host->Calls.push_back(call);
    return g_host->Answer ? g_host->Answer() : 1;
}

std::string Checked(const void* context, const std::string& call) {
    return g_host == nullptr || context == g_host->Context() ? call : call + " wrong context";
}

} // namespace

namespace TestSupport {

FakeHost::FakeHost() {
    g_host = this;
}

FakeHost::~FakeHost() {
    g_host = nullptr;
}

} // namespace TestSupport

extern "C" {

void NVR_LOADTEMPFILE(const char* scorePath) {
    if (g_host != nullptr) {
        g_host->LoadedPath = scorePath;
        std::ifstream file(scorePath, std::ios::binary);
        std::error_code missing;
        const std::uintmax_t size = std::filesystem::file_size(scorePath, missing);
        g_host->LoadedBytes.resize(missing ? 0 : static_cast<std::size_t>(size));
        file.read(g_host->LoadedBytes.data(), static_cast<std::streamsize>(g_host->LoadedBytes.size()));
    }
    Hear("load");
}

void NVR_RESULTSDIALOGMESSAGE(const char* converterName, const char* fileName, int kind, int context1,
                              int context2, const char* message) {
    Hear(std::string("message ") + converterName + "|" + fileName + "|" + std::to_string(kind) + "|" +
         std::to_string(context1) + "|" + std::to_string(context2) + "|" + message);
}

int NVR_UPDATEPROGRESSDIALOG(void* context, int percent, const char* text) {
    const std::string shown = *text != '\0' ? std::string(" ") + text : std::string();
    return Hear(Checked(context, "update " + std::to_string(percent) + shown));
}

void NVR_DESTROYPROGRESSDIALOG(void* context) {
    Hear(Checked(context, "destroy"));
}

void NVR_CREATEPROGRESSDIALOG_2(void* context, const char* title, int lowest, int highest, int last) {
    Hear(Checked(context, std::string("create ") + title + "|" + std::to_string(lowest) + "|" +
                              std::to_string(highest) + "|" + std::to_string(last)));
}

std::intptr_t NVR_CHOOSETRANSPOSINGINSTRUMENTS(std::intptr_t a, std::intptr_t b, std::intptr_t c,
                                               std::intptr_t d, std::intptr_t e, std::intptr_t f,
                                               std::intptr_t g, std::intptr_t h) {
    std::string call = "choose";
    for (const std::intptr_t argument : {a, b, c, d, e, f, g, h})
        call.append(" ").append(std::to_string(argument));
    return Hear(call);
}
}
