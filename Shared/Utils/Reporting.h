#pragma once

#include "Shared/Utils/Exceptions.h"
#include "Shared/Utils/NvrString.h"

#include <cstdint>
#include <exception>

/// How the system says that something went wrong and goes on: a report is recorded where somebody listens,
/// and the call returns. No caller depends on a report being seen. One thread at a time.
namespace Nvr {

/// A sink for lines of text. None is installed unless somebody asks for it with SetLogSink.
class LogSink {
public:
    virtual ~LogSink() = default;
    /// One report or one line of a call stack. The two values mean what the reporter says, and are 0 with
    /// plain reports. May throw; the reporter goes on all the same. What the sink itself reports meanwhile
    /// goes to no sink.
    virtual void Write(const String& message, std::intptr_t firstValue, std::intptr_t secondValue) = 0;
};

/// The sink in use, or null.
LogSink* GetLogSink();
/// Borrows `sink`, until it is replaced; null for none. Gives the former one.
LogSink* SetLogSink(LogSink* sink);

/// What goes on when failures are reported; one record for the process.
struct ReportSettings {
    /// Reports reach the log sink.
    bool LogAsserts = true;
    bool ShowAssertDialog = true;
    bool HeapChecking = false;
    bool MaskFPExceptions = false;
};

ReportSettings& GetReportSettings();

/// Passes the message to the log sink, and with the debug switch "DumpErrorCalls" of the group
/// "Miscellaneous" the call stack after it. Never throws.
void ReportError(const String& message) noexcept;
/// The same for a literal; text that cannot be copied because memory is short is not reported.
void ReportError(const char* message) noexcept;

/// Where the latest report or raise through one of the operations below was made.
struct ReportLocation {
    /// As the compiler names the source; null when there was none.
    const char* File = nullptr;
    int Line = 0;
};

const ReportLocation& LatestReportLocation();

/// Keeps the location, then reports the exception's message. Does not throw it. `file` is kept by pointer: a
/// literal, as __FILE__ is.
void ReportException(const Exception& exception, const char* file, int line) noexcept;

/// Keeps a location without reporting; a part of ReportException and Raise.
void SetReportLocation(const char* file, int line) noexcept;

/// Keeps the location and throws a copy of the exception.
template <class Raised>
[[noreturn]] void Raise(const Raised& exception, const char* file, int line) {
    SetReportLocation(file, line);
    throw Raised(exception);
}

/// Asks the user to acknowledge a text, in a modal box with the title "Message". With the debug switch
/// "DumpUserCalls" of the group "Miscellaneous" the call stack goes to the log sink before. Never throws.
void ShowMessage(const String& text) noexcept;
/// Shows what the exception says.
void ShowException(const std::exception& exception) noexcept;

/// Whether ShowMessage does anything; it does unless switched off. Gives the former state.
bool SetMessagesShown(bool shown);

/// Forgets the debug switches, which are otherwise read once, when first needed.
void ForgetReportSwitches();

} // namespace Nvr
