#include "bench/CostInChild.h"

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A line of the process's status, in kilobytes; negative when there is none.
double StatusLine(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, name.size(), name) == 0)
            return std::atof(line.c_str() + name.size());
    }
    return -1;
}

Cost CostOf(const std::function<void()>& step) {
    malloc_trim(0);
    // The highest size so far is forgotten.
    std::ofstream("/proc/self/clear_refs") << "5" << std::flush;
    const double before = StatusLine("VmRSS:");
    const std::clock_t start = std::clock();
    step();
    const std::clock_t end = std::clock();
    constexpr double kMilliseconds = 1000;
    constexpr double kKilobytesPerMegabyte = 1024;
    return {kMilliseconds * static_cast<double>(end - start) / CLOCKS_PER_SEC,
            (StatusLine("VmHWM:") - before) / kKilobytesPerMegabyte};
}

} // namespace

Cost CostInChild(const std::function<void()>& step) {
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        const Cost cost = CostOf(step);
        const bool isTold = write(ends[1], &cost, sizeof cost) == sizeof cost;
        _exit(isTold ? 0 : 1);
    }
    close(ends[1]);
    Cost cost;
    if (child < 0 || read(ends[0], &cost, sizeof cost) != sizeof cost)
        cost = {};
    close(ends[0]);
    if (child > 0)
        waitpid(child, nullptr, 0);
    return cost;
}
