#pragma once

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

} // namespace Terminal

} // namespace ReferenceHost
