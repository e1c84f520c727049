#pragma once

#include <functional>

/// By how many megabytes the memory of a process grows at most while it runs `step`: measured in a child
/// process, whose heap holds nothing free to begin with. Negative when the system does not tell.
double PeakMemoryOf(const std::function<void()>& step);
