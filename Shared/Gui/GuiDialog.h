#pragma once

#include "Shared/Gui/GuiWindow.h"
#include "Shared/Utils/NonCopyable.h"
#include "Shared/Utils/ResId.h"

namespace Nvr {

/// A modal dialog made from a dialog resource. Derived classes override OnOpen and OnCommand and use the
/// protected operations, which work only while the dialog runs. Borrows the parent, which must outlive it.
class GuiDialog : public ManagedWindow, private NonCopyable, private Platform::DialogEvents {
public:
    /// `dialog` names a dialog resource in the form of the platform: DialogLayout tells that of a terminal.
    GuiDialog(const ManagedWindow& parent, const ResId& dialog);

    /// Shows the dialog and comes back when it has ended: true or false, as it ended. Throws WindowException
    /// with the text "Could not create dialog" when it cannot be made.
    bool RunModal();

protected:
    /// Of the radio button or check box with that id; false when there is none.
    bool IsChecked(int controlId) const;
    /// Ticks or clears it. Ticking a radio button clears the others of its group.
    void SetChecked(int controlId, bool checked);
    /// Of the dialog and of the whole screen, in the screen's units.
    Platform::DialogExtent GetExtent() const;
    Platform::DialogExtent GetScreenExtent() const;
    /// Moves the dialog's left and top edge, in the screen's units.
    void MoveTo(int left, int top);
    /// Ends the dialog once the present handler is done.
    void End(bool result);

private:
    void OnDialogOpen(Platform::DialogSession& session) override;
    bool OnDialogCommand(int controlId) override;

    const ManagedWindow& m_Parent;
    ResId m_Dialog;
    Platform::DialogSession* m_Session = nullptr;
};

} // namespace Nvr
