#pragma once

#include "Projects/TabText/Doubts.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/TabReading.h"

#include <string>
#include <vector>

namespace TabText {

/// Collects the doubts of one kind.
class DoubtSink {
public:
    DoubtSink(DoubtKind kind, const char* tryThis, std::vector<Doubt>& doubts)
        : m_Kind(kind), m_Try(tryThis), m_Doubts(doubts) {}

    /// Columns are absolute; `endColumn` is the column after the place.
    void Add(int line, int column, int endColumn, std::string what) {
        m_Doubts.push_back({m_Kind, line, column, endColumn, std::move(what), m_Try});
    }

private:
    DoubtKind m_Kind;
    const char* m_Try;
    std::vector<Doubt>& m_Doubts;
};

/// Looks for the doubts of one kind. Each costs in proportion to the text.
using DoubtFinder = void (*)(const TabReading& reading, DoubtSink& doubts);
/// The same among the signs of the text; `markings` are those of the reading.
using SignDoubtFinder = void (*)(const TabReading& reading, const Markings& markings, DoubtSink& doubts);

// What was taken for a stave, and what was not (StaveDoubts.cpp).
void FindStaveSizes(const TabReading& reading, DoubtSink& doubts);
void FindCutRuns(const TabReading& reading, DoubtSink& doubts);
void FindCutLines(const TabReading& reading, DoubtSink& doubts);
void FindShortRuns(const TabReading& reading, DoubtSink& doubts);
void FindAnnotations(const TabReading& reading, DoubtSink& doubts);
void FindBrokenBarlines(const TabReading& reading, DoubtSink& doubts);
void FindStavesWithoutBarlines(const TabReading& reading, DoubtSink& doubts);

// How its strings are tuned (TuningDoubts.cpp).
void FindOtherTunings(const TabReading& reading, DoubtSink& doubts);
void FindNotesWithoutFret(const TabReading& reading, DoubtSink& doubts);
void FindSharpTunings(const TabReading& reading, DoubtSink& doubts);

// What was read between two barlines (NoteDoubts.cpp).
void FindGluedDigits(const TabReading& reading, DoubtSink& doubts);
void FindBendTargets(const TabReading& reading, DoubtSink& doubts);
void FindMergedNotes(const TabReading& reading, DoubtSink& doubts);
void FindLostNotes(const TabReading& reading, DoubtSink& doubts);

// How long the notes are (RhythmDoubts.cpp).
void FindBarLengths(const TabReading& reading, DoubtSink& doubts);
void FindUnevenLengths(const TabReading& reading, DoubtSink& doubts);
void FindShortNotes(const TabReading& reading, DoubtSink& doubts);
void FindRhythmLines(const TabReading& reading, DoubtSink& doubts);

// Symbols and words above the staves (SymbolDoubts.cpp).
void FindChordsFromWords(const TabReading& reading, DoubtSink& doubts);
void FindCutChords(const TabReading& reading, DoubtSink& doubts);
void FindCutLabels(const TabReading& reading, DoubtSink& doubts);
void FindTimesInWords(const TabReading& reading, DoubtSink& doubts);

// Signs that were left out (SignDoubts.cpp).
void FindLeftOutSigns(const TabReading& reading, const Markings& markings, DoubtSink& doubts);
void FindUnclearSigns(const TabReading& reading, const Markings& markings, DoubtSink& doubts);

// What the text says and the score does not use (WordDoubts.cpp).
void FindStatedTunings(const TabReading& reading, DoubtSink& doubts);
void FindStatedCapos(const TabReading& reading, DoubtSink& doubts);
void FindStatedInstruments(const TabReading& reading, DoubtSink& doubts);
void FindOtherBytes(const TabReading& reading, DoubtSink& doubts);

} // namespace TabText
