#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TemplateBuilder {

/// The value that a rule makes of its arguments, or nothing when there is no such rule or the arguments do
/// not suit it. All numbers are decimal; lists are separated by commas.
///
///     count LIST                  how many entries it has; 0 for an empty one
///     yes MARK                    "true" for the mark "yes", "false" for "no" and an empty one
///     no MARK                     "false" for the mark "yes", "true" for "no" and an empty one
///     twice NUMBER                its double: a pitch in Chrom2 units from a MIDI note number
///     diat PITCH                  the diatonic step of a pitch in Chrom2 units, 7 to the octave
///     half-height LINES GAP       half the height of a stave of so many lines with that distance between
///     half-height-of-strings LIST GAP    the same for one line an entry of the list
std::optional<std::string> ApplyRule(std::string_view rule, const std::vector<std::string>& arguments);

} // namespace TemplateBuilder
