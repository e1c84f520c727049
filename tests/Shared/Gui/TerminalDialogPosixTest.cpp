// The terminal dialog, driven through a pseudo-terminal as a person would.

#include "Shared/Gui/DialogLayout.h"
#include "Shared/Gui/platform/DialogsPosix.h"
#include "tests/support/TerminalPerson.h"

#include <gtest/gtest.h>

#include <csignal>
#include <dlfcn.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

// Stands in front of the system's function of that name, and raises a signal after one of the changes.
static int g_changesToSignal = 0;
static int g_signalAfterChange = 0;

extern "C" [[gnu::visibility("default")]] int tcsetattr(int file, int when, const termios* mode) noexcept {
    static auto* const real =
        reinterpret_cast<int (*)(int, int, const termios*)>(dlsym(RTLD_NEXT, "tcsetattr"));
    const int result = real(file, when, mode);
    if (g_changesToSignal > 0 && --g_changesToSignal == 0)
        raise(g_signalAfterChange);
    return result;
}

namespace {

using Nvr::DialogControlKind;
using Nvr::DialogLayout;
using Nvr::Platform::DialogSession;
using TestSupport::TerminalPerson;

constexpr int kEnded = 0;
constexpr int kCouldNotBeMade = 50;
constexpr int kThrew = 60;

DialogLayout Layout() {
    DialogLayout layout;
    layout.Caption = "A Question";
    layout.Width = 160;
    layout.Height = 64;
    layout.Controls = {{10, DialogControlKind::RadioButton, "&Yes", 16, 8, 60, 10, true, true},
                       {11, DialogControlKind::RadioButton, "&No", 16, 24, 60, 10, false, false},
                       {20, DialogControlKind::CheckBox, "&Again", 16, 40, 60, 10, true, true},
                       {2, DialogControlKind::PushButton, "Cancel", 16, 56, 40, 14, false, true},
                       {1, DialogControlKind::DefaultPushButton, "OK", 80, 56, 40, 14, false, true}};
    return layout;
}

// Ends on OK with true and on Cancel with false; centres itself.
class Question final : public Nvr::Platform::DialogEvents {
public:
    void OnDialogOpen(DialogSession& session) override {
        m_Session = &session;
        session.SetChecked(10, true);
        session.MoveTo(session.GetScreenExtent().Width / 2 - session.GetExtent().Width / 2,
                       session.GetScreenExtent().Height / 2 - session.GetExtent().Height / 2);
    }
    bool OnDialogCommand(int controlId) override {
        if (controlId == 20 && m_Throws)
            throw std::runtime_error("from a handler");
        if (controlId == 1 || controlId == 2) {
            Answer = (controlId == 1 ? 1 : 0) + (m_Session->IsChecked(11) ? 2 : 0) +
                     (m_Session->IsChecked(20) ? 4 : 0);
            m_Session->End(controlId == 1);
        }
        return false;
    }
    void ThrowOnCheckBox() { m_Throws = true; }
    int Answer = 0;

private:
    DialogSession* m_Session = nullptr;
    bool m_Throws = false;
};

// Asks on the terminal; the exit code tells the answer: 1 for OK, plus 2 for "No", plus 4 for "Again".
int Ask(bool throws) {
    Question question;
    if (throws)
        question.ThrowOnCheckBox();
    static int window = 0;
    try {
        const auto result = Nvr::Platform::RunDialogOfLayout(&window, Layout(), question);
        return result ? kEnded + question.Answer : kCouldNotBeMade;
    } catch (const std::runtime_error&) {
        return kThrew;
    }
}

int AskPlainly() {
    return Ask(false);
}

struct KeysCase {
    const char* Keys;
    int Answer;
    const char* Why;
};

class TerminalDialogKeys : public testing::TestWithParam<KeysCase> {};

TEST_P(TerminalDialogKeys, GiveTheAnswer) {
    TerminalPerson person(80, 24, AskPlainly);
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    person.Type(GetParam().Keys);
    EXPECT_EQ(GetParam().Answer, person.WaitForEnd()) << GetParam().Why;
    EXPECT_TRUE(person.IsInLineMode()) << GetParam().Why;
    EXPECT_NE(std::string::npos, person.Transcript().find("\x1b[?1049l")) << "the own screen is left";
    EXPECT_NE(std::string::npos, person.Transcript().find("\x1b[?25h")) << "the cursor is back";
}

INSTANTIATE_TEST_SUITE_P(
    People, TerminalDialogKeys,
    testing::Values(KeysCase{"\r", 1, "Enter takes the default button"},
                    KeysCase{"\x1b", 0, "Escape cancels"}, KeysCase{"\x03", 0, "so does Ctrl-C"},
                    KeysCase{"\x1b[B\r", 3, "arrow down moves in the group"},
                    KeysCase{"\x1bOA\r", 3, "arrow up in the other spelling, around the end"},
                    KeysCase{"\t \r", 5, "Tab and the space bar tick the box"},
                    KeysCase{"\x1b[Z\x1b[Z\r", 0, "Shift-Tab twice, then Enter on Cancel"},
                    KeysCase{"na\r", 7, "underlined letters"}, KeysCase{"\x1bn\r", 3, "with Alt"},
                    KeysCase{"aa\x1b[1;5Q?\r", 1, "twice is off again; unknown keys do nothing"}));

TEST(TerminalDialog, ASmallTerminalShowsWhereTheFocusIs) {
    constexpr int kFewCells = 16;
    constexpr int kFewRows = 4;
    TerminalPerson person(kFewCells, kFewRows, AskPlainly);
    ASSERT_TRUE(person.WaitFor("(*) Yes"));
    EXPECT_LT(person.RowOf("Cancel"), 0);
    person.Type("\t\t");
    ASSERT_TRUE(person.WaitFor("<  Cancel  >"));
    EXPECT_LT(person.RowOf("Yes"), 0);
    person.Type("\t");
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    person.Type("\t");
    ASSERT_TRUE(person.WaitFor("(*) Yes"));
    person.Type("\x1b");
    EXPECT_EQ(kEnded, person.WaitForEnd());
}

TEST(TerminalDialog, DrawsWhatItAsks) {
    TerminalPerson person(80, 24, AskPlainly);
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    EXPECT_GE(person.RowOf("- A Question -"), 0);
    EXPECT_EQ(person.RowOf("(*) Yes") + 2, person.RowOf("( ) No"));
    EXPECT_GE(person.RowOf("[ ] Again"), 0);
    EXPECT_NE(std::string::npos, person.Transcript().find("\x1b[4m\x1b[7mY"))
        << "the key's letter is underlined";
    person.Type("na");
    EXPECT_TRUE(person.WaitFor("(*) No"));
    EXPECT_TRUE(person.WaitFor("[x] Again"));
}

TEST(TerminalDialog, FollowsTheWindowsSize) {
    TerminalPerson person(80, 24, AskPlainly);
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    const int before = person.RowOf("(*) Yes");
    person.Resize(100, 44);
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    for (int patience = 0; patience < 40 && person.RowOf("(*) Yes") != before + 10; ++patience)
        person.Look();
    EXPECT_EQ(before + 10, person.RowOf("(*) Yes"));
    person.Resize(12, 4);
    person.Type("\r");
    EXPECT_EQ(1, person.WaitForEnd()) << "a window that is too small hurts nobody";
}

TEST(TerminalDialog, ASignalLeavesTheTerminalAsItWas) {
    // As under nohup.
    std::signal(SIGHUP, SIG_IGN);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        TerminalPerson person(80, 24, AskPlainly);
        ASSERT_TRUE(person.WaitFor("<* OK *>"));
        EXPECT_FALSE(person.IsInLineMode());
        person.Signal(signal);
        EXPECT_EQ(1000 + signal, person.WaitForEnd());
        EXPECT_TRUE(person.IsInLineMode());
    }
    std::signal(SIGHUP, SIG_DFL);
}

