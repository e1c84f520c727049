#pragma once

#include <functional>

struct Cost {
    /// Processor time in milliseconds.
    double Time = -1;
    /// By how many megabytes the memory of the process grew at most.
    double PeakMemory = -1;
};

/// What `step` costs in a child process whose heap holds nothing free to begin with. Negative numbers when
/// the system does not tell or the child fails.
Cost CostInChild(const std::function<void()>& step);
