#pragma once

#include "Projects/Score/ModelMarks.h"

#include <cstddef>
#include <vector>

namespace Score {
struct ScoreModel;
}

namespace TabText {

class LineMap;
class TabReading;

/// One technique that the text asks of one note.
struct NoteMark {
    Score::ModelTechnique What;
    /// Index into TabReading::GetBars.
    std::size_t Bar = 0;
    /// The note: its line and its first digit's (or its "x"'s) absolute column.
    int NoteLine = 0;
    int NoteColumn = 0;
    /// The sign: EndColumn is the column after it. For a dead note, the note itself.
    int Line = 0;
    int Column = 0;
    int EndColumn = 0;

    bool operator==(const NoteMark&) const = default;
};

/// What the text says of one bar.
struct BarMark {
    std::size_t Bar = 0;
    Score::ModelRepeats Repeats;
    Score::ModelWay Way = {};
    /// As ModelBar::Tempo.
    int Tempo = 0;

    bool operator==(const BarMark&) const = default;
};

/// Where a sign stands; EndColumn is the column after it.
struct SignSpan {
    int Line = 0;
    int Column = 0;
    int EndColumn = 0;
};

/// A sign of the text that was left out because its place or its meaning is not clear.
struct UnclearSign {
    SignSpan Span;
    /// Why, as the end of a sentence.
    const char* Why = "";
};

/// What the players wrote between the frets and around the staves of a tab, beyond what the plug-in reads.
struct Markings {
    /// By bar, then line, then column of the sign; those above a stave after those of the bar.
    std::vector<NoteMark> Notes;
    /// By bar, each at most once.
    std::vector<BarMark> Bars;
    Score::ModelHeading Heading;
    /// Those of endings, jumps and changes of tempo.
    std::vector<SignSpan> BarSigns;
    std::vector<UnclearSign> Unclear;
};

/// Reads the signs of AllSigns. A sign that belongs to no note that was read is left out; so is a number
/// after a bend, as a mark: the score has it as a note. `map` of a text that was prepared says how far bends
/// go that lost their targets; null for any other. Costs in proportion to the text.
Markings ReadMarkings(const TabReading& reading, const LineMap* map = nullptr);

/// Gives the model of the score that the plug-in made of the same text the tuning of each stave of the text,
/// and the notes there the frets that the text has. A stave whose strings are the lowest of those before it
/// changes none. A text whose staves are all tuned alike changes nothing.
void JoinTunings(const TabReading& reading, Score::ScoreModel& score);

/// Adds the markings to the model of the score that the plug-in made of the same text at the same rhythm
/// level: by bar, position and string. A dead note becomes a note on its open string, also where the score
/// has a rest. A mark whose note is not in the score is left out. Tunings are joined as well, and which
/// bars begin a stave of the text; without markings and with one tuning nothing else changes.
void JoinMarkings(const TabReading& reading, const Markings& markings, Score::ScoreModel& score);

} // namespace TabText
