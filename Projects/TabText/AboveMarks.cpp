#include "Projects/TabText/AboveMarks.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

// As many lines above a stave are looked at.
constexpr int kLinesAbove = 3;

// The stretch of a line that one annotation covers; the end is the column after it.
struct Extent {
    Score::Technique Kind = Score::Technique::PalmMute;
    int Line = 0;
    int Column = 0;
    int EndColumn = 0;
};

bool IsPartOfExtent(char c) {
    return c == '-' || c == '.' || c == '_' || c == '~' || c == '=';
}

// The sign that begins at this place of a line, as a word of its own; null when there is none.
const Sign* SignAt(std::string_view line, std::size_t at) {
    if (!Nvr::Ascii::IsAlpha(line[at]) || (at > 0 && Nvr::Ascii::IsAlnum(line[at - 1])))
        return nullptr;
    for (const Sign& sign : AllSigns()) {
        const std::size_t end = at + sign.Text.size();
        if (sign.Place == SignPlace::Above && Nvr::Ascii::StartsWithIgnoreCase(line.substr(at), sign.Text) &&
            (end >= line.size() || !Nvr::Ascii::IsAlnum(line[end])))
            return &sign;
    }
    return nullptr;
}

// Dashes may stand apart: "P.M. - - - |".
std::size_t EndOfExtent(std::string_view line, std::size_t at) {
    while (at < line.size()) {
        if (IsPartOfExtent(line[at]))
            ++at;
        else if (line[at] == ' ' && at + 1 < line.size() && IsPartOfExtent(line[at + 1]))
            at += 2;
        else
            break;
    }
    return at;
}

void AppendExtents(const TabReading& reading, int line, std::vector<Extent>& extents) {
    const std::string_view text = reading.GetFile().GetLine(line);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const Sign* sign = SignAt(text, at);
        if (sign == nullptr)
            continue;
        const std::size_t end = EndOfExtent(text, at + sign->Text.size());
        extents.push_back({sign->Kind, line, static_cast<int>(at), static_cast<int>(end)});
        at = end - 1;
    }
}

std::vector<Extent> ExtentsAbove(const TabReading& reading, const Fretline::TabStave& stave) {
    std::vector<Extent> extents;
    for (int line = std::max(stave.GetFirstLine() - kLinesAbove, 0); line < stave.GetFirstLine(); ++line) {
        if (reading.GetAnalysis().IsStaveLine(line))
            extents.clear();
        else
            AppendExtents(reading, line, extents);
    }
    return extents;
}

// Marks the notes under the extents, which are ordered by column within each line.
void MarkNotesUnder(const std::vector<Extent>& extents, const TabReading& reading, const StaveBars& stave,
                    std::vector<NoteMark>& marks) {
    for (const BarReading& bar : stave.Bars) {
        const auto barIndex = static_cast<std::size_t>(&bar - reading.GetBars().data());
        for (const StruckNote& note : StruckNotesOf(*bar.Bar)) {
            // The last extent of a line that begins at the note or before it.
            for (auto next = extents.begin(); next != extents.end();) {
                const auto endOfLine = std::find_if(
                    next, extents.end(), [&](const Extent& extent) { return extent.Line != next->Line; });
                const auto after =
                    std::upper_bound(next, endOfLine, note.Column,
                                     [](int column, const Extent& extent) { return column < extent.Column; });
                if (after != next && note.Column < (after - 1)->EndColumn)
                    marks.push_back({{(after - 1)->Kind, 0},
                                     barIndex,
                                     note.Line,
                                     note.Column,
                                     (after - 1)->Line,
                                     (after - 1)->Column,
                                     (after - 1)->EndColumn});
                next = endOfLine;
            }
        }
    }
}

} // namespace

void ReadMarksAbove(const TabReading& reading, std::vector<NoteMark>& marks) {
    for (const StaveBars& stave : StavesWithBars(reading))
        if (const std::vector<Extent> extents = ExtentsAbove(reading, *stave.Stave); !extents.empty())
            MarkNotesUnder(extents, reading, stave, marks);
}

} // namespace TabText
