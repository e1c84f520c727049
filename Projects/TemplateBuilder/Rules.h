#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TemplateBuilder {

/// The value that a rule makes of its arguments, or nothing when there is no such rule or the arguments do
/// not suit it. All numbers are decimal; lists are parted by commas.
///
/// | Rule | Arguments | Result |
/// |---|---|---|
/// | `count` | a list | how many entries it has; 0 for an empty one |
/// | `yes` | a mark: "yes", "no" or empty | "true" for "yes", else "false" |
/// | `no` | a mark | "false" for "yes", else "true" |
/// | `twice` | a whole number | its double: a pitch in Chrom2 units from a MIDI note number |
/// | `diat` | a pitch in Chrom2 units | its diatonic step, 7 to the octave, black keys as the host names them
/// | | `half-height` | a number of lines, the distance between two | half the height of a stave of so many
/// lines |
std::optional<std::string> ApplyRule(std::string_view rule, const std::vector<std::string>& arguments);

} // namespace TemplateBuilder
