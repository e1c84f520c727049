#include "Projects/TabText/AboveMarks.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/BarMarks.h"
#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

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

// True when a note or a dead one begins at the column.
bool IsPlayedAt(const StaveBars& stave, int column) {
    const auto after =
        std::upper_bound(stave.Bars.begin(), stave.Bars.end(), column,
                         [](int place, const BarReading& bar) { return place < bar.Bar->GetStartColumn(); });
    if (after == stave.Bars.begin())
        return false;
    const Fretline::TabBar& bar = *(after - 1)->Bar;
    const auto next = bar.GetColumns().upper_bound(column - bar.GetStartColumn());
    return next != bar.GetColumns().begin() && column < bar.GetStartColumn() +
                                                            std::prev(next)->second->m_Column +
                                                            std::prev(next)->second->m_Width;
}

// The strokes or accents of a line that has nothing else, each over a note of the stave; none for another
// line. Letters of strokes alone could be a chord: both kinds must be there.
std::vector<Extent> StrokesOf(const TabReading& reading, const StaveBars& stave, int line) {
    std::vector<Extent> strokes;
    bool hasUpStroke = false;
    for (const Word& word : WordsOf(reading.GetFile().GetLine(line))) {
        const auto sign = std::find_if(AllSigns().begin(), AllSigns().end(), [&](const Sign& row) {
            return row.Place == SignPlace::Alone && IsSameWord(row.Text, word.Text);
        });
        if (sign == AllSigns().end() || !IsPlayedAt(stave, word.Column))
            return {};
        hasUpStroke = hasUpStroke || sign->Kind == Score::Technique::UpStroke;
        strokes.push_back({sign->Kind, line, word.Column, word.GetEndColumn()});
    }
    const auto isAccent = [](const Extent& stroke) { return stroke.Kind == Score::Technique::Accent; };
    const auto accents = std::count_if(strokes.begin(), strokes.end(), isAccent);
    const bool areAccents = accents == static_cast<std::ptrdiff_t>(strokes.size());
    return areAccents || (accents == 0 && hasUpStroke && strokes.size() > 1) ? strokes
                                                                             : std::vector<Extent>();
}

std::vector<Extent> ExtentsAround(const TabReading& reading, const StaveBars& stave) {
    std::vector<Extent> extents;
    const auto append = [&](int line) {
        const std::vector<Extent> strokes = StrokesOf(reading, stave, line);
        extents.insert(extents.end(), strokes.begin(), strokes.end());
    };
    const int first = stave.Stave->GetFirstLine();
    for (int line = std::max(first - kLinesAbove, 0); line < first; ++line) {
        if (reading.GetAnalysis().IsStaveLine(line)) {
            extents.clear();
            continue;
        }
        AppendExtents(reading, line, extents);
        // Right below another stave it belongs to that.
        if (line + 1 == first || line == 0 || !reading.GetAnalysis().IsStaveLine(line - 1))
            append(line);
    }
    const int below = stave.Stave->GetEndLine();
    if (below < reading.GetFile().GetLineCount() && !reading.GetAnalysis().IsStaveLine(below) &&
        (below + 1 >= reading.GetFile().GetLineCount() || !reading.GetAnalysis().IsStaveLine(below + 1)))
        append(below);
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
        if (const std::vector<Extent> extents = ExtentsAround(reading, stave); !extents.empty())
            MarkNotesUnder(extents, reading, stave, marks);
}

} // namespace TabText
