#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstdint>

namespace Nvr::ReportSteps {

/// What ReportError and the handlers of other reports have in common: the message and its two values go to
/// the log sink when the settings say so, then the call stack with the debug switch for it. Never throws.
void Run(const String& message, std::intptr_t firstValue, std::intptr_t secondValue) noexcept;

} // namespace Nvr::ReportSteps
