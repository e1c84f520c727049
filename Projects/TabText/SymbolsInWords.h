#pragma once

#include "Projects/TabText/Words.h"

#include <string_view>
#include <vector>

namespace Fretline {
class TabAnalysis;
class TabFile;
struct RiffLabel;
struct TabTimeSignature;
} // namespace Fretline

/// Labels and time signatures that the plug-in reads where a person reads words.
namespace TabText {

/// The word of the line in which the column stands, which is no blank. Of a very long word only the part
/// about the column: that is no symbol anyway.
Word WordAt(std::string_view line, int column);

/// True when words go on right before the label or after it: the label was cut out of them.
bool IsPieceOfWords(const Fretline::RiffLabel& label);

/// The time signatures that are more likely a date, an address, a measure of something else ("1/2 step") or
/// a piece of a sentence, in text order. They belong to the analysis.
std::vector<const Fretline::TabTimeSignature*> TimesInWords(const Fretline::TabFile& file,
                                                            const Fretline::TabAnalysis& analysis);

} // namespace TabText
