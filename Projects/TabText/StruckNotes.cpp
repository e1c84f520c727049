#include "Projects/TabText/StruckNotes.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <optional>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabColumn;

// As many values of a fret number as reach a pitch.
constexpr int kFretRange = 256;

std::optional<StruckNote> NoteOn(const TabBar& bar, const TabColumn& column, int string) {
    const int first = std::max(column.m_Column + column.m_StartOffset, 0);
    const int end = std::min(column.m_Column + column.m_Width, bar.GetWidth());
    const int line = bar.GetFirstLine() + bar.GetLineCount() - 1 - string;
    std::optional<StruckNote> note;
    for (int place = bar.GetStartColumn() + first; place < bar.GetStartColumn() + end; ++place) {
        const char digit = bar.GetFile().GetChar(line, place);
        if (!Nvr::Ascii::IsDigit(digit))
            continue;
        if (!note)
            note = StruckNote{line, place, place, string, 0, &column};
        note->EndColumn = place + 1;
        note->Fret = (note->Fret * 10 + (digit - '0')) % kFretRange;
    }
    return note;
}

} // namespace

std::vector<StruckNote> StruckNotesOf(const TabBar& bar) {
    std::vector<StruckNote> notes;
    for (const TabColumn& column : bar.GetColumns())
        for (int string = 0; string < bar.GetLineCount(); ++string)
            if (const std::optional<StruckNote> note = NoteOn(bar, column, string))
                notes.push_back(*note);
    return notes;
}

} // namespace TabText
