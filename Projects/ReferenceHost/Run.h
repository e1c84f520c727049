#pragma once

#include "Projects/ReferenceHost/CommandLine.h"

namespace ReferenceHost {

/// Does what a command line asks for, and gives the exit code.
int Run(const CommandLine& line);

} // namespace ReferenceHost
