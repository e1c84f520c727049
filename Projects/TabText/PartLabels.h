#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TabText {

/// The name of one part of a text: "Gtr I", "Bass".
struct PartName {
    /// As written, words separated by one blank, without full stops.
    std::string Name;
    /// The same for all spellings of one name: "guitar 1" for "Gtr. I" and "Guitar 1".
    std::string Key;

    bool operator==(const PartName& other) const { return Key == other.Key; }
};

/// The names of the parts that a line stands above: more than one for "Gtrs I & II". Empty when the line is
/// no such label. A label begins the line; it is an instrument, or what part of the music it plays ("Lead:"),
/// with a number or without, and a remark follows only after a colon, a bracket or a wide space. Costs in
/// proportion to the line.
std::vector<PartName> ReadPartLabel(std::string_view line);

/// The line with blanks in the place of its label, and of the brackets and the colon about it.
std::string WithoutPartLabel(std::string_view line);

} // namespace TabText
