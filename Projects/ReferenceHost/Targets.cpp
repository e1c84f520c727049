#include "Projects/ReferenceHost/Targets.h"

#include "Projects/Formats/Formats.h"
#include "Projects/ReferenceHost/Help.h"

#include <stdexcept>

namespace ReferenceHost {

namespace fs = std::filesystem;

namespace {

class Mistake : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

const Formats::Format* ScoreFormat() {
    return Formats::FindFormat("nvf");
}

fs::path Renamed(fs::path name, const Formats::Format& format) {
    return name.replace_extension(fs::path(format.Extension));
}

fs::path Normal(const fs::path& path) {
    std::error_code failure;
    const fs::path real = fs::weakly_canonical(path, failure);
    return failure ? fs::absolute(path).lexically_normal() : real;
}

// Real paths. Most files of a run lie in few folders, whose own are asked for once.
class RealPaths {
public:
    fs::path Of(const fs::path& path) {
        std::error_code failure;
        if (!path.has_parent_path() || IsNameOfFolder(path.filename()) || fs::is_symlink(path, failure))
            return Normal(path);
        const auto [folder, isNew] = m_Folders.try_emplace(path.parent_path());
        if (isNew)
            folder->second = Normal(folder->first);
        return folder->second / path.filename();
    }

private:
    static bool IsNameOfFolder(const fs::path& name) { return name.empty() || name == "." || name == ".."; }

    std::map<fs::path, fs::path> m_Folders;
};

bool IsDevice(const fs::path& place) {
    std::error_code failure;
    return fs::exists(place, failure) && !fs::is_regular_file(place, failure);
}

// REQUIRES: `place` is the real path of the target, and no device.
std::string WhyNot(const TargetPlan& plan, const fs::path& place, const Target& target, const Input& input) {
    if (plan.Sources.contains(place))
        return target.File.string() + " is both read and written";
    const auto other = plan.Written.find(place);
    if (other == plan.Written.end() || other->second == &input)
        return {};
    return "both " + other->second->Path.string() + " and " + input.Path.string() + " would be written to " +
           target.File.string();
}

// Plans for one command line.
class Planner {
public:
    Planner(const CommandLine& line, const std::vector<Input>& inputs) : m_Line(line), m_Inputs(inputs) {}

    TargetPlan Plan() {
        for (const Input& input : m_Inputs)
            m_Plan.Sources.insert(m_RealPaths.Of(input.Path));
        for (const Input& input : m_Inputs) {
            m_Plan.Targets.push_back(TargetsOf(input));
            for (const Target& target : m_Plan.Targets.back())
                Add(target, input);
        }
        return std::move(m_Plan);
    }

private:
    std::vector<Target> TargetsOf(const Input& input) const {
        if (m_Line.Outputs.empty())
            return BesideInput(input);
        std::vector<Target> targets;
        for (const Destination& output : m_Line.Outputs) {
            if (output.IsStandardOutput())
                targets.push_back({m_Line.ToFormats.front(), {}});
            else if (output.IsFolder())
                AddInFolder(output.Name, input, targets);
            else
                targets.push_back({FormatOf(output.Name), output.Name});
        }
        return targets;
    }

    std::vector<Target> BesideInput(const Input& input) const {
        std::vector<Target> targets;
        const fs::path place = input.IsStandardInput() ? input.Relative : input.Path;
        for (const Formats::Format* format : m_Line.ToFormats)
            targets.push_back({format, Renamed(place, *format)});
        const bool isFile = input.What == Input::Kind::Tab || input.What == Input::Kind::OtherText;
        if (targets.empty() && isFile && !m_Line.OnlyLooks())
            targets.push_back({ScoreFormat(), Renamed(place, *ScoreFormat())});
        return targets;
    }

    void AddInFolder(const fs::path& folder, const Input& input, std::vector<Target>& targets) const {
        const auto add = [&](const Formats::Format& format) {
            targets.push_back({&format, folder / Renamed(input.Relative, format)});
        };
        for (const Formats::Format* format : m_Line.ToFormats)
            add(*format);
        if (m_Line.ToFormats.empty())
            add(*ScoreFormat());
    }

    const Formats::Format* FormatOf(const fs::path& file) const {
        if (m_Line.ToFormats.size() == 1 && m_Line.Outputs.size() == 1)
            return m_Line.ToFormats.front();
        if (!m_Line.ToFormats.empty())
            throw Mistake("several formats go into a folder/, not into the file " + file.string());
        if (const Formats::Format* format = Formats::FindFormatByExtension(file.extension().string()))
            return format;
        throw Mistake(file.string() + ": its extension names no format (there are " + FormatNames() +
                      "; --to FORMAT says which)");
    }

    void Add(const Target& target, const Input& input) {
        if (target.File.empty()) {
            if (m_Inputs.size() > 1)
                throw Mistake("several files cannot go to standard output");
            return;
        }
        const fs::path place = m_RealPaths.Of(target.File);
        if (IsDevice(place))
            return;
        if (const std::string why = WhyNot(m_Plan, place, target, input); !why.empty()) {
            const bool isOneName = m_Plan.Written.contains(place) && !m_Line.Outputs.empty();
            throw Mistake(why + (isOneName ? " (a name with a slash at its end is a folder)" : ""));
        }
        if (!m_Plan.Written.emplace(place, &input).second)
            throw Mistake(target.File.string() + " is named twice as a target");
    }

    const CommandLine& m_Line;
    const std::vector<Input>& m_Inputs;
    RealPaths m_RealPaths;
    TargetPlan m_Plan;
};

} // namespace

std::string TargetPlan::WhyNot(const Target& target, const Input& input) const {
    const fs::path place = Normal(target.File);
    return IsDevice(place) ? std::string() : ReferenceHost::WhyNot(*this, place, target, input);
}

TargetPlan PlanTargets(const CommandLine& line, const std::vector<Input>& inputs, std::string& mistake) {
    try {
        return Planner(line, inputs).Plan();
    } catch (const Mistake& wrong) {
        mistake = wrong.what();
        return {};
    }
}

std::string NameOfPart(const std::string& name, const std::string& part) {
    return part.empty() ? name : name + " - " + part;
}

std::vector<Target> TargetsOfPart(const std::vector<Target>& targets, const std::string& part) {
    std::vector<Target> ofPart = targets;
    for (Target& target : ofPart)
        if (!IsDevice(target.File))
            target.File.replace_filename(NameOfPart(target.File.stem().string(), part) +
                                         target.File.extension().string());
    return ofPart;
}

} // namespace ReferenceHost
