#pragma once

#include "Shared/Gui/platform/Dialogs.h"

#include <string_view>

namespace Nvr::Platform {

/// The terminal of standard input while a dialog uses it: keys come one by one and unechoed, and a screen of
/// its own covers what was there. The destructor, and any signal that ends or stops the process, puts
/// everything back, the handlers of those signals included. One at a time.
class TerminalMode {
public:
    TerminalMode();
    ~TerminalMode();
    TerminalMode(const TerminalMode&) = delete;
    TerminalMode& operator=(const TerminalMode&) = delete;

    /// False when the terminal cannot be used; nothing was changed then.
    bool IsReady() const { return m_File >= 0; }
    /// In character cells; 80 by 24 when the terminal does not say.
    DialogExtent GetExtent() const;
    void Write(std::string_view bytes) const;

    enum class Event { Byte, Timeout, Resized, Gone };
    /// Waits for a byte, for at most `milliseconds` (-1 for ever). Gone means that the terminal has hung up.
    Event WaitForByte(char& byte, int milliseconds) const;

private:
    int m_File = -1;
};

} // namespace Nvr::Platform
