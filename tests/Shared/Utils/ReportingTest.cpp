#include "Shared/Utils/Reporting.h"

#include "Shared/Utils/DeleterHelper.h"
#include "Shared/Utils/GuiError.h"
#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "tests/Shared/Utils/RecordingSink.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <unistd.h>

using Nvr::Exception;
using Nvr::String;

namespace {

namespace fs = std::filesystem;
using Messages = std::vector<std::string>;

struct Guarded {
    explicit Guarded(int& deletions) : Deletions(deletions) {}
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;
    ~Guarded() { ++Deletions; }
    int& Deletions;
};

using Guard = Nvr::TDeleterHelper<Guarded>;

struct ThrowingSink : Nvr::LogSink {
    void Write(const String&, std::intptr_t, std::intptr_t) override {
        throw std::runtime_error("disk full");
    }
};

// A store of settings with the lines in the group that reports look at, and a session without a desktop.
class TemporarySettings {
public:
    explicit TemporarySettings(const std::string& lines)
        : m_Folder(fs::temp_directory_path() / ("report-settings-" + std::to_string(getpid()))) {
        fs::create_directories(m_Folder);
        Write(lines);
        setenv("NOTAVERA_SETTINGS", m_Folder.c_str(), 1);
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
        Nvr::ForgetReportSwitches();
    }
    ~TemporarySettings() {
        unsetenv("NOTAVERA_SETTINGS");
        Nvr::ForgetReportSwitches();
        std::error_code ignored;
        fs::remove_all(m_Folder, ignored);
    }
    TemporarySettings(const TemporarySettings&) = delete;
    TemporarySettings& operator=(const TemporarySettings&) = delete;

    void Write(const std::string& lines) const {
        std::ofstream(m_Folder / "user.conf")
            << "[Software\\Notavera Software\\NotaveraDiagnostics\\Miscellaneous]\n"
            << lines;
    }

private:
    fs::path m_Folder;
};

} // namespace

TEST(Exceptions, WhatGivesOnePointer) {
    const Exception exception("a message", 7);
    const char* const text = exception.what();
    EXPECT_STREQ(text, "a message");
    EXPECT_EQ(exception.what(), text);
    EXPECT_NE(text, exception.GetMessage().CStr());
    Exception copy = exception;
    EXPECT_STREQ(copy.what(), "a message");
    EXPECT_NE(copy.what(), text) << "each copy owns its text";
    EXPECT_EQ(copy.GetCode(), 7);
    copy = Exception("short-lived");
    EXPECT_STREQ(copy.what(), "short-lived");
    EXPECT_EQ(Exception("x").GetCode(), 0);
    Exception assigned("other");
    EXPECT_STREQ(assigned.what(), "other");
    assigned = exception;
    EXPECT_STREQ(assigned.what(), "a message");
}

TEST(Exceptions, DeriveAsTheyAreCaught) {
    static_assert(std::is_base_of_v<Nvr::InterruptException, Exception>);
    static_assert(std::is_base_of_v<std::exception, Nvr::InterruptException>);
    static_assert(!std::is_base_of_v<std::bad_alloc, Nvr::OutOfMemoryException>);
    EXPECT_THROW(throw Nvr::TreeNodeException("x"), Exception);
    EXPECT_THROW(throw Nvr::WindowException("x"), Exception);
    EXPECT_THROW(throw Nvr::FileOpenWriteFailedException("x", 1), Nvr::InterruptException);
    EXPECT_THROW(throw Nvr::FileSaveFailedException("x"), std::exception);
    EXPECT_THROW(throw Nvr::OutOfMemoryException(), std::exception);
    EXPECT_THROW(throw Nvr::TreeNodeLabelFoundException("v"), std::exception);
    EXPECT_STRNE(Nvr::OutOfMemoryException().what(), "");
}

TEST(DeleterHelper, DeletesWhatNobodyOwns) {
    int deletions = 0;
    { const Guard guard(new Guarded(deletions)); }
    EXPECT_EQ(deletions, 1);
    try {
        const Guard guard(new Guarded(deletions));
        throw Exception("on the way out");
    } catch (const Exception&) {
        EXPECT_EQ(deletions, 2);
    }
    std::unique_ptr<Guarded> released;
    {
        Guard guard(new Guarded(deletions));
        released.reset(guard.Release());
        EXPECT_EQ(guard.Get(), nullptr);
    }
    EXPECT_EQ(deletions, 2);
    { const std::unique_ptr<Nvr::DeleterHelperBase> base = std::make_unique<Guard>(released.release()); }
    EXPECT_EQ(deletions, 3) << "through the base";
}

TEST(DeleterHelper, LetsANodeLeaveByException) {
    std::unique_ptr<Nvr::TreeNode> caught;
    try {
        const Nvr::TDeleterHelper<Nvr::TreeNode> parent(new Nvr::TreeNode("parent"));
        Nvr::TDeleterHelper<Nvr::TreeNode> found(new Nvr::TreeNode("found"));
        throw Nvr::TreeNodeSubTreeFoundException(found.Release());
    } catch (const Nvr::TreeNodeSubTreeFoundException& exception) {
        caught.reset(exception.GetNode());
    }
    ASSERT_NE(caught, nullptr);
    EXPECT_STREQ(caught->GetLabel().CStr(), "found");
}

