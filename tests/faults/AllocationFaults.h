#pragma once

#include "tests/faults/FaultCountdown.h"

/// Lets the n-th allocation of a test fail. The program that links this has its own `operator new`, which
/// behaves as the standard one does: it calls the installed handler when it gets no memory. Its `realloc`
/// counts too.
extern FaultCountdown AllocationFaults;
