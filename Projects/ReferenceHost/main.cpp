#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/Exports.h"
#include "Projects/ReferenceHost/Opening.h"
#include "Projects/ReferenceHost/Plugin.h"
#include "Projects/ReferenceHost/ScoreFile.h"
#include "Projects/ReferenceHost/ScoreSummary.h"
#include "Projects/ReferenceHost/StoredOptions.h"
#include "Projects/ReferenceHost/Terminal.h"
#include "Projects/ReferenceHost/WhyNot.h"
#include "Projects/ReferenceHost/explain/Explanation.h"

#include <iostream>
#include <memory>

namespace ReferenceHost {

namespace {

constexpr const char* kScoreExtension = ".nvf";

void Complain(const std::string& sentence) {
    const char* mark = Terminal::HasErrorColour() ? "\x1b[31mfretline:\x1b[0m " : "fretline: ";
    std::cerr << mark << sentence << "\n";
}

void ExplainTab(const CommandLine& line, const std::filesystem::path& file) {
    const Explanation explanation =
        Explanation::Of(std::filesystem::absolute(file), std::filesystem::absolute(line.ConfigFolder));
    std::cout << (line.Explain == CommandLine::Explanation::Html
                      ? ExplanationHtml(explanation, file.filename().string())
                      : ExplanationText(explanation, Terminal::HasColour()));
}

/// Shows what is in a finished score and hands it on in other formats; false when some of that failed.
/// `place` is where the score lies.
bool ShowScore(const CommandLine& line, const std::filesystem::path& file, const std::filesystem::path& place,
               const std::string& bytes) {
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(bytes.data(), bytes.size()));
    std::string why = "it is damaged, or no score file";
    const std::optional<ScoreModel> score = tree == nullptr ? std::nullopt : ScoreModel::Read(*tree, why);
    if (!score) {
        Complain(file.string() + ": the score cannot be read: " + why);
        return false;
    }
    if (line.Explain != CommandLine::Explanation::None)
        ExplainTab(line, file);
    else if (line.Dump)
        std::cout << tree->ToText().View();
    else
        std::cout << Terminal::Bold(file.string()) << "\n"
                  << SummaryText(*score) << "  " << Terminal::Dim("Score          ") << place.string()
                  << "\n";
    const std::vector<std::string> failures = WriteExports(line, file, *score);
    for (const std::string& failure : failures)
        Complain(failure);
    return failures.empty();
}

bool OpenScore(const CommandLine& line, const std::filesystem::path& file) {
    const std::optional<std::string> bytes = ReadWholeFile(file);
    if (!bytes) {
        Complain(file.string() + " cannot be read");
        return false;
    }
    if (line.Explain != CommandLine::Explanation::None) {
        Complain(file.string() + ": only a tab can be explained, a finished score no longer knows its text");
        return false;
    }
    return ShowScore(line, file, file, *bytes);
}

/// False when the file gave no score or the score could not be kept.
bool OpenTab(const CommandLine& line, const Plugin& plugin, const std::filesystem::path& file) {
    const OpeningResult result = Opening().Open(plugin, std::filesystem::absolute(file));
    for (const std::string& message : result.Messages)
        std::cerr << file.string() << ": " << message << "\n";
    if (!result.Taken)
        Complain(file.string() + ": " + WhyNotTaken(file));
    else if (result.Cancelled)
        Complain(file.string() + ": cancelled, no score was kept");
    else if (!result.Score)
        Complain(file.string() + ": " + WhyNoScore(file));
    if (!result.Score)
        return false;
    const std::filesystem::path target = TargetFor(file, line.Output, kScoreExtension);
    if (const std::string why = WriteWholeFile(target, *result.Score); !why.empty()) {
        Complain(why);
        return false;
    }
    return ShowScore(line, file, target, *result.Score);
}

int Run(const CommandLine& line) {
    if (const std::string why = PrepareOptions(line.ConfigFolder, line.RhythmLevel); !why.empty()) {
        Complain(why);
        return kExitUsage;
    }
    Plugin plugin;
    const bool asks = !line.Yes && !line.RhythmLevel;
    if (const std::string why = plugin.Load(line.Plugin, std::filesystem::absolute(line.ConfigFolder), asks);
        !why.empty()) {
        Complain(why);
        return kExitUsage;
    }
    CatchInterrupts();
    bool all = true;
    for (const std::filesystem::path& file : line.Files) {
        const bool good =
            file.extension() == kScoreExtension ? OpenScore(line, file) : OpenTab(line, plugin, file);
        all = all && good;
        if (WasInterrupted())
            return kExitCancelled;
    }
    return all ? kExitDone : kExitSomeFailed;
}

} // namespace

} // namespace ReferenceHost

int main(int argc, char** argv) {
    int exitCode = ReferenceHost::kExitDone;
    const auto line = ReferenceHost::ParseCommandLine(argc, argv, exitCode);
    if (!line)
        return exitCode;
    exitCode = ReferenceHost::Run(*line);
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "fretline: the output cannot be written\n";
        return ReferenceHost::kExitSomeFailed;
    }
    return exitCode;
}
