#pragma once

#include "Projects/Opening/FileOpening.h"
#include "Projects/ReferenceHost/ProgressBar.h"

namespace ReferenceHost {

/// Shows how far an opening is when it is wanted, and passes Ctrl-C on as its cancel.
class ProgressWatcher : public Opening::OpeningWatcher {
public:
    explicit ProgressWatcher(bool showsProgress) : m_ShowsProgress(showsProgress) {}

    void OnBegin(const std::string& title) override;
    bool OnPercent(int percent) override;
    void OnEnd() override;

private:
    bool m_ShowsProgress;
    ProgressBar m_Bar;
};

/// Makes Ctrl-C, and a request to end or a terminal that is closed, cancel the running conversion instead of
/// ending the program. A second Ctrl-C ends it.
void CatchInterrupts();
/// True once Ctrl-C was pressed, or a request to end came.
bool WasInterrupted();
/// True when it was such a request.
bool WasAskedToEnd();

} // namespace ReferenceHost