TEST(DeleterHelper, DeletesAndResets) {
    int deletions = 0;
    Guard guard(new Guarded(deletions));
    guard.Delete();
    guard.Delete();
    EXPECT_EQ(deletions, 1);
    guard.Reset(new Guarded(deletions));
    guard.Reset(guard.Get());
    EXPECT_EQ(deletions, 1);
    guard.Reset(new Guarded(deletions));
    EXPECT_EQ(deletions, 2);
    guard.Reset(nullptr);
    EXPECT_EQ(deletions, 3);
    EXPECT_EQ(guard.Release(), nullptr);
}

TEST(Reporting, GoesOnWithoutASink) {
    ASSERT_EQ(Nvr::GetLogSink(), nullptr) << "none is installed unless asked for";
    Nvr::ReportError("nobody listens");
    Nvr::ReportError(static_cast<const char*>(nullptr));
    EXPECT_EQ(Nvr::GetLogSink(), nullptr);
}

TEST(Reporting, PassesMessagesWhileAssertsAreLogged) {
    RecordingSink sink;
    Nvr::ReportError("first");
    Nvr::GetReportSettings().LogAsserts = false;
    Nvr::ReportError("not logged");
    Nvr::GetReportSettings().LogAsserts = true;
    Nvr::ReportError(String("second"));
    EXPECT_EQ(sink.Messages, (Messages{"first", "second"}));
}

TEST(Reporting, SettingsStartAsTheyShould) {
    const Nvr::ReportSettings settings;
    EXPECT_TRUE(settings.LogAsserts);
    EXPECT_TRUE(settings.ShowAssertDialog);
    EXPECT_FALSE(settings.HeapChecking);
    EXPECT_FALSE(settings.MaskFPExceptions);
}

TEST(Reporting, NeverThrows) {
    ThrowingSink sink;
    Nvr::LogSink* const former = Nvr::SetLogSink(&sink);
    EXPECT_NO_THROW(Nvr::ReportError("the sink fails"));
    EXPECT_EQ(Nvr::SetLogSink(former), &sink);
}

TEST(Reporting, KeepsTheLocation) {
    RecordingSink sink;
    const Nvr::TreeNodeException exception("bad tree");
    Nvr::ReportException(exception, "Reader.cpp", 12);
    EXPECT_EQ(sink.Messages, (Messages{"bad tree"}));
    EXPECT_STREQ(Nvr::LatestReportLocation().File, "Reader.cpp");
    EXPECT_EQ(Nvr::LatestReportLocation().Line, 12);
    EXPECT_THROW(Nvr::Raise(exception, "Text.cpp", 34), Nvr::TreeNodeException);
    EXPECT_STREQ(Nvr::LatestReportLocation().File, "Text.cpp");
    EXPECT_EQ(Nvr::LatestReportLocation().Line, 34);
    EXPECT_EQ(sink.Messages.size(), 1U) << "what is raised is not reported";
}

TEST(Reporting, DumpsTheCallStackWhenSwitchedOn) {
    const TemporarySettings settings("DumpErrorCalls = True\nDumpUserCalls = 1\n");
    RecordingSink sink;
    Nvr::ReportError("failure");
    ASSERT_GT(sink.Messages.size(), 1U) << "the call stack follows";
    EXPECT_EQ(sink.Messages.front(), "failure");
    const std::size_t withError = sink.Messages.size();
    testing::internal::CaptureStderr();
    Nvr::SetMessagesShown(false);
    Nvr::ShowMessage("silent");
    EXPECT_EQ(sink.Messages.size(), withError) << "switched off, a message does nothing";
    Nvr::SetMessagesShown(true);
    Nvr::ShowMessage("shown");
    EXPECT_GT(sink.Messages.size(), withError);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Message: shown\n");
}

TEST(Reporting, ReadsItsSwitchesOnce) {
    RecordingSink sink;
    {
        const TemporarySettings settings("");
        Nvr::ReportError("first");
        settings.Write("DumpErrorCalls = True\n");
        Nvr::ReportError("second");
    }
    EXPECT_EQ(sink.Messages, (Messages{"first", "second"}));
}

TEST(GuiError, GoesThroughItsHandler) {
    RecordingSink sink;
    Nvr::GuiError::Report(1, "nobody handles this");
    EXPECT_TRUE(sink.Messages.empty());
    Nvr::GuiError::DefaultHandler handler;
    EXPECT_EQ(Nvr::GuiError::SetHandler(&handler), nullptr);
    Nvr::GuiError::Report(-5, "no window", 3, 4);
    EXPECT_EQ(Nvr::GuiError::SetHandler(nullptr), &handler);
    EXPECT_EQ(sink.Messages, (Messages{"Gui Error: Num = -5, Message: no window"}));
    EXPECT_EQ(sink.Values[0], std::make_pair(std::intptr_t{3}, std::intptr_t{4}));
}
