#include "Shared/Utils/GuiError.h"

#include "Shared/Utils/ReportSteps.h"

#include <utility>

namespace Nvr::GuiError {

namespace {

ErrorHandler* s_Handler = nullptr;

} // namespace

void DefaultHandler::HandleError(int number, const String& message, std::intptr_t firstValue,
                                 std::intptr_t secondValue) {
    const String text = "Gui Error: Num = " + String::FromInt(number) + ", Message: " + message;
    ReportSteps::Run(text, firstValue, secondValue);
}

ErrorHandler* GetHandler() {
    return s_Handler;
}

ErrorHandler* SetHandler(ErrorHandler* handler) {
    return std::exchange(s_Handler, handler);
}

void Report(int number, const String& message, std::intptr_t firstValue, std::intptr_t secondValue) {
    if (s_Handler != nullptr)
        s_Handler->HandleError(number, message, firstValue, secondValue);
}

} // namespace Nvr::GuiError
