#pragma once

#include "Shared/Gui/platform/TerminalModePosix.h"

namespace Nvr::Platform {

enum class TerminalKeyKind {
    Character,
    Tab,
    BackTab,
    /// Arrow down or right.
    Forward,
    /// Arrow up or left.
    Back,
    Enter,
    Escape,
    Other,
    /// Not a key: the window's size has changed.
    Resized,
    /// Not a key: the terminal has hung up.
    Gone,
};

struct TerminalKey {
    TerminalKeyKind Kind = TerminalKeyKind::Other;
    /// Only for Character.
    char Character = 0;
};

/// Waits for the next key. Sequences of bytes that terminals send for one key are taken together; an Escape
/// on its own is told from the start of such a sequence by the pause after it.
TerminalKey ReadKey(const TerminalMode& terminal);

} // namespace Nvr::Platform
