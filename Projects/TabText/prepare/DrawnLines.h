#pragma once

#include <string_view>
#include <vector>

namespace TabText {

class Draft;

/// What a person takes a line for.
enum class LineKind {
    Blank,
    /// A string of a stave, drawn with dashes and strokes.
    String,
    /// Dashes alone: a string on which nothing is played and that has no name, or a rule between words.
    Dashes,
    /// Says how something is played, and for how long: "PM-----|", "let ring----".
    Annotation,
    Words,
};

struct DrawnLine {
    LineKind Kind = LineKind::Blank;
    /// The plug-in takes it for a stave line if its neighbours allow that.
    bool IsCandidate = false;
    /// The name of the string before it, with its sharp or flat; empty when there is none.
    std::string_view Name;
    int NameColumn = 0;
};

/// Costs in proportion to the line, whose text the result refers to.
DrawnLine LookAt(std::string_view line);
/// The same for all lines; refers to the draft until that is edited.
std::vector<DrawnLine> LookAtAll(const Draft& draft);

/// True when a fret stands right beside a dash.
bool HasFretBesideDash(std::string_view line);

} // namespace TabText
