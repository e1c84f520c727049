#include "Shared/Utils/Reporting.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using namespace Nvr;
using namespace FilesTesting;

void MakeProgram(const Scratch& folder, const char* name, const std::string& script) {
    std::filesystem::permissions(folder.Write(name, "#!/bin/sh\n" + script + "\n"),
                                 std::filesystem::perms(0755));
}

TEST(ShowMessage, GoesToTheTerminalWithoutADesktop) {
    const Environment display("DISPLAY", std::nullopt), wayland("WAYLAND_DISPLAY", "");
    testing::internal::CaptureStderr();
    ShowMessage("caf\xE9");
    const bool former = SetMessagesShown(false);
    ShowMessage("not shown");
    SetMessagesShown(former);
    ShowException(std::runtime_error("an exception"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Message: caf\xC3\xA9\nMessage: an exception\n");
}

TEST(ShowMessage, TakesTheFirstProgramThatShowsABox) {
    const Scratch programs;
    const Environment display("DISPLAY", ":7"), path("PATH", programs.Path());
    MakeProgram(programs, "zenity", "exit 127");
    MakeProgram(programs, "kdialog", "printf '%s|' \"$@\" >\"" + programs.Path("shown") + "\"; exit 1");
    MakeProgram(programs, "xmessage", "printf once more >>\"" + programs.Path("shown") + "\"");
    testing::internal::CaptureStderr();
    ShowMessage("two\nlines");
    EXPECT_EQ(ReadAll(programs.Path("shown")), "--title|Message|--msgbox|two\nlines|")
        << "closed, not absent";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
