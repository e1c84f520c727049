#include "Shared/Gui/platform/TerminalKeysPosix.h"

namespace Nvr::Platform {

namespace {

constexpr char kEscape = 27;
constexpr char kControlC = 3;
constexpr char kControlD = 4;
// A terminal sends the bytes of one key faster than this, in milliseconds.
constexpr int kPauseAfterEscape = 50;

// After "ESC [" or "ESC O": parameters, then the letter that names the key.
TerminalKey ReadNamedKey(const TerminalMode& terminal) {
    char byte = 0;
    do {
        if (terminal.WaitForByte(byte, kPauseAfterEscape) != TerminalMode::Event::Byte)
            return {};
    } while ((byte >= '0' && byte <= '9') || byte == ';');
    switch (byte) {
    case 'A':
    case 'D':
        return {TerminalKeyKind::Back, 0};
    case 'B':
    case 'C':
        return {TerminalKeyKind::Forward, 0};
    case 'Z':
        return {TerminalKeyKind::BackTab, 0};
    default:
        return {};
    }
}

TerminalKey ReadAfterEscape(const TerminalMode& terminal) {
    char byte = 0;
    if (terminal.WaitForByte(byte, kPauseAfterEscape) != TerminalMode::Event::Byte || byte == kEscape)
        return {TerminalKeyKind::Escape, 0};
    if (byte == '[' || byte == 'O')
        return ReadNamedKey(terminal);
    // A letter with Alt.
    return {TerminalKeyKind::Character, byte};
}

} // namespace

TerminalKey ReadKey(const TerminalMode& terminal) {
    char byte = 0;
    switch (terminal.WaitForByte(byte, -1)) {
    case TerminalMode::Event::Resized:
        return {TerminalKeyKind::Resized, 0};
    case TerminalMode::Event::Gone:
        return {TerminalKeyKind::Gone, 0};
    default:
        break;
    }
    switch (byte) {
    case '\t':
        return {TerminalKeyKind::Tab, 0};
    case '\r':
    case '\n':
        return {TerminalKeyKind::Enter, 0};
    case kControlC:
    case kControlD:
        return {TerminalKeyKind::Escape, 0};
    case kEscape:
        return ReadAfterEscape(terminal);
    default:
        return {TerminalKeyKind::Character, byte};
    }
}

} // namespace Nvr::Platform
