#pragma once

#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/Inputs.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace ReferenceHost {

/// One thing to be written.
struct Target {
    const Formats::Format* Format = nullptr;
    /// Empty for standard output.
    std::filesystem::path File;
};

/// What a run reads and writes. Borrows the inputs.
struct TargetPlan {
    /// What is to be written of each input, in the order of the inputs.
    std::vector<std::vector<Target>> Targets;
    /// The files of the inputs and those of the targets, under their real paths.
    std::set<std::filesystem::path> Sources;
    std::map<std::filesystem::path, const Input*> Written;

    /// Why nothing of this input can go to that target, as a sentence: it is an input of the run, or a target
    /// of another one. Empty when it can; devices take everything.
    std::string WhyNot(const Target& target, const Input& input) const;
};

/// Works out what is to be written. Nothing is written and no folder made. `mistake` says what is wrong when
/// a target cannot be that of its input or is named twice, or an extension names no format; the plan is empty
/// then.
TargetPlan PlanTargets(const CommandLine& line, const std::vector<Input>& inputs, std::string& mistake);

/// What something is called for one of its parts: "song - Gtr I". The name of the part is one of
/// TabText::PreparedPart; that of the whole, which is empty, adds nothing.
std::string NameOfPart(const std::string& name, const std::string& part);

/// The targets of one part: files with its name at the end of theirs, "song - Gtr I.nvf"; what is no ordinary
/// file, such as a device, stays.
std::vector<Target> TargetsOfPart(const std::vector<Target>& targets, const std::string& part);

} // namespace ReferenceHost
