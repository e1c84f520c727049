#pragma once

#include "tests/faults/FaultCountdown.h"

#include <functional>

/// Lets the n-th use of a file fail: opening, reading, writing, flushing, closing, renaming, by the product
/// or by the standard library's streams. A file that cannot be closed is closed all the same, as the system
/// has it. Removing is no use: nobody could clear up then.
extern FaultCountdown FileFaults;

/// Runs before a file is made that must not be there yet; empty when nothing is to happen.
extern std::function<void(const char* path)> BeforeNewFile;
