#include "Shared/Utils/Reporting.h"

#include "Shared/Utils/DebugSwitches.h"
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
bool s_MessagesShown = true;
ReportLocation s_LatestLocation;
int s_DumpErrorCalls = kNotYetKnown;
int s_DumpUserCalls = kNotYetKnown;

bool IsSwitchOn(int& cached, const char* name) {
    if (cached == kNotYetKnown) {
        // Reading the settings may itself report, and must not come here again.
        cached = kOff;
        cached = GetDebugSwitch(kSwitchGroup, name, false) ? kOn : kOff;
    }
    return cached == kOn;
}

void DumpCallStack() {
    if (s_LogSink == nullptr)
        return;
    for (const std::string& frame : Platform::CaptureStackTrace())
        s_LogSink->Write(String(frame), 0, 0);
}

} // namespace

namespace ReportSteps {

void Run(const String& message, std::intptr_t firstValue, std::intptr_t secondValue) noexcept {
    // A report is for failures that can be gone on from; a failure of the report itself is one.
    try {
        if (GetReportSettings().LogAsserts && s_LogSink != nullptr)
            s_LogSink->Write(message, firstValue, secondValue);
        if (IsSwitchOn(s_DumpErrorCalls, "DumpErrorCalls"))
            DumpCallStack();
    } catch (...) {
        return;
    }
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
    try {
        ReportError(String(message));
    } catch (...) {
        return;
    }
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
    try {
        if (IsSwitchOn(s_DumpUserCalls, "DumpUserCalls"))
            DumpCallStack();
        Platform::ShowInformationBox(kMessageTitle, std::string(text.View()));
    } catch (...) {
        return;
    }
}

void ShowException(const std::exception& exception) noexcept {
    try {
        ShowMessage(String(exception.what()));
    } catch (...) {
        return;
    }
}

bool SetMessagesShown(bool shown) {
    return std::exchange(s_MessagesShown, shown);
}

void ForgetReportSwitches() {
    s_DumpErrorCalls = kNotYetKnown;
    s_DumpUserCalls = kNotYetKnown;
}

} // namespace Nvr
