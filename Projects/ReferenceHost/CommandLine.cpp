#include "Projects/ReferenceHost/CommandLine.h"

#include "Projects/Formats/Formats.h"
#include "Projects/ReferenceHost/Help.h"
#include "Projects/ReferenceHost/Terminal.h"
#include "Projects/TabText/Preparation.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <sstream>
#include <thread>

namespace ReferenceHost {

namespace {

constexpr int kMostJobs = 1024;

std::filesystem::path UserConfigFolder() {
    if (const char* folder = std::getenv("XDG_CONFIG_HOME"); folder != nullptr && folder[0] == '/')
        return std::filesystem::path(folder) / "fretline";
    if (const char* home = std::getenv("HOME"); home != nullptr && home[0] != '\0')
        return std::filesystem::path(home) / ".config" / "fretline";
    return std::filesystem::temp_directory_path() / "fretline";
}

// Beside the program's own place: installed in lib/fretline of the same prefix, or in the root of the build
// folder.
std::filesystem::path PluginOfProgram() {
    std::error_code failure;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
    auto installed = folder.parent_path() / FRETLINE_PLUGIN_FOLDER / "libFretline.so";
    if (std::filesystem::exists(installed, failure))
        return installed;
    return folder.parent_path().parent_path() / "libFretline.so";
}

// What the parser gives before it is understood.
struct Words {
    std::vector<std::string> Outputs;
    std::vector<std::string> Formats;
    std::string Explanation;
    std::string Preparation;
    int RhythmLevel = 0;
    int Jobs = static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
    bool Dump = false;
    bool Json = false;
    bool Quiet = false;
};

std::string UnknownFormat(const std::string& name) {
    return "there is no format " + name + " (there are " + FormatNames() + ")";
}

// Empty, or a sentence that says what is wrong.
std::string TakeFormats(const Words& words, CommandLine& line) {
    for (const std::string& name : words.Formats) {
        line.ToFormats.push_back(Formats::FindFormat(name));
        if (line.ToFormats.back() == nullptr)
            return UnknownFormat(name);
    }
    return {};
}

// "default", "show", and the names of steps; "show" alone shows what the default ones do.
std::string TakePreparation(const Words& words, CommandLine& line) {
    const std::vector<const TabText::PreparationStep*> defaults = TabText::DefaultPreparationSteps();
    std::istringstream names(words.Preparation);
    for (std::string name; std::getline(names, name, ',');) {
        const TabText::PreparationStep* step = TabText::FindPreparationStep(name);
        if (name == "show")
            line.ShowsPrepared = true;
        else if (name == "default")
            line.Preparation.insert(line.Preparation.end(), defaults.begin(), defaults.end());
        else if (step != nullptr)
            line.Preparation.push_back(step);
        else
            return "there is no preparation " + name + " (fretline --help lists them)";
    }
    if (line.ShowsPrepared && line.Preparation.empty())
        line.Preparation = defaults;
    return {};
}

std::string TakePrinting(const Words& words, CommandLine& line) {
    using Printing = CommandLine::Printing;
    const bool explains = !words.Explanation.empty();
    if (words.Dump + words.Json + explains + words.Quiet > 1)
        return "only one of --explain, --dump, --json and --quiet can be had";
    if (words.Explanation == "html")
        line.ToFormats.push_back(Formats::FindFormat("html"));
    else if (explains)
        line.Prints = Printing::Explanation;
    if (words.Explanation == "html" && line.Outputs.empty())
        line.Outputs.push_back({"-"});
    if (words.Dump)
        line.Prints = Printing::Tree;
    else if (words.Json)
        line.Prints = Printing::Json;
    else if (words.Quiet)
        line.Prints = Printing::Nothing;
    return {};
}

// Mistakes that only several arguments together make.
std::string CheckTogether(const CommandLine& line) {
    const auto isEmpty = [](const auto& word) { return word.empty(); };
    if (std::any_of(line.Inputs.begin(), line.Inputs.end(), isEmpty))
        return "an empty name is no file";
    if (line.Inputs.empty() && !line.ReadsJsonLines)
        return "no file is given (fretline --help tells how it is used)";
    if (line.ReadsJsonLines && (!line.Inputs.empty() || !line.Outputs.empty()))
        return "--json-lines reads standard input and writes standard output: no files go with it";
    if (line.Remembers && !line.RhythmLevel)
        return "--remember needs --rhythms: there is nothing to remember";
    if (line.WritesToStandardOutput() && (line.Outputs.size() != 1 || line.ToFormats.size() != 1))
        return "-o - needs one format: --to FORMAT";
    return {};
}

struct OptionValue {
    std::string_view Option;
    std::string_view Takes;
};

// What an option takes, for whoever gave it something else or nothing.
constexpr std::array<OptionValue, 8> kOptionValues{{
    {"--rhythms", "never, indicated or always"},
    {"--layout", "tab, notes or both"},
    {"--jobs", "a number from 1 to 1024"},
    {"--explain", "nothing, or html"},
    {"--output", "the name of a file, a folder/, or -"},
    {"--to", "formats, separated by commas"},
    {"--config", "the name of a folder"},
    {"--plugin", "the name of a file"},
}};

// What CLI11 calls it, in words of people: it begins with the option, and goes on in the parser's own
// notation.
std::string MistakeText(const CLI::ParseError& mistake) {
    std::string text = mistake.what();
    if (dynamic_cast<const CLI::ExtrasError*>(&mistake) != nullptr)
        return "unknown option " + text.substr(text.find(": ") + 2);
    const std::string option = text.substr(0, text.find_first_of(": "));
    for (const OptionValue& value : kOptionValues)
        if (value.Option == option)
            return option + " takes " + std::string(value.Takes);
    return text;
}

int SayMistake(const std::string& sentence) {
    Terminal::Complain(sentence);
    return kExitUsage;
}

} // namespace

bool Destination::IsFolder() const {
    return !IsStandardOutput() && (Name.ends_with('/') || std::filesystem::is_directory(Name));
}

bool CommandLine::WritesToStandardOutput() const {
    return std::any_of(Outputs.begin(), Outputs.end(),
                       [](const auto& output) { return output.IsStandardOutput(); });
}

bool CommandLine::OnlyLooks() const {
    return Outputs.empty() && ToFormats.empty() &&
           (TellsDoubts || ShowsPrepared || (Prints != Printing::Summary && Prints != Printing::Nothing));
}

std::optional<CommandLine> ParseCommandLine(int argc, char** argv, int& exitCode) {
    CommandLine line;
    Words words;
    bool help = false;
    bool version = false;
    const std::map<std::string, int> levels{{"never", 0}, {"indicated", 1}, {"always", 2}};
    const std::map<std::string, Score::Layout> layouts{
        {"both", Score::Layout::Both}, {"tab", Score::Layout::Tab}, {"notes", Score::Layout::Notes}};
    CLI::App app;
    app.set_help_flag();
    app.add_option("FILE", line.Inputs);
    app.add_option("-o,--output", words.Outputs)->allow_extra_args(false);
    app.add_option("-t,--to", words.Formats)->delimiter(',')->allow_extra_args(false);
    app.add_flag("-n,--no-clobber", line.KeepsExisting);
    app.add_option("--layout", line.Layout)->transform(CLI::CheckedTransformer(layouts));
    app.add_option("-j,--jobs", words.Jobs)->check(CLI::Range(1, kMostJobs));
    app.add_flag("--explain{terminal}", words.Explanation)->check(CLI::IsMember({"terminal", "html"}));
    app.add_flag("--dump", words.Dump);
    app.add_flag("--json", words.Json);
    app.add_flag("--json-lines", line.ReadsJsonLines);
    app.add_flag("-q,--quiet", words.Quiet);
    app.add_flag("-v,--verbose", line.Verbose);
    app.add_flag("--doubts", line.TellsDoubts);
    app.add_flag("--prepare{default}", words.Preparation);
    app.add_flag("--strict", line.IsStrict);
    auto* rhythms =
        app.add_option("--rhythms", words.RhythmLevel)->transform(CLI::CheckedTransformer(levels));
    app.add_flag("--remember", line.Remembers);
    app.add_flag("-y,--yes", line.Yes);
    app.add_option("--config", line.ConfigFolder);
    app.add_option("--plugin", line.Plugin);
    app.add_flag("-h,--help", help);
    app.add_flag("--version", version);

    if (std::any_of(argv + 1, argv + argc, [](const char* word) { return word[0] == '\0'; })) {
        exitCode = SayMistake("an empty name is no file");
        return std::nullopt;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& mistake) {
        exitCode = SayMistake(MistakeText(mistake));
        return std::nullopt;
    }
    if (help || version) {
        Terminal::Print(help ? HelpText() : VersionText());
        exitCode = kExitDone;
        return std::nullopt;
    }
    for (const std::string& name : words.Outputs)
        line.Outputs.push_back({name});
    if (rhythms->count() > 0)
        line.RhythmLevel = words.RhythmLevel;
    line.Jobs = words.Jobs;
    std::string mistake = TakeFormats(words, line);
    if (mistake.empty())
        mistake = TakePreparation(words, line);
    if (mistake.empty())
        mistake = TakePrinting(words, line);
    if (mistake.empty())
        mistake = CheckTogether(line);
    if (!mistake.empty()) {
        exitCode = SayMistake(mistake);
        return std::nullopt;
    }
    if (line.ConfigFolder.empty())
        line.ConfigFolder = UserConfigFolder();
    if (line.Plugin.empty())
        line.Plugin = PluginOfProgram();
    return line;
}

} // namespace ReferenceHost
