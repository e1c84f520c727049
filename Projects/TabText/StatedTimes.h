#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace TabText {

/// A place of a line that says how often something is played in all: "x4", "(2x)", "play 3 times", "twice".
struct StatedTimes {
    /// From 2 to 64; 0 for words that could mean more times or fewer: "repeat 3 times", "repeat" alone.
    int Times = 0;
    int Column = 0;
    int EndColumn = 0;
};

/// Those of the text from `start` on, left to right.
std::vector<StatedTimes> StatedTimesIn(std::string_view line, std::size_t start);

} // namespace TabText
