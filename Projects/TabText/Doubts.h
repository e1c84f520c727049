#pragma once

#include <span>
#include <string>
#include <vector>

namespace TabText {

class TabReading;
struct Markings;

/// What can be doubtful about the reading of a tab.
enum class DoubtKind {
    StaveSize,
    CutRun,
    CutLine,
    ShortRun,
    Annotation,
    OtherTuning,
    NoFret,
    SharpTuning,
    BrokenBarline,
    NoBarlines,
    GluedDigits,
    BendTarget,
    MergedNotes,
    LostNotes,
    BarLength,
    UnevenLengths,
    ShortNotes,
    RhythmLine,
    ChordFromWords,
    CutChord,
    CutLabel,
    TimeInWords,
    LeftOutSign,
    UnclearSign,
    StatedTuning,
    StatedCapo,
    StatedInstrument,
    OtherBytes,
};

/// One thing that was read, or left out, and is probably not meant so.
struct Doubt {
    DoubtKind Kind = DoubtKind::StaveSize;
    /// Where it stands, counted from 0 as in Fretline::TabFile; EndColumn is the column after it.
    int Line = 0;
    int Column = 0;
    int EndColumn = 0;
    /// What was done, and to what: a sentence without capital and full stop, in the tab's bytes.
    std::string What;
    /// What a player can try, as another one.
    std::string Try;

    bool operator==(const Doubt&) const = default;
};

/// What a kind is called: `Id` for programs, `Name` for people.
struct DoubtName {
    DoubtKind Kind;
    const char* Id;
    const char* Name;
};

/// All kinds, in the order of the enumeration.
std::span<const DoubtName> AllDoubtNames();
const DoubtName& NameOf(DoubtKind kind);

/// Everything doubtful about a reading, whose markings are given as well, in order of place: by line, then
/// column, then kind. Empty for a tidy tab. What goes on through several staves or several numbers of one bar
/// is said once, where it begins. Costs in proportion to the text.
std::vector<Doubt> FindDoubts(const TabReading& reading, const Markings& markings);

} // namespace TabText
