#include "Projects/ReferenceHost/Terminal.h"

#include <cstdlib>
#include <iostream>
#include <poll.h>
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

bool CanAsk() {
    return isatty(STDIN_FILENO) != 0 && IsOutputTerminal();
}

bool IsOutputClosed() {
    pollfd descriptor{STDOUT_FILENO, POLLOUT, 0};
    return poll(&descriptor, 1, 0) > 0 && (descriptor.revents & POLLERR) != 0;
}

std::string Complaint(const std::string& sentence) {
    return (HasErrorColour() ? "\x1b[31mfretline:\x1b[0m " : "fretline: ") + sentence + "\n";
}

void Complain(const std::string& sentence) {
    std::cerr << Complaint(sentence);
}

void Print(const std::string& text) {
    std::cout << text;
}

void SayWhatIsAskedFor(const std::string& file, std::size_t more) {
    std::cout << "Rhythms of " << file;
    if (more != 0)
        std::cout << " and " << more << (more == 1 ? " more file" : " more files");
    // The dialog has the screen to itself: there the window's title says it.
    std::cout << ":\n\x1b]2;Rhythms of " << file << "\x1b\\" << std::flush;
}

} // namespace ReferenceHost::Terminal
