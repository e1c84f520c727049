#pragma once

#include "Shared/Gui/DialogState.h"
#include "Shared/Gui/platform/Dialogs.h"

#include <string>
#include <vector>

namespace Nvr::Platform {

/// Draws a dialog in character cells: a frame with the caption, "(*)" and "[x]" for what is ticked, "<OK>"
/// with a star for the default button, the keys' letters underlined, the focus inverted. Borrows the layout.
class TerminalPainter {
public:
    explicit TerminalPainter(const DialogLayout& layout);

    /// The size of the drawn dialog, frame included.
    DialogExtent GetExtent() const { return m_Extent; }

    /// What to send to the terminal so that the dialog stands at `left`, `top` of a screen that holds nothing
    /// else. What does not fit into the screen is cut off; the part that is shown is the one with the focus.
    std::string Paint(const DialogState& state, DialogExtent screen, int left, int top) const;

private:
    struct Cell {
        char Character = ' ';
        bool Underlined = false;
        bool Inverted = false;
    };
    using Canvas = std::vector<std::vector<Cell>>;

    /// The first cell of a stretch of `length` to be shown in so many cells, so that those from `start` up to
    /// the one before `end` are among them.
    static int FirstShown(int length, int shown, int start, int end);
    void DrawFrame(Canvas& canvas) const;
    void DrawControl(Canvas& canvas, const DialogControl& control, bool ticked, bool focused) const;

    const DialogLayout& m_Layout;
    DialogExtent m_Extent;
};

} // namespace Nvr::Platform
