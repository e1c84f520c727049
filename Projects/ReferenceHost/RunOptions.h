#pragma once

#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/RunFolder.h"

#include <filesystem>
#include <string>

namespace ReferenceHost {

/// Stores the rhythm level of --remember; makes the folder of the options file when it is missing. Empty when
/// it went well, else a sentence that says what is wrong.
std::string RememberLevel(const CommandLine& line);

/// Lays the options of this run into its folder, which is then the plug-in's: the stored ones, with the level
/// of --rhythms in place. The stored file is only read. Empty when it went well, else a sentence that says
/// what is wrong.
std::string LayOutOptions(const CommandLine& line, const RunFolder& folder);

} // namespace ReferenceHost
