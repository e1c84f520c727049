#pragma once

#include "Projects/Opening/Plugin.h"
#include "Projects/Opening/TabOpener.h"
#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/Inputs.h"
#include "Projects/ReferenceHost/JobResult.h"
#include "Projects/ReferenceHost/RunFolder.h"
#include "Projects/ReferenceHost/Targets.h"
#include "Projects/TabText/Preparation.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ReferenceHost {

struct Answer;

/// Opens things one by one as a command line says, writes what is to be written of them, and says what came
/// of it. Borrows everything, which must outlive it. Nothing throws: a thing for which memory is too small is
/// one that failed, and the next one has all of it again.
class Converter {
public:
    /// The plug-in must be started; the options that it uses lie in `configFolder`.
    Converter(const CommandLine& line, const TargetPlan& plan, const Opening::Plugin& plugin,
              std::filesystem::path configFolder, const RunFolder& folder, bool showsProgress);

    /// One input of the plan with its targets. Nothing is written of an input whose parts would be written
    /// over what the run reads, or over what it writes of another input.
    JobResult Convert(const Input& input, const std::vector<Target>& targets) const;

    /// One line of --json-lines: {"id":...,"text":...}. The output is the line for it, also when something is
    /// wrong.
    JobResult ConvertLine(std::string_view line) const;

private:
    using Opened = Opening::Opened;

    // What the public operations do where nothing throws.
    JobResult ConvertInput(const Input& input, const std::vector<Target>& targets) const;
    // What to try on an input that gave no score, as the end of the sentence that says why; empty where its
    // text gives none when it is prepared either. `name` is the temporary name of its text, if it has one.
    std::string HelpForRefused(const Input& input, const std::optional<TemporaryTab>& name) const;
    Answer AnswerText(const std::string& text) const;
    Opened Open(const Input& input, Formats::Wanted wanted, std::optional<TemporaryTab>& name) const;
    Opened OpenTab(const std::filesystem::path& tab, const std::filesystem::path& source,
                   Formats::Wanted wanted) const;
    Opening::TabOpener Opener(Formats::Wanted wanted, Opening::OpeningWatcher& watcher) const;
    // For these and for what is printed.
    Formats::Wanted WantedFor(const std::vector<Target>& targets) const;
    // The text, prepared, and its parts where it is to be cut into these; opened under a temporary name where
    // that changed it. Empty when it cannot be read.
    std::vector<TabText::PreparedPart> Prepare(const Input& input) const;
    // Empty when every part can be written to its targets.
    std::string WhyNotInParts(const Input& input, const std::vector<Target>& targets,
                              const std::vector<TabText::PreparedPart>& parts) const;
    JobResult ConvertParts(const Input& input, const std::vector<Target>& targets,
                           const std::vector<TabText::PreparedPart>& parts) const;
    // `part` is the name of one part of the input, empty for all of it.
    JobResult Finish(const Input& input, const std::string& part, const Opened& opened,
                     const std::vector<Target>& targets) const;
    Opened OpenPrepared(const TabText::PreparedText& prepared, const Input& input, Formats::Wanted wanted,
                        std::optional<TemporaryTab>& name) const;
    JobResult TellRefusal(const Input& input, const std::string& part, const Opened& opened) const;
    /// Gives the names of the files written.
    std::vector<std::string> WriteTargets(const Formats::Conversion& conversion,
                                          const std::vector<Target>& targets, JobResult& result) const;
    std::string Printed(const Input& input, const Opened& opened,
                        const std::vector<std::string>& files) const;

    // A few words on the exception that is being handled.
    static std::string WhyItBrokeOff();

    const CommandLine& m_Line;
    const TargetPlan& m_Plan;
    const Opening::Plugin& m_Plugin;
    std::filesystem::path m_ConfigFolder;
    const RunFolder& m_Folder;
    bool m_ShowsProgress;
};

} // namespace ReferenceHost
