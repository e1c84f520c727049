#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/Run.h"
#include "Projects/ReferenceHost/Terminal.h"

#include <csignal>
#include <iostream>
#include <malloc.h>

namespace {

// What a tab took is kept for the next one. By itself the allocator gives the end of its heap back once that
// is twice the largest block so far, which the tree of a small score is or is not by chance; then each tab
// costs hundreds of page faults.
void KeepMemoryForNextTab() {
    constexpr int kMegabyte = 1024 * 1024;
    constexpr int kLargestBlockOfHeap = 8 * kMegabyte;
    constexpr int kLargestFreeEnd = 2 * kLargestBlockOfHeap;
    mallopt(M_MMAP_THRESHOLD, kLargestBlockOfHeap);
    mallopt(M_TRIM_THRESHOLD, kLargestFreeEnd);
}

} // namespace

int main(int argc, char** argv) {
    // Whoever has read enough closes the pipe: that ends the run in order.
    std::signal(SIGPIPE, SIG_IGN);
    KeepMemoryForNextTab();
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
