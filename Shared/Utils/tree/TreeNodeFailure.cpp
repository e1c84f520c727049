#include "Shared/Utils/tree/TreeNodeFailure.h"

#include "Shared/Utils/Reporting.h"

namespace Nvr {

void ReportTreeFailure(const String& message, const char* file, int line) noexcept {
    ReportException(TreeNodeException(message), file, line);
}

void ReportTreeFailure(const char* message, const char* file, int line) noexcept {
    try {
        ReportTreeFailure(String(message), file, line);
    } catch (...) {
        SetReportLocation(file, line);
    }
}

} // namespace Nvr
