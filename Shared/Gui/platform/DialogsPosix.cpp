#include "Shared/Gui/platform/DialogsPosix.h"

#include "Shared/Gui/DialogLayout.h"
#include "Shared/Gui/platform/TerminalDialogPosix.h"
#include "Shared/Gui/platform/UnattendedDialogPosix.h"

#include <unistd.h>

namespace Nvr::Platform {

namespace {

// A person can only answer where both what is shown and what is typed are on a terminal.
bool HasPersonAtTerminal(NativeWindow parent) {
    return parent != nullptr && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
}

} // namespace

std::optional<bool> RunDialog(NativeWindow parent, const ResId& dialog, DialogEvents& events) {
    const std::optional<DialogLayout> layout = DialogLayout::Load(dialog);
    return layout ? RunDialogOfLayout(parent, *layout, events) : std::nullopt;
}

std::optional<bool> RunDialogOfLayout(NativeWindow parent, const DialogLayout& layout, DialogEvents& events) {
    if (HasPersonAtTerminal(parent))
        return RunTerminalDialog(layout, events);
    return RunUnattendedDialog(layout, events);
}

} // namespace Nvr::Platform
