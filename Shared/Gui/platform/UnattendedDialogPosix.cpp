#include "Shared/Gui/platform/UnattendedDialogPosix.h"

#include "Shared/Gui/DialogState.h"

namespace Nvr::Platform {

namespace {

// There is no screen, so sizes are 0 and moving does nothing.
class UnattendedSession final : public DialogSession {
public:
    explicit UnattendedSession(const DialogLayout& layout) : m_State(layout) {}

    bool IsChecked(int controlId) const override { return m_State.IsChecked(controlId); }
    void SetChecked(int controlId, bool checked) override { m_State.SetChecked(controlId, checked); }
    DialogExtent GetExtent() const override { return {}; }
    DialogExtent GetScreenExtent() const override { return {}; }
    void MoveTo(int /*left*/, int /*top*/) override {}
    void End(bool result) override { m_Result = result; }

    int GetEnterCommand() const { return m_State.GetEnterCommand(); }
    std::optional<bool> GetResult() const { return m_Result; }

private:
    DialogState m_State;
    std::optional<bool> m_Result;
};

} // namespace

std::optional<bool> RunUnattendedDialog(const DialogLayout& layout, DialogEvents& events) {
    UnattendedSession session(layout);
    events.OnDialogOpen(session);
    if (!session.GetResult() && session.GetEnterCommand() != 0)
        events.OnDialogCommand(session.GetEnterCommand());
    return session.GetResult();
}

} // namespace Nvr::Platform
