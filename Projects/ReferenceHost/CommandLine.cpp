#include "Projects/ReferenceHost/CommandLine.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <map>
#include <set>

namespace ReferenceHost {

namespace {

constexpr const char* kVersion = "Fretline reference host 1.0.0";

std::filesystem::path UserConfigFolder() {
    if (const char* folder = std::getenv("XDG_CONFIG_HOME"); folder != nullptr && folder[0] == '/')
        return std::filesystem::path(folder) / "fretline";
    if (const char* home = std::getenv("HOME"); home != nullptr && home[0] != '\0')
        return std::filesystem::path(home) / ".config" / "fretline";
    return std::filesystem::temp_directory_path() / "fretline";
}

std::filesystem::path PluginBesideProgram() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    // The library lies in the root of the build folder.
    return program.parent_path().parent_path().parent_path() / "libFretline.so";
}

bool IsFolder(const std::filesystem::path& target) {
    return !target.has_filename() || std::filesystem::is_directory(target);
}

/// Mistakes that only several arguments together make.
std::string CheckTogether(const CommandLine& line) {
    std::set<std::filesystem::path> targets;
    for (const std::filesystem::path& target : {line.Output, line.MusicXml, line.Midi, line.Svg}) {
        if (target.empty() || IsFolder(target))
            continue;
        if (line.Files.size() > 1)
            return "several files cannot go into the one file " + target.string() +
                   " (end the name with a slash to make it a folder)";
        if (!targets.insert(std::filesystem::absolute(target).lexically_normal()).second)
            return target.string() + " is named twice as a target";
    }
    for (const std::filesystem::path& file : line.Files)
        if (targets.count(std::filesystem::absolute(file).lexically_normal()) != 0)
            return file.string() + " is both read and written";
    return {};
}

} // namespace

std::optional<CommandLine> ParseCommandLine(int argc, char** argv, int& exitCode) {
    CommandLine line;
    int rhythmLevel = 0;
    std::string explanation;
    CLI::App app{"Opens plain-text guitar and bass tabs through the Fretline plug-in and keeps the scores.",
                 "fretline"};
    app.set_version_flag("--version", kVersion);
    app.add_option("FILE", line.Files,
                   "Tab files to open (.tab, .btab, .crd, or no extension), or finished scores (.nvf)")
        ->required();
    app.add_option("-o,--output", line.Output,
                   "Keep the score in FILE, or in FOLDER/ (default: beside the tab)")
        ->type_name("FILE|FOLDER/");
    app.add_option("--musicxml", line.MusicXml,
                   "Write the score as MusicXML, compressed when the name ends in .mxl")
        ->type_name("FILE|FOLDER/");
    app.add_option("--midi", line.Midi, "Write the score as a standard MIDI file")->type_name("FILE|FOLDER/");
    app.add_option("--svg", line.Svg, "Write a picture of the score")->type_name("FILE|FOLDER/");
    app.add_flag("--dump", line.Dump, "Print the score's tree in the text form instead of the summary");
    app.add_flag("--explain{terminal}", explanation,
                 "Show the tab with what was recognised in it, or write that as a page (--explain=html)")
        ->check(CLI::IsMember({"terminal", "html"}));
    const std::map<std::string, int> levels{{"never", 0}, {"indicated", 1}, {"always", 2}};
    auto* rhythms =
        app.add_option("--rhythms", rhythmLevel,
                       "Set the stored option: import rhythms never, only when indicated, or always")
            ->transform(CLI::CheckedTransformer(levels))
            ->type_name("never|indicated|always");
    app.add_flag("-y,--yes", line.Yes, "Don't show the options dialog: the stored option stands");
    app.add_option("--config", line.ConfigFolder,
                   "Folder of the options file (default: your configuration folder)")
        ->type_name("FOLDER");
    app.add_option("--plugin", line.Plugin,
                   "The plug-in's library (default: the one built with this program)")
        ->type_name("FILE");
    app.footer("Exit codes: 0 done, 1 a file gave no score, 2 wrong use, 130 cancelled.");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& mistake) {
        exitCode = app.exit(mistake) == 0 ? kExitDone : kExitUsage;
        return std::nullopt;
    }
    if (const std::string mistake = CheckTogether(line); !mistake.empty()) {
        std::cerr << "fretline: " << mistake << "\n";
        exitCode = kExitUsage;
        return std::nullopt;
    }
    if (explanation == "terminal")
        line.Explain = CommandLine::Explanation::Terminal;
    else if (explanation == "html")
        line.Explain = CommandLine::Explanation::Html;
    if (rhythms->count() > 0)
        line.RhythmLevel = rhythmLevel;
    if (line.ConfigFolder.empty())
        line.ConfigFolder = UserConfigFolder();
    if (line.Plugin.empty())
        line.Plugin = PluginBesideProgram();
    return line;
}

} // namespace ReferenceHost
