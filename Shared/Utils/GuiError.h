#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstdint>

/// The failures of the window toolkit, reported through one exchangeable handler.
namespace Nvr::GuiError {

struct ErrorHandler {
    virtual ~ErrorHandler() = default;
    /// The two values mean what the reporter says; they go to the logger as they are.
    virtual void HandleError(int number, const String& message, std::intptr_t firstValue,
                             std::intptr_t secondValue) = 0;
};

/// Reports "Gui Error: Num = " with the number, ", Message: " and the message, as ReportError would.
struct DefaultHandler : ErrorHandler {
    void HandleError(int number, const String& message, std::intptr_t firstValue,
                     std::intptr_t secondValue) override;
};

/// The handler in use, or null; there is none unless somebody sets it.
ErrorHandler* GetHandler();
/// Borrows `handler`, until it is replaced; null for none. Gives the former one.
ErrorHandler* SetHandler(ErrorHandler* handler);

/// Calls the handler; does nothing when there is none.
void Report(int number, const String& message, std::intptr_t firstValue = 0, std::intptr_t secondValue = 0);

} // namespace Nvr::GuiError
