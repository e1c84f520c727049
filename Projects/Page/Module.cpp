// The boundary of the module: what its caller in JavaScript calls, and what the plug-in calls in it. One
// request goes in, one answer comes out as a piece of memory, and the caller gives that back.

#include "Projects/Opening/HostListener.h"
#include "Projects/Page/PageConverter.h"
#include "Shared/NotaveraAPI/NotaveraPlugin.h"
#include "Shared/Utils/platform/ModuleTable.h"
#include "Shared/Utils/platform/Modules.h"

#include <cstdlib>
#include <cstring>

extern "C" {

/// Given by the caller: how far the conversion is, in percent. 0 cancels it.
int FretlineProgress(int percent);

/// A block of memory with an answer, that FretlineRelease takes back; null when there is none left.
/// `request` is JSON (Page::Request); an answer with "mistake" says what is wrong with it, one with "failure"
/// what was in the way.
[[gnu::used, gnu::visibility("default")]] char* FretlineConvert(const char* request, std::size_t requestSize,
                                                                const char* text, std::size_t textSize);
[[gnu::used, gnu::visibility("default")]] char* FretlineDescribe();
[[gnu::used, gnu::visibility("default")]] void FretlineRelease(char* answer);
}

namespace Page {

namespace {

constexpr const char* kFolder = "/fretline";

template <typename Function>
Nvr::Platform::ExportedFunction Exported(const char* name, Function* function) {
    return {name, reinterpret_cast<void*>(function)};
}

// What the plug-in looks up in its host.
const Nvr::Platform::ExportedFunction kHostFunctions[] = {
    Exported("NVR_LOADTEMPFILE", Opening::LoadTempFile),
    Exported("NVR_RESULTSDIALOGMESSAGE", Opening::ResultsDialogMessage),
    Exported("NVR_UPDATEPROGRESSDIALOG", Opening::UpdateProgressDialog),
    Exported("NVR_DESTROYPROGRESSDIALOG", Opening::DestroyProgressDialog),
    Exported("NVR_CREATEPROGRESSDIALOG_2", Opening::CreateProgressDialog2),
    Exported("NVR_CHOOSETRANSPOSINGINSTRUMENTS", Opening::ChooseTransposingInstruments),
};
const Nvr::Platform::ModuleTable kExports(kHostFunctions);

class CallerWatches : public Opening::OpeningWatcher {
public:
    void OnBegin(const std::string& /*title*/) override {}
    bool OnPercent(int percent) override { return FretlineProgress(percent) != 0; }
    void OnEnd() override {}
};

const PageConverter& Converter() {
    static const PageConverter converter({NVR_INIT, NVR_OPENFILE, NVR_TERM, Nvr::Platform::ProcessModule()},
                                         kFolder);
    return converter;
}

Answer Convert(std::string_view requestText, std::string_view text) {
    Answer answer;
    std::string why;
    const std::optional<Request> request = Request::Parse(requestText, why);
    if (!request) {
        answer.Object["mistake"] = why;
        return answer;
    }
    CallerWatches watcher;
    return Converter().Convert(*request, text, watcher);
}

char* InMemory(const Answer& answer) {
    const std::string bytes = answer.ToBytes();
    auto* const memory = static_cast<char*>(std::malloc(bytes.size()));
    if (memory != nullptr)
        std::memcpy(memory, bytes.data(), bytes.size());
    return memory;
}

} // namespace

} // namespace Page

char* FretlineConvert(const char* request, std::size_t requestSize, const char* text, std::size_t textSize) {
    try {
        return Page::InMemory(Page::Convert({request, requestSize}, {text, textSize}));
    } catch (...) {
        // A failed allocation is all that is thrown, in more than one shape. What was taken is free again,
        // and the answer is small.
        Page::Answer answer;
        answer.Object["failure"] = "there is not enough memory for it";
        return Page::InMemory(answer);
    }
}

char* FretlineDescribe() {
    return Page::InMemory(Page::Describe());
}

void FretlineRelease(char* answer) {
    std::free(answer);
}
