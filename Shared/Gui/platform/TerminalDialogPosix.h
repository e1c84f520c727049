#pragma once

#include "Shared/Gui/platform/Dialogs.h"

namespace Nvr {
struct DialogLayout;
}

namespace Nvr::Platform {

/// The dialog on the terminal of standard input, driven by the keys that people expect: Tab and Shift-Tab,
/// arrows, Space, Enter, Escape, the underlined letters with or without Alt; Ctrl-C and Ctrl-D are taken as
/// Escape. Follows a change of the window's size. The terminal is as before when it ends, by a result, an
/// exception or a signal. Empty when the terminal cannot be used.
std::optional<bool> RunTerminalDialog(const DialogLayout& layout, DialogEvents& events);

} // namespace Nvr::Platform
