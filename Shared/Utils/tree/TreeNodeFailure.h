#pragma once

#include "Shared/Utils/NvrString.h"

namespace Nvr {

/// Reports that a tree cannot be read or written, and keeps the place where that was found: the message of a
/// TreeNodeException through ReportException. `file` is a literal. Never throws.
void ReportTreeFailure(const String& message, const char* file, int line) noexcept;
/// The same for a literal; without memory for a copy of it, the place alone is kept.
void ReportTreeFailure(const char* message, const char* file, int line) noexcept;

} // namespace Nvr
