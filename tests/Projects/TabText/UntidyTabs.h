#pragma once

#include "Projects/TabText/TabReading.h"

#include <filesystem>
#include <string>
#include <vector>

namespace TestSupport {

/// What of a tab matters to a player, each note as "string/fret", strings counted from the top line.
struct PlayedText {
    std::string Tuning;
    std::vector<std::string> Chords;
    /// In order of time; those that sound together from the top line down.
    std::vector<std::string> Notes;
};

/// A tab as untidy as people write them, and what a musician would want read of it.
struct UntidyTab {
    std::string Name;
    std::string Text;
    PlayedText Wanted;
};

/// What a musician would want, from a file: a line "tuning" with the open strings of the first stave from the
/// lowest up, perhaps a line "chords", and a line "bar" for each bar of the text.
PlayedText ReadWanted(const std::filesystem::path& path);

/// Those of tests/untidy, by name. Beside each NAME.tab lies NAME.want.
std::vector<UntidyTab> ReadUntidyTabs();

/// What the plug-in plays of a text. An empty text gives nothing.
PlayedText PlayedOf(const std::string& text);

/// How many entries of `wanted` are among `found`, in the same order.
int CountInOrder(const std::vector<std::string>& wanted, const std::vector<std::string>& found);

} // namespace TestSupport
