#include "bench/PeakMemory.h"

#include <cstdlib>
#include <fstream>
#include <string>

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A line of the process's status, in kilobytes; negative when there is none.
double StatusLine(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, name.size(), name) == 0)
            return std::atof(line.c_str() + name.size());
    }
    return -1;
}

double GrowthIn(const std::function<void()>& step) {
    malloc_trim(0);
    // The highest size so far is forgotten.
    std::ofstream("/proc/self/clear_refs") << "5" << std::flush;
    const double before = StatusLine("VmRSS:");
    step();
    return (StatusLine("VmHWM:") - before) / 1024;
}

} // namespace

double PeakMemoryOf(const std::function<void()>& step) {
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0) {
        const double growth = GrowthIn(step);
        const bool isTold = write(ends[1], &growth, sizeof growth) == sizeof growth;
        _exit(isTold ? 0 : 1);
    }
    close(ends[1]);
    double growth = -1;
    if (child < 0 || read(ends[0], &growth, sizeof growth) != sizeof growth)
        growth = -1;
    close(ends[0]);
    if (child > 0)
        waitpid(child, nullptr, 0);
    return growth;
}
