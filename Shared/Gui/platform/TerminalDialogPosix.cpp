#include "Shared/Gui/platform/TerminalDialogPosix.h"

#include "Shared/Gui/DialogState.h"
#include "Shared/Gui/platform/TerminalKeysPosix.h"
#include "Shared/Gui/platform/TerminalModePosix.h"
#include "Shared/Gui/platform/TerminalPainterPosix.h"

#include <algorithm>

namespace Nvr::Platform {

namespace {

// The id of the command that Escape gives, as of a button "Cancel".
constexpr int kCancelCommand = 2;

// One dialog on the terminal, from its opening to its end.
class TerminalSession final : public DialogSession {
public:
    TerminalSession(TerminalMode& terminal, const DialogLayout& layout)
        : m_Terminal(terminal), m_State(layout), m_Painter(layout) {}

    bool IsChecked(int controlId) const override { return m_State.IsChecked(controlId); }
    void SetChecked(int controlId, bool checked) override { m_State.SetChecked(controlId, checked); }
    DialogExtent GetExtent() const override { return m_Painter.GetExtent(); }
    DialogExtent GetScreenExtent() const override { return m_Terminal.GetExtent(); }
    void MoveTo(int left, int top) override {
        m_Left = left;
        m_Top = top;
    }
    void End(bool result) override { m_Result = result; }

    std::optional<bool> Run(DialogEvents& events) {
        m_ScreenAtOpening = GetScreenExtent();
        events.OnDialogOpen(*this);
        while (!m_Result) {
            Paint();
            const TerminalKey key = ReadKey(m_Terminal);
            if (key.Kind == TerminalKeyKind::Gone)
                return std::nullopt;
            if (key.Kind == TerminalKeyKind::Resized)
                FollowResize();
            else if (const int command = Use(key); command != 0)
                events.OnDialogCommand(command);
        }
        return m_Result;
    }

private:
    int Use(const TerminalKey& key) {
        switch (key.Kind) {
        case TerminalKeyKind::Tab:
            m_State.MoveToTabStop(1);
            return 0;
        case TerminalKeyKind::BackTab:
            m_State.MoveToTabStop(-1);
            return 0;
        case TerminalKeyKind::Forward:
            m_State.MoveInGroup(1);
            return 0;
        case TerminalKeyKind::Back:
            m_State.MoveInGroup(-1);
            return 0;
        case TerminalKeyKind::Enter:
            return m_State.GetEnterCommand();
        case TerminalKeyKind::Escape:
            return kCancelCommand;
        case TerminalKeyKind::Character:
            return key.Character == ' ' ? m_State.UseFocused() : m_State.UseMnemonic(key.Character);
        default:
            return 0;
        }
    }

    // The dialog keeps the place that it was given in relation to the middle of the screen.
    void FollowResize() {
        const DialogExtent screen = GetScreenExtent();
        m_Left += screen.Width / 2 - m_ScreenAtOpening.Width / 2;
        m_Top += screen.Height / 2 - m_ScreenAtOpening.Height / 2;
        m_ScreenAtOpening = screen;
    }

    void Paint() {
        m_Terminal.Write(
            m_Painter.Paint(m_State, GetScreenExtent(), std::max(m_Left, 0), std::max(m_Top, 0)));
    }

    TerminalMode& m_Terminal;
    DialogState m_State;
    TerminalPainter m_Painter;
    DialogExtent m_ScreenAtOpening;
    int m_Left = 0;
    int m_Top = 0;
    std::optional<bool> m_Result;
};

} // namespace

std::optional<bool> RunTerminalDialog(const DialogLayout& layout, DialogEvents& events) {
    TerminalMode terminal;
    if (!terminal.IsReady())
        return std::nullopt;
    return TerminalSession(terminal, layout).Run(events);
}

} // namespace Nvr::Platform
