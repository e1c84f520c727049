#include "Shared/Utils/Reporting.h"

#include "Shared/Utils/GuiError.h"
#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "tests/Shared/Utils/RecordingSink.h"
#include "tests/support/StoredSettings.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <type_traits>

using Nvr::Exception;
using Nvr::String;

namespace {

using Messages = std::vector<std::string>;

// Fails in each line, and tells of it in the way that brought the line.
struct FailingSink : Nvr::LogSink {
    void Write(const String&, std::intptr_t, std::intptr_t) override {
        ++Lines;
        Nvr::ReportError("the sink fails");
        throw std::runtime_error("disk full");
    }
    int Lines = 0;
};

} // namespace

TEST(Exceptions, EachCopyOwnsItsText) {
    const Exception exception("a message", 7);
    const char* const text = exception.what();
    EXPECT_EQ(exception.what(), text) << "one pointer";
    Exception copy = exception;
    EXPECT_STREQ(copy.what(), "a message");
    EXPECT_NE(copy.what(), text);
    copy = Exception("short-lived");
    EXPECT_STREQ(copy.what(), "short-lived");
    static_assert(!std::is_base_of_v<std::bad_alloc, Nvr::OutOfMemoryException>);
}

TEST(Reporting, PassesMessagesWhileAssertsAreLogged) {
    ASSERT_EQ(Nvr::GetLogSink(), nullptr) << "none is installed unless asked for";
    Nvr::ReportError("nobody listens");
    FailingSink failing;
    Nvr::SetLogSink(&failing);
    Nvr::ReportError("written once");
    Nvr::SetLogSink(nullptr);
    EXPECT_EQ(failing.Lines, 1);
    RecordingSink sink;
    Nvr::ReportError("first");
    Nvr::GetReportSettings().LogAsserts = false;
    Nvr::ReportError("not logged");
    Nvr::GetReportSettings().LogAsserts = true;
    Nvr::ReportError(String("second"));
    EXPECT_EQ(sink.Messages, (Messages{"first", "second"}));
}

TEST(GuiError, GoesThroughTheHandlerInUse) {
    RecordingSink sink;
    Nvr::GuiError::DefaultHandler handler;
    Nvr::GuiError::Report(1, "nobody handles it");
    Nvr::GuiError::SetHandler(&handler);
    Nvr::GuiError::Report(-2, "no room");
    EXPECT_EQ(Nvr::GuiError::SetHandler(nullptr), &handler);
    EXPECT_EQ(sink.Messages, (Messages{"Gui Error: Num = -2, Message: no room"}));
}

TEST(Reporting, SettingsStartAsTheyShould) {
    const Nvr::ReportSettings settings;
    EXPECT_TRUE(settings.LogAsserts && settings.ShowAssertDialog);
    EXPECT_FALSE(settings.HeapChecking || settings.MaskFPExceptions);
    EXPECT_TRUE(Nvr::SetMessagesShown(true));
}

TEST(Reporting, KeepsTheLocation) {
    RecordingSink sink;
    const Nvr::TreeNodeException exception("bad tree");
    Nvr::ReportException(exception, "Reader.cpp", 12);
    EXPECT_EQ(sink.Messages, (Messages{"bad tree"}));
    EXPECT_EQ(Nvr::LatestReportLocation().Line, 12);
    EXPECT_THROW(Nvr::Raise(exception, "Text.cpp", 34), Nvr::TreeNodeException);
    EXPECT_STREQ(Nvr::LatestReportLocation().File, "Text.cpp");
    EXPECT_EQ(sink.Messages.size(), 1U) << "what is raised is not reported";
}

TEST(Reporting, ReadsItsSwitchesOnce) {
    const std::string group = "Software\\Notavera Software\\NotaveraDiagnostics\\Miscellaneous";
    RecordingSink sink;
    {
        TestSupport::StoredSettings store;
        Nvr::ForgetReportSwitches();
        Nvr::ReportError("first");
        store.Store(group, {{"DumpErrorCalls", "True"}});
        Nvr::ReportError("second");
        EXPECT_EQ(sink.Messages, (Messages{"first", "second"}));
        Nvr::ForgetReportSwitches();
        Nvr::ReportError("third");
        EXPECT_GT(sink.Messages.size(), 3U) << "the call stack follows";
        FailingSink failing;
        Nvr::SetLogSink(&failing);
        Nvr::ReportError("fourth");
        EXPECT_EQ(failing.Lines, 2) << "the call stack is begun after the message has failed";
        Nvr::SetLogSink(&sink);
    }
    Nvr::ForgetReportSwitches();
}