TEST(TerminalDialog, ASignalBetweenTheTerminalAndTheHandlersLeavesItAsItWas) {
    const struct {
        int Change, Signal, End;
        const char* Why;
    } rows[] = {
        {1, SIGTERM, 1000 + SIGTERM, "when the dialog begins, and it ends the process"},
        {2, SIGINT, 1, "when the dialog ends, and the host goes on after it"},
    };
    for (const auto& row : rows) {
        TerminalPerson person(80, 24, [&row] {
            std::signal(SIGINT, [](int) {});
            g_changesToSignal = row.Change;
            g_signalAfterChange = row.Signal;
            return AskPlainly();
        });
        // Keys typed before the dialog begins are not for it.
        ASSERT_TRUE(row.Change == 1 || person.WaitFor("<* OK *>"));
        person.Type("\r");
        EXPECT_EQ(person.WaitForEnd(), row.End) << row.Why;
        EXPECT_TRUE(person.IsInLineMode()) << row.Why;
    }
}

TEST(TerminalDialog, NeedsNoControllingTerminal) {
    TerminalPerson person(80, 24, [] {
        std::signal(SIGHUP, SIG_IGN);
        return ioctl(STDIN_FILENO, TIOCNOTTY) == 0 ? AskPlainly() : kThrew;
    });
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    person.Type("n\r");
    EXPECT_EQ(person.WaitForEnd(), 3);
    EXPECT_TRUE(person.IsInLineMode());
}

TEST(TerminalDialog, AnExceptionLeavesTheTerminalAsItWas) {
    TerminalPerson person(80, 24, [] { return Ask(true); });
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    person.Type("a");
    EXPECT_EQ(kThrew, person.WaitForEnd());
    EXPECT_TRUE(person.IsInLineMode());
}

TEST(UnattendedDialog, AcceptsWhatTheOpeningHasPutIn) {
    Question question;
    const auto result = Nvr::Platform::RunDialogOfLayout(nullptr, Layout(), question);
    ASSERT_TRUE(result.has_value());
    EXPECT_TRUE(*result);
    EXPECT_EQ(1, question.Answer);
    EXPECT_FALSE(Nvr::Platform::RunDialogOfLayout(nullptr, DialogLayout(), question).has_value())
        << "nothing to accept with";
}

} // namespace
