#include "Shared/Utils/Reporting.h"

#include "Shared/Utils/DebugSwitches.h"
#include "Shared/Utils/NonCopyable.h"
#include "Shared/Utils/ReportSteps.h"
#include "Shared/Utils/platform/MessageBox.h"
#include "Shared/Utils/platform/StackTrace.h"

#include <string>
#include <utility>

namespace Nvr {

namespace {

constexpr int kOff = 0;
constexpr int kOn = 1;
constexpr int kNotYetKnown = 2;

const char* const kSwitchGroup = "Miscellaneous";
const char* const kMessageTitle = "Message";

LogSink* s_LogSink = nullptr;
bool s_IsInSink = false;
bool s_MessagesShown = true;
ReportLocation s_LatestLocation;
int s_DumpErrorCalls = kNotYetKnown;
int s_DumpUserCalls = kNotYetKnown;

// Gives a variable another value for a while.
template <class Value>
class Meanwhile : private NonCopyable {
public:
    Meanwhile(Value& variable, Value value)
        : m_Variable(variable), m_Former(std::exchange(variable, value)) {}
    ~Meanwhile() { m_Variable = m_Former; }

private:
    Value& m_Variable;
    Value m_Former;
};

bool IsSwitchOn(int& cached, const char* name) {
    if (cached != kNotYetKnown)
        return cached == kOn;
    bool isOn = false;
    {
        // Reading the settings may itself report, and must not come here again. It may fail, and then the
        // switch is read the next time.
        const Meanwhile off(cached, kOff);
        isOn = GetDebugSwitch(kSwitchGroup, name, false);
    }
    cached = isOn ? kOn : kOff;
    return isOn;
}

bool IsAnybodyListening() {
    return s_LogSink != nullptr && !s_IsInSink;
}

void WriteToSink(const String& message, std::intptr_t firstValue, std::intptr_t secondValue) {
    // A sink that reports would otherwise be called without an end.
    const Meanwhile inSink(s_IsInSink, true);
    s_LogSink->Write(message, firstValue, secondValue);
}

void DumpCallStackIf(int& cached, const char* name) {
    if (!IsSwitchOn(cached, name) || !IsAnybodyListening())
        return;
    for (const std::string& frame : Platform::CaptureStackTrace())
        WriteToSink(String(frame), 0, 0);
}

// A report is for failures that can be gone on from; a failure of the report itself is one, and so the next
// step follows.
template <class Step>
void Try(Step step) noexcept {
    try {
        step();
    } catch (...) {
        return;
    }
}

} // namespace

namespace ReportSteps {

void Run(const String& message, std::intptr_t firstValue, std::intptr_t secondValue) noexcept {
    Try([&] {
        if (GetReportSettings().LogAsserts && IsAnybodyListening())
            WriteToSink(message, firstValue, secondValue);
    });
    Try([] { DumpCallStackIf(s_DumpErrorCalls, "DumpErrorCalls"); });
}

} // namespace ReportSteps

LogSink* GetLogSink() {
    return s_LogSink;
}

LogSink* SetLogSink(LogSink* sink) {
    return std::exchange(s_LogSink, sink);
}

ReportSettings& GetReportSettings() {
    static ReportSettings s_Settings;
    return s_Settings;
}

void ReportError(const String& message) noexcept {
    ReportSteps::Run(message, 0, 0);
}

void ReportError(const char* message) noexcept {
    Try([message] { ReportError(String(message)); });
}

const ReportLocation& LatestReportLocation() {
    return s_LatestLocation;
}

void SetReportLocation(const char* file, int line) noexcept {
    s_LatestLocation = {file, line};
}

void ReportException(const Exception& exception, const char* file, int line) noexcept {
    SetReportLocation(file, line);
    ReportError(exception.GetMessage());
}

void ShowMessage(const String& text) noexcept {
    if (!s_MessagesShown)
        return;
    Try([] { DumpCallStackIf(s_DumpUserCalls, "DumpUserCalls"); });
    Try([&text] { Platform::ShowInformationBox(kMessageTitle, std::string(text.View())); });
}

void ShowException(const std::exception& exception) noexcept {
    Try([&exception] { ShowMessage(String(exception.what())); });
}

bool SetMessagesShown(bool shown) {
    return std::exchange(s_MessagesShown, shown);
}

void ForgetReportSwitches() {
    s_DumpErrorCalls = kNotYetKnown;
    s_DumpUserCalls = kNotYetKnown;
}

} // namespace Nvr
