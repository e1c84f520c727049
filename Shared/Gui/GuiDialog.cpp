#include "Shared/Gui/GuiDialog.h"

#include "Shared/Utils/Exceptions.h"

#include <optional>

namespace Nvr {

namespace {
constexpr const char* kCouldNotCreate = "Could not create dialog";
}

GuiDialog::GuiDialog(const ManagedWindow& parent, const ResId& dialog) : m_Parent(parent), m_Dialog(dialog) {}

bool GuiDialog::RunModal() {
    struct ForgetSession {
        Platform::DialogSession*& Session;
        ~ForgetSession() { Session = nullptr; }
    } forget{m_Session};
    const std::optional<bool> result = Platform::RunDialog(m_Parent.GetHandle(), m_Dialog, *this);
    if (!result)
        throw WindowException(kCouldNotCreate);
    return *result;
}

bool GuiDialog::IsChecked(int controlId) const {
    return m_Session != nullptr && m_Session->IsChecked(controlId);
}

void GuiDialog::SetChecked(int controlId, bool checked) {
    if (m_Session != nullptr)
        m_Session->SetChecked(controlId, checked);
}

Platform::DialogExtent GuiDialog::GetExtent() const {
    return m_Session == nullptr ? Platform::DialogExtent() : m_Session->GetExtent();
}

Platform::DialogExtent GuiDialog::GetScreenExtent() const {
    return m_Session == nullptr ? Platform::DialogExtent() : m_Session->GetScreenExtent();
}

void GuiDialog::MoveTo(int left, int top) {
    if (m_Session != nullptr)
        m_Session->MoveTo(left, top);
}

void GuiDialog::End(bool result) {
    if (m_Session != nullptr)
        m_Session->End(result);
}

void GuiDialog::OnDialogOpen(Platform::DialogSession& session) {
    m_Session = &session;
    OnOpen();
}

bool GuiDialog::OnDialogCommand(int controlId) {
    return OnCommand(controlId);
}

} // namespace Nvr
