// Symbols and words above the staves.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/stave/TabChord.h"
#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/SymbolsInWords.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>

namespace TabText {

namespace {

using Fretline::TabChord;
using Fretline::TabFile;
using Nvr::Ascii::IsAlnum;

// A chord symbol that reached the score, and the word of the text that it was read from.
struct WrittenChord {
    const TabChord* Chord = nullptr;
    int Line = 0;
    Word Origin;

    // All letters and numbers of the word belong to the symbol.
    bool IsWholeWord() const {
        const auto inside = [&](int column) { return column >= Chord->m_Start && column < Chord->m_End; };
        for (std::size_t at = 0; at < Origin.Text.size(); ++at)
            if (IsAlnum(Origin.Text[at]) && !inside(Origin.Column + static_cast<int>(at)))
                return false;
        return true;
    }
    bool IsPartOfAChord() const {
        return IsChordName(Origin.Text) || IsChordName(WithoutPunctuation(Origin).Text);
    }
};

std::vector<WrittenChord> WrittenChords(const TabReading& reading) {
    std::vector<WrittenChord> chords;
    for (const BarReading& bar : reading.GetBars()) {
        const int line = bar.Bar->GetChordLine();
        for (const Fretline::ChordReading& chord : bar.Bar->GetChordReadings()) {
            if (!chord.m_Written)
                continue;
            chords.push_back(
                {chord.m_Chord, line, WordAt(reading.GetFile().GetLine(line), chord.m_Chord->m_Start)});
        }
    }
    return chords;
}

bool WasReadFromWords(const TabFile& file, const WrittenChord& chord, std::map<int, bool>& linesOfChords) {
    if (!chord.IsPartOfAChord())
        return !chord.IsWholeWord();
    const auto [entry, isNew] = linesOfChords.emplace(chord.Line, false);
    if (isNew)
        entry->second = IsLineOfChords(file.GetLine(chord.Line));
    return !entry->second;
}

} // namespace

// Said once a line, at the first of them.
void FindChordsFromWords(const TabReading& reading, DoubtSink& doubts) {
    std::map<int, bool> linesOfChords;
    struct Found {
        Word Origin;
        std::string Chords;
    };
    std::map<int, Found> lines;
    for (const WrittenChord& chord : WrittenChords(reading)) {
        if (!WasReadFromWords(reading.GetFile(), chord, linesOfChords))
            continue;
        Found& found = lines.emplace(chord.Line, Found{chord.Origin, {}}).first->second;
        found.Chords += (found.Chords.empty() ? "" : ", ") + std::string(GetChordText(*chord.Chord).CStr());
    }
    for (const auto& [line, found] : lines)
        doubts.Add(line, found.Origin.Column, found.Origin.GetEndColumn(),
                   (found.Chords.find(',') == std::string::npos ? "the chord " : "the chords ") +
                       found.Chords + " came out of the words of this line");
}

void FindCutChords(const TabReading& reading, DoubtSink& doubts) {
    for (const WrittenChord& chord : WrittenChords(reading))
        if (chord.IsPartOfAChord() && !chord.IsWholeWord())
            doubts.Add(chord.Line, chord.Origin.Column, chord.Origin.GetEndColumn(),
                       "\"" + std::string(WithoutPunctuation(chord.Origin).Text) + "\" was read as " +
                           GetChordText(*chord.Chord).CStr());
}

void FindCutLabels(const TabReading& reading, DoubtSink& doubts) {
    for (const BarReading& bar : reading.GetBars()) {
        const Fretline::RiffLabel* label = bar.Bar->GetLabel();
        if (label != nullptr && IsPieceOfWords(*label))
            doubts.Add(label->m_Line, label->m_StartColumn, label->m_EndColumn,
                       std::string("the label \"") + label->GetText().CStr() +
                           "\" is a piece of a longer line");
    }
}

void FindTimesInWords(const TabReading& reading, DoubtSink& doubts) {
    for (const Fretline::TabTimeSignature* time : TimesInWords(reading.GetFile(), reading.GetAnalysis())) {
        const std::string_view line = reading.GetFile().GetLine(time->m_Line);
        doubts.Add(time->m_Line, time->m_StartColumn, time->m_EndColumn + 1,
                   "\"" + std::string(WordAt(line, time->m_Column).Text) +
                       "\" was read as the time signature " + std::to_string(time->m_Numerator) + "/" +
                       std::to_string(time->m_Denominator));
    }
}

} // namespace TabText
