#include "tests/support/TerminalPerson.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utmp.h>

namespace TestSupport {

namespace {

constexpr auto kPatience = std::chrono::seconds(5);
constexpr int kGlance = 50;
constexpr int kSignalBase = 1000;

winsize SizeOf(int columns, int rows) {
    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    size.ws_row = static_cast<unsigned short>(rows);
    return size;
}

} // namespace

TerminalPerson::TerminalPerson(int columns, int rows, const std::function<int()>& program)
    : m_Columns(columns), m_Rows(rows), m_Screen(static_cast<std::size_t>(rows)) {
    const winsize size = SizeOf(columns, rows);
    if (openpty(&m_File, &m_OtherEnd, nullptr, nullptr, &size) != 0)
        return;
    m_Child = fork();
    if (m_Child == 0) {
        close(m_File);
        login_tty(m_OtherEnd);
        // As after a login: what these tests were started with is not what is tested.
        for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGTSTP})
            std::signal(signal, SIG_DFL);
        _exit(program());
    }
}

TerminalPerson::~TerminalPerson() {
    if (m_Child > 0) {
        kill(m_Child, SIGKILL);
        waitpid(m_Child, nullptr, 0);
    }
    close(m_File);
    close(m_OtherEnd);
}

void TerminalPerson::Type(const std::string& keys) const {
    [[maybe_unused]] const ssize_t written = write(m_File, keys.data(), keys.size());
}

void TerminalPerson::Resize(int columns, int rows) {
    m_Columns = columns;
    m_Rows = rows;
    const winsize size = SizeOf(columns, rows);
    ioctl(m_File, TIOCSWINSZ, &size);
}

void TerminalPerson::Signal(int signal) const {
    kill(m_Child, signal);
}

bool TerminalPerson::WaitFor(const std::string& text) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (RowOf(text) < 0 && std::chrono::steady_clock::now() < end)
        Read(kGlance);
    return RowOf(text) >= 0;
}

void TerminalPerson::Look() {
    Read(kGlance);
}

int TerminalPerson::RowOf(const std::string& text) const {
    for (std::size_t row = 0; row < m_Screen.size(); ++row)
        if (m_Screen[row].find(text) != std::string::npos)
            return static_cast<int>(row);
    return -1;
}

int TerminalPerson::WaitForEnd() {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
        Read(kGlance);
        int status = 0;
        if (waitpid(m_Child, &status, WNOHANG) != m_Child)
            continue;
        m_Child = -1;
        Read(kGlance);
        return WIFSIGNALED(status) ? kSignalBase + WTERMSIG(status) : WEXITSTATUS(status);
    }
    return -1;
}

bool TerminalPerson::IsInLineMode() const {
    termios mode{};
    return tcgetattr(m_OtherEnd, &mode) == 0 && (mode.c_lflag & ICANON) != 0 && (mode.c_lflag & ECHO) != 0 &&
           (mode.c_lflag & ISIG) != 0;
}

void TerminalPerson::Read(int milliseconds) {
    pollfd wait{m_File, POLLIN, 0};
    while (poll(&wait, 1, milliseconds) > 0 && (wait.revents & POLLIN) != 0) {
        char bytes[4096];
        const ssize_t count = read(m_File, bytes, sizeof bytes);
        if (count <= 0)
            return;
        m_Transcript.append(bytes, static_cast<std::size_t>(count));
        Interpret(std::string(bytes, static_cast<std::size_t>(count)));
    }
}

void TerminalPerson::Interpret(const std::string& bytes) {
    m_Pending += bytes;
    std::size_t at = 0;
    while (at < m_Pending.size()) {
        if (m_Pending[at] != '\x1b') {
            std::string& row = m_Screen[static_cast<std::size_t>(
                std::clamp(m_Row, 0, static_cast<int>(m_Screen.size()) - 1))];
            if (m_Pending[at] >= ' ') {
                row.resize(std::max(row.size(), static_cast<std::size_t>(m_Column) + 1), ' ');
                row[static_cast<std::size_t>(m_Column++)] = m_Pending[at];
            }
            ++at;
            continue;
        }
        std::size_t end = at + 2;
        while (end < m_Pending.size() && (m_Pending[end] < '@' || m_Pending[end] > '~'))
            ++end;
        if (end >= m_Pending.size())
            break;
        InterpretSequence(m_Pending.substr(at + 2, end - at - 2), m_Pending[end]);
        at = end + 1;
    }
    m_Pending.erase(0, at);
}

void TerminalPerson::InterpretSequence(const std::string& parameters, char command) {
    if (command == 'H') {
        m_Row = std::atoi(parameters.c_str()) - 1;
        const std::size_t separator = parameters.find(';');
        m_Column = separator == std::string::npos ? 0 : std::atoi(parameters.c_str() + separator + 1) - 1;
    } else if (command == 'J') {
        m_Screen.assign(static_cast<std::size_t>(m_Rows), std::string());
    }
}

} // namespace TestSupport
