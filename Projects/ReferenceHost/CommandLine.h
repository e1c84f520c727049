#pragma once

#include "Projects/Score/LilyPond.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Formats {
struct Format;
}
namespace TabText {
struct PreparationStep;
}

namespace ReferenceHost {

/// Where something is to be written, as it was asked for.
struct Destination {
    /// A file, a folder (ends in a slash or is one), or "-" for standard output.
    std::string Name;

    bool IsStandardOutput() const { return Name == "-"; }
    bool IsFolder() const;
};

/// What the user asked for on the command line.
struct CommandLine {
    /// Files, folders, and "-" for standard input, as they were typed.
    std::vector<std::string> Inputs;
    std::vector<Destination> Outputs;
    /// Of --to, in order.
    std::vector<const Formats::Format*> ToFormats;
    bool KeepsExisting = false;
    Score::Layout Layout = Score::Layout::Both;
    /// How many files are converted at a time.
    int Jobs = 1;

    /// What goes to standard output instead of the summary.
    enum class Printing { Summary, Nothing, Tree, Explanation, Json } Prints = Printing::Summary;
    /// The steps by which a text is prepared before it is opened; none unless asked for.
    std::vector<const TabText::PreparationStep*> Preparation;
    /// Print the prepared text, and nothing else.
    bool ShowsPrepared = false;
    /// The plug-in's messages one by one.
    bool Verbose = false;
    /// Everything doubtful in full, not only the first of it.
    bool TellsDoubts = false;
    /// Anything doubtful counts as a failure of its own.
    bool IsStrict = false;
    /// Standard input holds tabs as JSON lines.
    bool ReadsJsonLines = false;

    /// The rhythm level of this run: 0 never, 1 when indicated, 2 always. The stored one unless given.
    std::optional<int> RhythmLevel;
    /// Store the rhythm level for later runs.
    bool Remembers = false;
    /// Don't ask: the stored option stands.
    bool Yes = false;
    /// The folder that holds the plug-in's options file; the user's configuration folder unless given.
    std::filesystem::path ConfigFolder;
    /// The plug-in's library; the one that belongs to this program unless given.
    std::filesystem::path Plugin;

    bool WritesToStandardOutput() const;
    /// Neither -o nor --to is given, and something is printed that needs no file.
    bool OnlyLooks() const;
};

/// Exit codes of the program.
enum ExitCode : int {
    kExitDone = 0,
    /// At least one file was not taken, gave no score, or could not be written.
    kExitSomeFailed = 1,
    /// The command line is wrong, or the plug-in cannot be used.
    kExitUsage = 2,
    /// With --strict: all went well, and something read is doubtful.
    kExitDoubtful = 3,
    /// Stopped by Ctrl-C, or cancelled in the options dialog.
    kExitCancelled = 130,
    /// Stopped by a request to end (SIGTERM).
    kExitEnded = 143,
};

/// Reads the command line. When there is nothing to run (--help, --version, a mistake), the text has been
/// printed and `exitCode` says how to end; the result is empty then.
std::optional<CommandLine> ParseCommandLine(int argc, char** argv, int& exitCode);

} // namespace ReferenceHost
