#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/Run.h"
#include "Projects/ReferenceHost/Terminal.h"

#include <csignal>
#include <iostream>

int main(int argc, char** argv) {
    // Whoever has read enough closes the pipe: that ends the run in order.
    std::signal(SIGPIPE, SIG_IGN);
    int exitCode = ReferenceHost::kExitDone;
    const auto line = ReferenceHost::ParseCommandLine(argc, argv, exitCode);
    if (line)
        exitCode = ReferenceHost::Run(*line);
    std::cout.flush();
    if (!std::cout) {
        if (!ReferenceHost::Terminal::IsOutputClosed())
            ReferenceHost::Terminal::Complain("the output cannot be written");
        return ReferenceHost::kExitSomeFailed;
    }
    return exitCode;
}
