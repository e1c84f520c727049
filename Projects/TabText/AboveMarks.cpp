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

// An annotation, and the stretch of its line that it covers; ends are the columns after them.
struct Extent {
    Score::Technique Kind = Score::Technique::PalmMute;
    SignSpan Span;
    int FirstColumn = 0;
    int EndColumn = 0;
};

bool IsPartOfExtent(char c) {
    return c == '-' || c == '.' || c == '_' || c == '~' || c == '=';
}

// The sign that begins at this place of a line, as a word of its own; null when there is none.
const Sign* SignAt(std::string_view line, std::size_t at) {
    const bool isWave = line[at] == '~';
    const char before = at == 0 ? ' ' : line[at - 1];
    if (isWave ? before == '~' : !Nvr::Ascii::IsAlpha(line[at]) || Nvr::Ascii::IsAlnum(before))
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

// The annotations of one line.
class AnnotationLine {
public:
    AnnotationLine(const TabReading& reading, int line, std::vector<UnclearSign>& unclear)
        : m_Line(line), m_Text(reading.GetFile().GetLine(line)), m_Unclear(unclear) {}

    void AppendTo(std::vector<Extent>& extents) {
        for (std::size_t at = 0; at < m_Text.size(); ++at) {
            const Sign* sign = SignAt(m_Text, at);
            const std::size_t end = sign == nullptr ? DoubtUnknown(at) : Append(*sign, at, extents);
            at = std::max(end, at + 1) - 1;
        }
    }

private:
    // Each gives the place after what it read, 0 for nothing.
    std::size_t Append(const Sign& sign, std::size_t at, std::vector<Extent>& extents) {
        const std::size_t wordEnd = at + sign.Text.size();
        m_End = EndOfExtent(m_Text, wordEnd);
        const bool isDrawn =
            m_Text.substr(wordEnd, m_End - wordEnd).find_first_not_of('.') != std::string_view::npos;
        if (IsDefined(wordEnd) || IsNone(sign, at))
            return 0;
        const SignSpan span{m_Line, static_cast<int>(at), static_cast<int>(m_End)};
        if (!isDrawn && (IsAmongWords(at) || IsOfAPassage(sign, at)))
            m_Unclear.push_back({span, "it is not clear which notes it means"});
        else
            extents.push_back({sign.Kind, span, StartOfExtent(at), span.EndColumn});
        m_LastEnd = m_End;
        return m_End;
    }

    // "trem----|" is drawn over notes.
    std::size_t DoubtUnknown(std::size_t at) {
        constexpr std::size_t kFewestStrokes = 2;
        if (!Nvr::Ascii::IsAlpha(m_Text[at]))
            return 0;
        std::size_t wordEnd = at;
        while (wordEnd < m_Text.size() && (Nvr::Ascii::IsAlnum(m_Text[wordEnd]) || m_Text[wordEnd] == '/'))
            ++wordEnd;
        const std::size_t end = std::min(m_Text.find_first_not_of("-_~=.", wordEnd), m_Text.size());
        if (end >= wordEnd + kFewestStrokes && end < m_Text.size() && m_Text[end] == '|')
            m_Unclear.push_back({{m_Line, static_cast<int>(at), static_cast<int>(end) + 1},
                                 "what it asks of the notes under it is not known"});
        return wordEnd;
    }

    // "PM = palm mute" says what it means.
    bool IsDefined(std::size_t wordEnd) const {
        const std::size_t separator = std::min(m_Text.find_first_not_of(' ', wordEnd), m_Text.size());
        const std::string_view rest = m_Text.substr(separator);
        const std::size_t meaning = rest.find_first_not_of("=:- ");
        return rest.substr(0, 1).find_first_of("=:-") != std::string_view::npos && meaning <= 2 &&
               Nvr::Ascii::IsAlpha(rest[meaning]);
    }

    // "Ah" is sung, and a wave may be a rule or stand around a title.
    bool IsNone(const Sign& sign, std::size_t at) const {
        constexpr std::size_t kLongestWave = 16;
        if (sign.Text == "~~")
            return at == 0 || m_Text[at - 1] != ' ' || m_End - at > kLongestWave || IsAmongWords(at);
        return sign.Text == "ah" && m_End == at + sign.Text.size() && !Nvr::Ascii::IsUpper(m_Text[at + 1]);
    }

    static bool IsOneOfMusic(std::string_view word) {
        return IsChordName(word) || SignAt(word, 0) != nullptr;
    }

    // One blank separates it from a word that is no sign or chord.
    bool IsAmongWords(std::size_t at) const {
        const bool isAfterOne = at >= m_LastEnd + 2 && m_Text[at - 1] == ' ' && m_Text[at - 2] != ' ';
        if (isAfterOne && !IsOneOfMusic(WordsOf(m_Text.substr(0, at)).back().Text))
            return true;
        const bool isBeforeOne =
            m_End + 1 < m_Text.size() && m_Text[m_End] == ' ' && Nvr::Ascii::IsAlpha(m_Text[m_End + 1]);
        return isBeforeOne && !IsOneOfMusic(WordsOf(m_Text.substr(m_End)).front().Text);
    }

    // "(let ring)"
    bool IsOfAPassage(const Sign& sign, std::size_t at) const {
        const bool isInBrackets =
            at > 0 && m_Text[at - 1] == '(' && m_End < m_Text.size() && m_Text[m_End] == ')';
        return isInBrackets &&
               (sign.Kind == Score::Technique::LetRing || sign.Kind == Score::Technique::PalmMute);
    }

    // Dashes may stand before it too: "|--PM--|".
    int StartOfExtent(std::size_t at) const {
        while (at > m_LastEnd && IsPartOfExtent(m_Text[at - 1]))
            --at;
        return static_cast<int>(at);
    }

    int m_Line;
    std::string_view m_Text;
    std::vector<UnclearSign>& m_Unclear;
    // Of the present sign with its dashes, and of the one before it.
    std::size_t m_End = 0;
    std::size_t m_LastEnd = 0;
};

// True when a note or a dead one begins at the column.
bool IsPlayedAt(const StaveBars& stave, int column) {
    const auto after =
        std::upper_bound(stave.Bars.begin(), stave.Bars.end(), column,
                         [](int place, const BarReading& bar) { return place < bar.Bar->GetStartColumn(); });
    if (after == stave.Bars.begin())
        return false;
    const Fretline::TabBar& bar = *(after - 1)->Bar;
    const auto& columns = bar.GetColumns();
    const int place = column - bar.GetStartColumn();
    const auto next = std::lower_bound(columns.begin(), columns.end(), place + 1, Fretline::IsLeftOf);
    return next != columns.begin() && place < (next - 1)->m_Column + (next - 1)->m_Width;
}

bool IsPlayedIn(const StaveBars& stave, int start, int end) {
    for (int column = std::max(start, 0); column < end; ++column)
        if (IsPlayedAt(stave, column))
            return true;
    return false;
}

// The strokes or accents of a line that has nothing else; none for another line. Letters of strokes alone
// could be a chord: both kinds must be there.
std::vector<Extent> StrokesOf(const TabReading& reading, int line) {
    std::vector<Extent> strokes;
    bool hasUpStroke = false;
    for (const Word& word : WordsOf(reading.GetFile().GetLine(line))) {
        const auto sign = std::find_if(AllSigns().begin(), AllSigns().end(), [&](const Sign& row) {
            return row.Place == SignPlace::Alone && IsSameWord(row.Text, word.Text);
        });
        if (sign == AllSigns().end())
            return {};
        hasUpStroke = hasUpStroke || sign->Kind == Score::Technique::UpStroke;
        strokes.push_back(
            {sign->Kind, {line, word.Column, word.GetEndColumn()}, word.Column, word.GetEndColumn()});
    }
    const auto isAccent = [](const Extent& stroke) { return stroke.Kind == Score::Technique::Accent; };
    const auto accents = std::count_if(strokes.begin(), strokes.end(), isAccent);
    const bool areAccents = accents == static_cast<std::ptrdiff_t>(strokes.size());
    return areAccents || (accents == 0 && hasUpStroke && strokes.size() > 1) ? strokes
                                                                             : std::vector<Extent>();
}

// Finds what stands above one stave and below it.
class StaveAnnotations {
public:
    // `firstLine` is the first line that is not the stave's before.
    StaveAnnotations(const TabReading& reading, const StaveBars& stave, int firstLine,
                     std::vector<UnclearSign>& unclear)
        : m_Reading(reading), m_Stave(stave), m_FirstLine(firstLine), m_Unclear(unclear) {}

    std::vector<Extent> Find() {
        const int first = m_Stave.Stave->GetFirstLine();
        for (int line = std::max(first - kLinesAbove, m_FirstLine); line < first; ++line)
            AppendLine(line);
        for (int line = m_Stave.Stave->GetEndLine(); line < EndOfLines(); ++line)
            AppendLine(line);
        return std::move(m_Extents);
    }

    // The line after the last that belongs to the stave: what stands right below it, where no other stave
    // follows without a blank line.
    int EndOfLines() const {
        const int first = m_Stave.Stave->GetEndLine();
        int line = first;
        while (line < m_Reading.GetFile().GetLineCount() && !m_Reading.GetAnalysis().IsStaveLine(line) &&
               line <= first + kLinesAbove && !WordsOf(m_Reading.GetFile().GetLine(line)).empty())
            ++line;
        const bool isCutOff = line > first + kLinesAbove || m_Reading.GetAnalysis().IsStaveLine(line);
        return isCutOff ? first : line;
    }

private:
    void AppendLine(int line) {
        // One that gave no bar.
        if (m_Reading.GetAnalysis().IsStaveLine(line)) {
            m_Extents.clear();
            return;
        }
        std::vector<Extent> extents = StrokesOf(m_Reading, line);
        if (!extents.empty()) {
            PutOverNotes(extents);
        } else {
            AnnotationLine(m_Reading, line, m_Unclear).AppendTo(extents);
            std::erase_if(extents, [&](Extent& extent) { return !FindNotes(extent); });
        }
        m_Extents.insert(m_Extents.end(), extents.begin(), extents.end());
    }

    // All of them may stand one column off.
    void PutOverNotes(std::vector<Extent>& strokes) {
        for (const int shift : {0, -1, 1})
            if (std::all_of(strokes.begin(), strokes.end(), [&](const Extent& stroke) {
                    return IsPlayedAt(m_Stave, stroke.Span.Column + shift);
                })) {
                for (Extent& stroke : strokes) {
                    stroke.FirstColumn += shift;
                    stroke.EndColumn += shift;
                }
                return;
            }
        const SignSpan& first = strokes.front().Span;
        m_Unclear.push_back(
            {{first.Line, first.Column, strokes.back().Span.EndColumn}, "not all of them stand over notes"});
        strokes.clear();
    }

    // It may begin one column right of the first note, and a wave still later.
    bool FindNotes(Extent& extent) {
        if (IsPlayedIn(m_Stave, extent.FirstColumn, extent.EndColumn))
            return true;
        const int reach = extent.Kind == Score::Technique::Vibrato ? 3 : 1;
        for (int shift = 1; shift <= reach; ++shift)
            if (IsPlayedAt(m_Stave, extent.FirstColumn - shift)) {
                extent.FirstColumn -= shift;
                return true;
            }
        m_Unclear.push_back({extent.Span, "no note stands under it"});
        return false;
    }

    const TabReading& m_Reading;
    const StaveBars& m_Stave;
    int m_FirstLine;
    std::vector<UnclearSign>& m_Unclear;
    std::vector<Extent> m_Extents;
};

// Marks the notes under the extents, which are ordered by column within each line.
void MarkNotesUnder(const std::vector<Extent>& extents, const TabReading& reading, const StaveBars& stave,
                    std::vector<NoteMark>& marks) {
    for (const BarReading& bar : stave.Bars) {
        const auto barIndex = static_cast<std::size_t>(&bar - reading.GetBars().data());
        for (const StruckNote& note : StruckNotesOf(*bar.Bar)) {
            // The last extent of a line that begins at the note or before it.
            for (auto next = extents.begin(); next != extents.end();) {
                const auto endOfLine = std::find_if(next, extents.end(), [&](const Extent& extent) {
                    return extent.Span.Line != next->Span.Line;
                });
                const auto after =
                    std::upper_bound(next, endOfLine, note.Column, [](int column, const Extent& extent) {
                        return column < extent.FirstColumn;
                    });
                if (after != next && note.Column < (after - 1)->EndColumn) {
                    const Extent& extent = *(after - 1);
                    marks.push_back({{extent.Kind, 0},
                                     barIndex,
                                     note.Line,
                                     note.Column,
                                     extent.Span.Line,
                                     extent.Span.Column,
                                     extent.Span.EndColumn});
                }
                next = endOfLine;
            }
        }
    }
}

} // namespace

void ReadMarksAbove(const TabReading& reading, std::vector<NoteMark>& marks,
                    std::vector<UnclearSign>& unclear) {
    int line = 0;
    for (const StaveBars& stave : StavesWithBars(reading)) {
        StaveAnnotations annotations(reading, stave, line, unclear);
        if (const std::vector<Extent> extents = annotations.Find(); !extents.empty())
            MarkNotesUnder(extents, reading, stave, marks);
        line = annotations.EndOfLines();
    }
}

} // namespace TabText
