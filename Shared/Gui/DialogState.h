#pragma once

#include "Shared/Gui/DialogLayout.h"

#include <utility>
#include <vector>

namespace Nvr {

/// What a dialog knows of its controls while a person works in it: which are ticked and which one has the
/// focus. It knows the habits that people expect of the keys, and nothing of how the dialog is drawn.
/// Borrows the layout.
class DialogState {
public:
    /// Nothing is ticked; the focus is on the first tab stop.
    explicit DialogState(const DialogLayout& layout);

    bool IsChecked(int controlId) const;
    /// Ticking a radio button clears the others of its group.
    void SetChecked(int controlId, bool checked);

    /// The control with the focus, by its place in the layout; -1 when the dialog has none.
    int GetFocus() const { return m_Focus; }
    /// To the next tab stop (`step` 1) or the one before (-1), around the ends. A group of radio buttons is
    /// one stop: its ticked button, or its first.
    void MoveToTabStop(int step);
    /// To the next (1) or previous (-1) control of the group, around its ends; a radio button is ticked.
    void MoveInGroup(int step);
    /// To the control whose underlined letter is `letter`, and uses it. The id of the command that this
    /// gives, or 0.
    int UseMnemonic(char letter);
    /// Uses the control with the focus as the space bar does: ticks, clears, presses. The id of the command
    /// that this gives, or 0.
    int UseFocused();
    /// The command of the Enter key: the focused push button, else the default one; 0 when there is neither.
    int GetEnterCommand() const;

private:
    int FindControl(int controlId) const;
    int UseControl(int place);
    void FocusOn(int place);
    std::pair<int, int> GroupOf(int place) const;
    const DialogControl& At(int place) const { return m_Layout.Controls[static_cast<std::size_t>(place)]; }

    const DialogLayout& m_Layout;
    std::vector<char> m_Checked;
    int m_Focus = -1;
};

} // namespace Nvr
