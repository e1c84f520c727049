#pragma once

#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/Inputs.h"

#include <filesystem>
#include <string>
#include <vector>

namespace ReferenceHost {

/// One thing to be written.
struct Target {
    const Formats::Format* Format = nullptr;
    /// Empty for standard output.
    std::filesystem::path File;
};

/// Works out what is to be written of each input, in the order of the inputs. Nothing is written and no
/// folder made. `mistake` says what is wrong when two of them have one target, a target is itself an input,
/// or an extension names no format; the result is empty then.
std::vector<std::vector<Target>> PlanTargets(const CommandLine& line, const std::vector<Input>& inputs,
                                             std::string& mistake);

/// What something is called for one of its parts: "song - Gtr I". The name of the part is one of
/// TabText::PreparedPart; that of the whole, which is empty, adds nothing.
std::string NameOfPart(const std::string& name, const std::string& part);

/// The targets of one part: files with its name at the end of theirs, "song - Gtr I.nvf"; what is no ordinary
/// file, such as a device, stays.
std::vector<Target> TargetsOfPart(const std::vector<Target>& targets, const std::string& part);

} // namespace ReferenceHost
