#pragma once

#include <cstddef>
#include <string>

namespace ReferenceHost {

/// What the standard streams are connected to, and how text may look there.
namespace Terminal {

bool IsOutputTerminal();
bool IsErrorTerminal();
/// Columns of the terminal, 80 when it does not say.
int Width();
/// True when colour is welcome on standard output: a terminal, and no NO_COLOR.
bool HasColour();
bool HasErrorColour();

/// `text` in bold, or dimmed, where colour is welcome on standard output; else as it is.
std::string Bold(const std::string& text);
std::string Dim(const std::string& text);

/// Somebody can be asked: standard input and output are a terminal.
bool CanAsk();

/// Nobody reads standard output any more: the pipe that it is has been closed.
bool IsOutputClosed();

/// An error as a line of the error stream, with the program's name.
std::string Complaint(const std::string& sentence);
void Complain(const std::string& sentence);
/// A text on standard output.
void Print(const std::string& text);
/// Says above a dialog for which file it asks, and for how many more.
void SayWhatIsAskedFor(const std::string& file, std::size_t more);

} // namespace Terminal

} // namespace ReferenceHost
