#pragma once

#include "tests/faults/FaultCountdown.h"

#include <cstddef>

/// Lets the n-th allocation of a test fail. The program that links this has its own `operator new`, which
/// behaves as the standard one does: it calls the installed handler when it gets no memory. Its `realloc`
/// counts too.
extern FaultCountdown AllocationFaults;

/// The most bytes that were asked for at once; whoever wants to know sets it to 0 before.
extern std::size_t LargestAllocation;
