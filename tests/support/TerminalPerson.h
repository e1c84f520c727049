#pragma once

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace TestSupport {

/// A person at a pseudo-terminal: starts something there, types, and looks at the screen.
class TerminalPerson {
public:
    /// Runs `program` in a child process on a terminal of `columns` by `rows` cells. What it returns is the
    /// child's exit code.
    TerminalPerson(int columns, int rows, const std::function<int()>& program);
    /// Ends the child when it still runs.
    ~TerminalPerson();
    TerminalPerson(const TerminalPerson&) = delete;
    TerminalPerson& operator=(const TerminalPerson&) = delete;

    void Type(const std::string& keys) const;
    void Resize(int columns, int rows);
    void Signal(int signal) const;
    /// Reads until `text` stands on the screen; false when it does not within five seconds.
    bool WaitFor(const std::string& text);
    /// The screen as it is now, a line a row, blanks at the ends cut off.
    std::vector<std::string> Screen() const { return m_Screen; }
    /// Reads what has come, for a moment.
    void Look();
    /// Where `text` stands on the screen: the row, counted from 0, or -1.
    int RowOf(const std::string& text) const;
    /// Everything that was ever sent to the terminal, as bytes.
    const std::string& Transcript() const { return m_Transcript; }
    /// Waits for the end: the exit code, or 1000 plus the signal that ended it, or -1 after five seconds.
    int WaitForEnd();
    /// True when the terminal is in the line mode that a shell leaves it in.
    bool IsInLineMode() const;

private:
    void Read(int milliseconds);
    void Interpret(const std::string& bytes);
    void InterpretSequence(const std::string& parameters, char command);

    pid_t m_Child = -1;
    int m_File = -1;
    /// Keeps the terminal alive, so that its mode can be looked at after the child's end.
    int m_OtherEnd = -1;
    int m_Columns;
    int m_Rows;
    int m_Row = 0;
    int m_Column = 0;
    std::string m_Pending;
    std::vector<std::string> m_Screen;
    std::string m_Transcript;
};

} // namespace TestSupport
