#include "Shared/Gui/platform/TerminalModePosix.h"

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace Nvr::Platform {

namespace {

constexpr DialogExtent kUsualExtent{80, 24};
// Own screen, cleared, cursor hidden; and back.
constexpr std::string_view kEnter = "\x1b[?1049h\x1b[?25l\x1b[2J";
constexpr std::string_view kLeave = "\x1b[0m\x1b[?25h\x1b[?1049l";
constexpr std::array<int, 5> kEndingSignals{SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGTSTP};

// What a signal handler needs: it is given nothing else.
volatile std::sig_atomic_t g_resized = 0;
int g_file = -1;
termios g_modeBefore{};
std::array<struct sigaction, kEndingSignals.size()> g_handlersBefore{};
struct sigaction g_resizeHandlerBefore {};

void WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void PutTerminalBack() {
    if (g_file < 0)
        return;
    WriteAll(g_file, kLeave);
    tcsetattr(g_file, TCSAFLUSH, &g_modeBefore);
}

void PutHandlersBack() {
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i)
        sigaction(kEndingSignals[i], &g_handlersBefore[i], nullptr);
    sigaction(SIGWINCH, &g_resizeHandlerBefore, nullptr);
}

// No signal of the kinds that are handled here comes to this thread while this lives: one that did would
// find the terminal changed and no handler that changes it back, or the other way round.
class SignalsHeldBack {
public:
    SignalsHeldBack() {
        sigset_t handled;
        sigemptyset(&handled);
        sigaddset(&handled, SIGWINCH);
        for (const int signal : kEndingSignals)
            sigaddset(&handled, signal);
        pthread_sigmask(SIG_BLOCK, &handled, &m_Before);
    }
    ~SignalsHeldBack() { pthread_sigmask(SIG_SETMASK, &m_Before, nullptr); }
    SignalsHeldBack(const SignalsHeldBack&) = delete;
    SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

private:
    sigset_t m_Before{};
};

// The terminal of standard input, which need not be the controlling one. Opened anew where that can be done:
// standard input may be open for reading alone. -1 when there is none.
int OpenTerminal() {
    std::array<char, PATH_MAX> name{};
    if (ttyname_r(STDIN_FILENO, name.data(), name.size()) == 0)
        if (const int file = open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC); file >= 0)
            return file;
    return fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
}

bool UseKeysOneByOne(int file) {
    termios mode = g_modeBefore;
    mode.c_lflag &= static_cast<tcflag_t>(~(ICANON | ECHO | ISIG | IEXTEN));
    mode.c_iflag &= static_cast<tcflag_t>(~(IXON | ICRNL | INLCR));
    mode.c_cc[VMIN] = 1;
    mode.c_cc[VTIME] = 0;
    return tcsetattr(file, TCSAFLUSH, &mode) == 0;
}

extern "C" void NoteResize(int /*signal*/) {
    g_resized = 1;
}

// The terminal first, then whatever the host wanted of this signal. Should the process live on (a stopped
// one that is continued, a handler that returns), the dialog takes the terminal again.
extern "C" void PutBackAndPassOn(int signal) {
    const int errorBefore = errno;
    PutTerminalBack();
    struct sigaction mine {};
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i)
        if (kEndingSignals[i] == signal)
            sigaction(signal, &g_handlersBefore[i], &mine);
    sigset_t only;
    sigset_t before;
    sigemptyset(&only);
    sigaddset(&only, signal);
    raise(signal);
    sigprocmask(SIG_UNBLOCK, &only, &before);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    sigaction(signal, &mine, nullptr);
    UseKeysOneByOne(g_file);
    WriteAll(g_file, kEnter);
    g_resized = 1;
    errno = errorBefore;
}

void SetHandlers() {
    struct sigaction ending {};
    ending.sa_handler = PutBackAndPassOn;
    sigemptyset(&ending.sa_mask);
    for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
        sigaction(kEndingSignals[i], nullptr, &g_handlersBefore[i]);
        // A host that ignores a signal goes on ignoring it.
        if (g_handlersBefore[i].sa_handler != SIG_IGN)
            sigaction(kEndingSignals[i], &ending, nullptr);
    }
    struct sigaction resize {};
    resize.sa_handler = NoteResize;
    sigemptyset(&resize.sa_mask);
    sigaction(SIGWINCH, &resize, &g_resizeHandlerBefore);
}

} // namespace

TerminalMode::TerminalMode() {
    if (g_file >= 0)
        return;
    const SignalsHeldBack heldBack;
    const int file = OpenTerminal();
    if (file < 0)
        return;
    if (tcgetattr(file, &g_modeBefore) != 0 || !UseKeysOneByOne(file)) {
        close(file);
        return;
    }
    m_File = file;
    g_file = file;
    g_resized = 0;
    SetHandlers();
    Write(kEnter);
}

TerminalMode::~TerminalMode() {
    if (m_File < 0)
        return;
    const SignalsHeldBack heldBack;
    PutTerminalBack();
    PutHandlersBack();
    g_file = -1;
    close(m_File);
}

DialogExtent TerminalMode::GetExtent() const {
    winsize size{};
    if (ioctl(m_File, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && size.ws_row > 0)
        return {size.ws_col, size.ws_row};
    return kUsualExtent;
}

void TerminalMode::Write(std::string_view bytes) const {
    WriteAll(m_File, bytes);
}

TerminalMode::Event TerminalMode::WaitForByte(char& byte, int milliseconds) const {
    constexpr int kLookForResize = 200;
    for (;;) {
        if (g_resized != 0) {
            g_resized = 0;
            return Event::Resized;
        }
        // A resize may come just before the wait begins: an endless wait looks up now and then.
        pollfd wait{m_File, POLLIN, 0};
        const int ready = poll(&wait, 1, milliseconds < 0 ? kLookForResize : milliseconds);
        if (ready < 0 && errno != EINTR)
            return Event::Gone;
        if (ready == 0 && milliseconds >= 0)
            return Event::Timeout;
        if (ready <= 0)
            continue;
        const ssize_t count = read(m_File, &byte, 1);
        if (count == 1)
            return Event::Byte;
        if (count == 0 || errno != EINTR)
            return Event::Gone;
    }
}

} // namespace Nvr::Platform
