// How the strings of the staves are tuned.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/Fretline/text/TabTuning.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/Tunings.h"

#include <algorithm>

namespace TabText {

namespace {

using Fretline::TabFile;
using Fretline::TabStave;

constexpr int kChrom2PerSemitone = 2;

// A stave that begins a stretch of staves whose tuning is not the score's.
struct OddStave {
    StaveBars Stave;
    // The open strings of the score.
    const std::vector<int>* ScoreTuning = nullptr;
    // The notes of the stave that lie below these, and the first of them.
    int NotesBelow = 0;
    StruckNote FirstBelow;
};

void CountNotesBelow(OddStave& odd) {
    const std::vector<int>& tuning = odd.Stave.Stave->GetTuning();
    for (const BarReading& bar : odd.Stave.Bars) {
        for (const StruckNote& note : StruckNotesOf(*bar.Bar)) {
            const auto string = static_cast<std::size_t>(note.String);
            if (tuning[string] + kChrom2PerSemitone * note.Fret >= (*odd.ScoreTuning)[string])
                continue;
            if (odd.NotesBelow++ == 0)
                odd.FirstBelow = note;
        }
    }
}

// Staves of another size are another doubt.
std::vector<OddStave> FindOddStaves(const TabReading& reading) {
    std::vector<OddStave> odd;
    const std::vector<StaveBars> staves = StavesWithBars(reading);
    const TabStave* before = nullptr;
    for (const StaveBars& entry : staves) {
        const std::vector<int>& score = staves.front().Stave->GetTuning();
        const std::vector<int>& tuning = entry.Stave->GetTuning();
        const bool goesOn = before != nullptr && before->GetTuning() == tuning;
        if (tuning.size() == score.size() && tuning != score && !goesOn) {
            odd.push_back({entry, &score, 0, {}});
            CountNotesBelow(odd.back());
        }
        before = entry.Stave;
    }
    return odd;
}

std::string WhatIsOdd(const OddStave& odd) {
    return "the stave is tuned " + TuningText(odd.Stave.Stave->GetTuning()) + ", the score " +
           TuningText(*odd.ScoreTuning);
}

// The topmost line whose string differs from the score's.
int FirstOddLine(const OddStave& odd) {
    const std::vector<int>& tuning = odd.Stave.Stave->GetTuning();
    std::size_t string = tuning.size() - 1;
    while (tuning[string] == (*odd.ScoreTuning)[string])
        --string;
    return odd.Stave.Stave->GetEndLine() - 1 - static_cast<int>(string);
}

// The letters of a stave with what is written right after each, from the top; empty without letters.
std::string LettersOf(const TabFile& file, const TabStave& stave, int column) {
    std::string letters;
    for (int line = stave.GetFirstLine(); column >= 0 && line < stave.GetEndLine(); ++line) {
        letters += file.GetChar(line, column);
        if (const char next = file.GetChar(line, column + 1); next == '#' || next == 'b')
            letters += next;
    }
    return letters;
}

} // namespace

void FindOtherTunings(const TabReading& reading, DoubtSink& doubts) {
    for (const OddStave& odd : FindOddStaves(reading)) {
        if (odd.NotesBelow > 0)
            continue;
        const int column =
            std::max(Fretline::FindTuningColumn(reading.GetFile(), odd.Stave.Stave->GetFirstLine(),
                                                odd.Stave.Stave->GetLineCount()),
                     0);
        doubts.Add(FirstOddLine(odd), column, column + 1, WhatIsOdd(odd) + ": it shows other frets");
    }
}

void FindNotesWithoutFret(const TabReading& reading, DoubtSink& doubts) {
    for (const OddStave& odd : FindOddStaves(reading))
        if (odd.NotesBelow > 0)
            doubts.Add(odd.FirstBelow.Line, odd.FirstBelow.Column, odd.FirstBelow.EndColumn,
                       WhatIsOdd(odd) + ": it has no fret for " + std::to_string(odd.NotesBelow) +
                           (odd.NotesBelow == 1 ? " note" : " notes") + " of the stave");
}

void FindSharpTunings(const TabReading& reading, DoubtSink& doubts) {
    std::string before;
    for (const StaveBars& entry : StavesWithBars(reading)) {
        const TabStave& stave = *entry.Stave;
        const int column =
            Fretline::FindTuningColumn(reading.GetFile(), stave.GetFirstLine(), stave.GetLineCount());
        const std::string letters = LettersOf(reading.GetFile(), stave, column);
        const bool hasAccidental = letters.size() > static_cast<std::size_t>(stave.GetLineCount());
        if (hasAccidental && letters != before)
            doubts.Add(stave.GetFirstLine(), column, column + 2,
                       "the strings were read as " + TuningText(stave.GetTuning()) +
                           ", without their sharps and flats");
        before = letters;
    }
}

} // namespace TabText
