// The system's own dialog, answered by messages. These tests want a screen.

#include "Shared/Gui/platform/Dialogs.h"
#include "Shared/Utils/ResId.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <windows.h>

namespace {

using Nvr::ResId;
using Nvr::Platform::DialogSession;
using Nvr::Platform::ProcessModule;

constexpr int kDialog = 7;

HWND DialogWindow() {
    return FindWindowA(nullptr, "A Question");
}

// Does what the test says when the dialog opens, and then presses buttons until it has ended.
class Question final : public Nvr::Platform::DialogEvents {
public:
    void OnDialogOpen(DialogSession& session) override {
        m_Session = &session;
        PostMessageA(DialogWindow(), WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), 0);
        if (Open)
            Open(session);
    }
    bool OnDialogCommand(int controlId) override {
        Commands.push_back(controlId);
        if (Command)
            Command(*m_Session);
        return false;
    }

    std::function<void(DialogSession&)> Open;
    std::function<void(DialogSession&)> Command = [](DialogSession& session) { session.End(true); };
    std::vector<int> Commands;

private:
    DialogSession* m_Session = nullptr;
};

TEST(SystemDialog, ComesFromItsModuleAloneAndEndsAsItIsTold) {
    Question question;
    EXPECT_EQ(RunDialog(nullptr, ResId(ProcessModule(), kDialog), question), true);
    EXPECT_EQ(question.Commands, std::vector<int>{1});
    for (HMODULE const other : {GetModuleHandleA("kernel32"), HMODULE{}})
        EXPECT_FALSE(RunDialog(nullptr, ResId(other, kDialog), question))
            << "that of the process is another's";
    question.Open = [](DialogSession& session) { session.End(false); };
    EXPECT_EQ(RunDialog(nullptr, ResId(ProcessModule(), kDialog), question), false);
    EXPECT_FALSE(RunDialog(nullptr, ResId(ProcessModule(), kDialog + 1), question)) << "no such dialog";
    EXPECT_FALSE(RunDialog(GetModuleHandleA(nullptr), ResId(ProcessModule(), kDialog), question))
        << "a parent that is no window";
}

TEST(SystemDialog, TicksAndMoves) {
    Question question;
    question.Open = [](DialogSession& session) {
        for (const int ticked : {20, 10, 11})
            session.SetChecked(ticked, true);
        EXPECT_FALSE(session.IsChecked(10)) << "its group has another one";
        EXPECT_TRUE(session.IsChecked(11));
        EXPECT_TRUE(session.IsChecked(20)) << "of another group";
        session.SetChecked(20, false);
        EXPECT_FALSE(session.IsChecked(20));
        session.SetChecked(99, true);
        EXPECT_FALSE(session.IsChecked(99)) << "no such control";
        session.MoveTo(30, 40);
        RECT place{};
        GetWindowRect(DialogWindow(), &place);
        EXPECT_EQ(place.left, 30);
        EXPECT_EQ(place.top, 40);
        EXPECT_EQ(session.GetExtent().Width, place.right - place.left);
        EXPECT_EQ(session.GetExtent().Height, place.bottom - place.top);
        EXPECT_EQ(session.GetScreenExtent().Width, GetSystemMetrics(SM_CXSCREEN));
    };
    EXPECT_EQ(RunDialog(nullptr, ResId(ProcessModule(), kDialog), question), true);
}

TEST(SystemDialog, PassesAnExceptionOnWhenItIsGone) {
    const std::function<void(DialogSession&)> thrower = [](DialogSession&) {
        throw std::runtime_error("handler");
    };
    HWND const owner = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr,
                                     GetModuleHandleA(nullptr), nullptr);
    ASSERT_NE(owner, nullptr);
    Question opening;
    opening.Open = thrower;
    Question commanded;
    commanded.Open = [owner](DialogSession&) { EXPECT_FALSE(IsWindowEnabled(owner)) << "modal"; };
    commanded.Command = thrower;
    for (Question* const question : {&opening, &commanded}) {
        EXPECT_THROW(RunDialog(owner, ResId(ProcessModule(), kDialog), *question), std::runtime_error);
        EXPECT_EQ(DialogWindow(), nullptr);
        EXPECT_TRUE(IsWindowEnabled(owner));
    }
    EXPECT_TRUE(opening.Commands.empty()) << "nothing is heard of a dialog that has failed";
    DestroyWindow(owner);
}

} // namespace
