// Signs that belong to no note and no bar.

#include "Projects/Fretline/text/TabFile.h"
#include "Projects/TabText/DoubtFinders.h"

namespace TabText {

void FindUnclearSigns(const TabReading& reading, const Markings& markings, DoubtSink& doubts) {
    for (const UnclearSign& sign : markings.Unclear) {
        const auto start = static_cast<std::size_t>(sign.Span.Column);
        const auto length = static_cast<std::size_t>(sign.Span.EndColumn) - start;
        const std::string_view text = reading.GetFile().GetLine(sign.Span.Line).substr(start, length);
        doubts.Add(sign.Span.Line, sign.Span.Column, sign.Span.EndColumn,
                   "\"" + std::string(text) + "\" was left out: " + sign.Why);
    }
}

} // namespace TabText
