#include "Projects/ReferenceHost/Terminal.h"

#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace ReferenceHost::Terminal {

namespace {

constexpr int kUsualWidth = 80;

bool ColourIsUnwanted() {
    const char* wish = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return (wish != nullptr && wish[0] != '\0') || (terminal != nullptr && std::string(terminal) == "dumb");
}

std::string Styled(const std::string& text, const char* style) {
    return HasColour() ? std::string("\x1b[") + style + "m" + text + "\x1b[0m" : text;
}

} // namespace

bool IsOutputTerminal() {
    return isatty(STDOUT_FILENO) != 0;
}

bool IsErrorTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

int Width() {
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    return kUsualWidth;
}

bool HasColour() {
    return IsOutputTerminal() && !ColourIsUnwanted();
}

bool HasErrorColour() {
    return IsErrorTerminal() && !ColourIsUnwanted();
}

std::string Bold(const std::string& text) {
    return Styled(text, "1");
}

std::string Dim(const std::string& text) {
    return Styled(text, "2");
}

} // namespace ReferenceHost::Terminal
