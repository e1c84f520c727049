#include "Projects/Explain/Explanation.h"
#include "Projects/Explain/WhyNot.h"
#include "Projects/Formats/Formats.h"
#include "Projects/ReferenceHost/CommandLine.h"
#include "Projects/ReferenceHost/Opening.h"
#include "Projects/ReferenceHost/Plugin.h"
#include "Projects/ReferenceHost/ScoreFile.h"
#include "Projects/ReferenceHost/ScoreSummary.h"
#include "Projects/ReferenceHost/StoredOptions.h"
#include "Projects/ReferenceHost/Terminal.h"

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
    const TabText::TabReading reading(std::filesystem::absolute(file),
                                      std::filesystem::absolute(line.ConfigFolder));
    const auto explanation = Explain::Explanation::Of(reading);
    std::cout << (line.Explain == CommandLine::Explanation::Html
                      ? Explain::ExplanationHtml(explanation, file.filename().string())
                      : Explain::ExplanationText(explanation, Terminal::HasColour()));
}

/// Writes the score in one format, to where the command line wants it; empty when it went well or was not
/// asked for.
std::string WriteFormat(const Formats::Conversion& conversion, std::string_view name,
                        const std::filesystem::path& file, const std::filesystem::path& wish) {
    if (wish.empty())
        return {};
    const Formats::Format* format = Formats::FindFormat(name);
    const std::filesystem::path target = TargetFor(file, wish, std::string(format->Extension).c_str());
    if (const Formats::Format* named = Formats::FindFormatByExtension(target.extension().string()))
        format = named;
    std::string why;
    const std::string bytes = format->Write(conversion, why);
    return why.empty() ? WriteWholeFile(target, bytes) : target.string() + " cannot be made: " + why;
}

/// Shows what is in a finished score and hands it on in other formats; false when some of that failed.
/// `place` is where the score lies.
bool ShowScore(const CommandLine& line, const std::filesystem::path& file, const std::filesystem::path& place,
               const std::string& bytes) {
    std::string why;
    std::optional<Formats::Conversion> conversion = Formats::Conversion::Of(bytes, file.stem().string(), why);
    if (!conversion) {
        Complain(file.string() + ": the score cannot be read: " + why);
        return false;
    }
    if (file.extension() != kScoreExtension)
        conversion->JoinText(TabText::TabReading(std::filesystem::absolute(file),
                                                 std::filesystem::absolute(line.ConfigFolder)));
    if (line.Explain != CommandLine::Explanation::None)
        ExplainTab(line, file);
    else if (line.Dump)
        std::cout << conversion->Tree->ToText().View();
    else
        std::cout << Terminal::Bold(file.string()) << "\n"
                  << SummaryText(conversion->Model) << "  " << Terminal::Dim("Score          ")
                  << place.string() << "\n";
    bool good = true;
    for (const auto& [name, wish] :
         {std::pair{"musicxml", line.MusicXml}, {"mid", line.Midi}, {"svg", line.Svg}})
        if (const std::string failure = WriteFormat(*conversion, name, file, wish); !failure.empty()) {
            Complain(failure);
            good = false;
        }
    return good;
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
        Complain(file.string() + ": " + Explain::WhyNotTaken(file));
    else if (result.Cancelled)
        Complain(file.string() + ": cancelled, no score was kept");
    else if (!result.Score)
        Complain(file.string() + ": " + Explain::WhyNoScore(file));
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
