#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ReferenceHost {

/// What the user asked for on the command line.
struct CommandLine {
    std::vector<std::filesystem::path> Files;
    /// Where the finished score goes: a file, or a folder when it ends in a slash or is one. Beside the tab,
    /// with the extension "nvf", unless given.
    std::filesystem::path Output;
    /// Where the score goes in other formats, named as Output is; empty for not at all.
    std::filesystem::path MusicXml;
    std::filesystem::path Midi;
    std::filesystem::path Svg;
    bool Dump = false;
    /// Explain on standard output what was recognised in the tab, instead of the summary.
    enum class Explanation { None, Terminal, Html } Explain = Explanation::None;
    /// The stored rhythm level to set before opening: 0 never, 1 when indicated, 2 always.
    std::optional<int> RhythmLevel;
    /// Don't ask: the stored option stands.
    bool Yes = false;
    /// The folder that holds the plug-in's options file; the user's configuration folder unless given.
    std::filesystem::path ConfigFolder;
    /// The plug-in's library; the one built beside this program unless given.
    std::filesystem::path Plugin;
};

/// Exit codes of the program.
enum ExitCode : int {
    kExitDone = 0,
    /// At least one file was not taken, gave no score, or could not be written.
    kExitSomeFailed = 1,
    /// The command line is wrong, or the plug-in cannot be used.
    kExitUsage = 2,
    /// Stopped by Ctrl-C.
    kExitCancelled = 130,
};

/// Reads the command line. When there is nothing to run (--help, --version, a mistake), the text has been
/// printed and `exitCode` says how to end; the result is empty then.
std::optional<CommandLine> ParseCommandLine(int argc, char** argv, int& exitCode);

} // namespace ReferenceHost
