#pragma once

#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/export/ScoreModel.h"

#include <filesystem>
#include <string>
#include <vector>

namespace ReferenceHost {

/// Writes a score in the formats that the command line asks for. `file` is where the score came from. Gives a
/// sentence for each export that failed; a target is then as it was.
std::vector<std::string> WriteExports(const CommandLine& line, const std::filesystem::path& file,
                                      const ScoreModel& score);

} // namespace ReferenceHost
