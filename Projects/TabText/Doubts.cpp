#include "Projects/TabText/Doubts.h"

#include "Projects/TabText/DoubtFinders.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace TabText {

namespace {

// One kind, what a player can try, and who looks for it.
struct DoubtRow {
    DoubtName Name;
    const char* Try;
    DoubtFinder Find;
    SignDoubtFinder FindAmongSigns = nullptr;
};

constexpr std::array kRows{
    DoubtRow{{DoubtKind::StaveSize, "stave-size", "staves of different size"},
             "put each instrument into a file of its own",
             FindStaveSizes},
    DoubtRow{{DoubtKind::CutRun, "cut-run", "a run of lines cut into staves of six"},
             "put a blank line between the staves, or between a stave and the line that is no string",
             FindCutRuns},
    DoubtRow{{DoubtKind::CutLine, "cut-line", "a line cut off a stave"},
             "make the line as long as the others of its stave",
             FindCutLines},
    DoubtRow{{DoubtKind::ShortRun, "short-run", "strings ignored"},
             "draw four strings or more, the silent ones with dashes, all equally long",
             FindShortRuns},
    DoubtRow{{DoubtKind::Annotation, "annotation", "an annotation read as a string"},
             "put a blank line between it and the stave",
             FindAnnotations},
    DoubtRow{{DoubtKind::OtherTuning, "other-tuning", "a stave tuned unlike the first"},
             "check the letters; put a part in another tuning into a file of its own",
             FindOtherTunings},
    DoubtRow{{DoubtKind::NoFret, "no-fret", "notes below the score's open strings"},
             "check the letters; put a part in another tuning into a file of its own",
             FindNotesWithoutFret},
    DoubtRow{{DoubtKind::SharpTuning, "sharp-tuning", "sharps and flats of string names left out"},
             "write the tuning with natural notes and say the rest in words, or transpose the score",
             FindSharpTunings},
    DoubtRow{{DoubtKind::BrokenBarline, "broken-barline", "a barline that does not go through"},
             "line the \"|\" up in one column on all lines",
             FindBrokenBarlines},
    DoubtRow{{DoubtKind::NoBarlines, "no-barlines", "a stave without barlines"},
             "write barlines, or import rhythms always and let long staves be cut",
             FindStavesWithoutBarlines},
    DoubtRow{{DoubtKind::GluedDigits, "glued-digits", "digits that can be read two ways"},
             "write a dash between the numbers",
             FindGluedDigits},
    DoubtRow{{DoubtKind::BendTarget, "bend-target", "the target of a bend or a trill read as a note"},
             "leave the number after the sign away",
             FindBendTargets},
    DoubtRow{{DoubtKind::MergedNotes, "merged-notes", "notes of one string at one time"},
             "give each note a place of its own in the rhythm line, or more room",
             FindMergedNotes},
    DoubtRow{{DoubtKind::LostNotes, "lost-notes", "notes that get no time"},
             "give each note a place of its own in the rhythm line, or room before the barline",
             FindLostNotes},
    DoubtRow{{DoubtKind::BarLength, "bar-length", "a bar that does not fill its metre"},
             "check the rhythm line against the time signature",
             FindBarLengths},
    DoubtRow{{DoubtKind::UnevenLengths, "uneven-lengths", "equal spaces, unequal lengths"},
             "write a rhythm line, or make each bar as wide as its shortest notes divide it",
             FindUnevenLengths},
    DoubtRow{{DoubtKind::ShortNotes, "short-notes", "notes shorter than a 64th"},
             "put each letter of the rhythm line over its note, and use longer values",
             FindShortNotes},
    DoubtRow{{DoubtKind::RhythmLine, "rhythm-line", "a rhythm line that may be none"},
             "put a blank line between it and the stave, or never import rhythms",
             FindRhythmLines},
    DoubtRow{{DoubtKind::ChordFromWords, "chord-from-words", "chords read from words"},
             "put two blank lines between the words and the stave",
             FindChordsFromWords},
    DoubtRow{{DoubtKind::CutChord, "cut-chord", "a chord symbol read in part"},
             "put alterations in brackets, and keep the symbol clear of the barline",
             FindCutChords},
    DoubtRow{{DoubtKind::CutLabel, "cut-label", "a section label cut out of a longer line"},
             "put the label on a line of its own, or three blanks between it and the rest",
             FindCutLabels},
    DoubtRow{{DoubtKind::TimeInWords, "time-in-words", "a time signature read from something else"},
             "write it without the slash, or below the last stave",
             FindTimesInWords},
    DoubtRow{{DoubtKind::LeftOutSign, "left-out-sign", "a sign between the frets that was left out"},
             "write it right beside its note, or say in a legend what it means (\"w = vibrato\")",
             nullptr,
             FindLeftOutSigns},
    DoubtRow{{DoubtKind::UnclearSign, "unclear-sign", "an ending, a jump or an annotation that was left out"},
             "write it over the bar or the notes that it means, with the signs that belong to it",
             nullptr,
             FindUnclearSigns},
    DoubtRow{{DoubtKind::StatedTuning, "stated-tuning", "a tuning in words that was not used"},
             "write the letters of the strings before each line of the stave",
             FindStatedTunings},
    DoubtRow{{DoubtKind::StatedCapo, "stated-capo", "a capo that was not used"},
             "transpose the score up by as many semitones",
             FindStatedCapos},
    DoubtRow{{DoubtKind::StatedInstrument, "stated-instrument", "an instrument that was not used"},
             "choose the instrument and its tuning in the score",
             FindStatedInstruments},
    DoubtRow{{DoubtKind::OtherBytes, "other-bytes", "characters that are not ASCII"},
             "write dashes, bars and quotes as plain \"-\", \"|\" and \"'\"",
             FindOtherBytes},
};

constexpr auto kNames = [] {
    std::array<DoubtName, kRows.size()> names{};
    for (std::size_t row = 0; row < kRows.size(); ++row)
        names[row] = kRows[row].Name;
    return names;
}();

} // namespace

std::span<const DoubtName> AllDoubtNames() {
    return kNames;
}

const DoubtName& NameOf(DoubtKind kind) {
    return kNames[static_cast<std::size_t>(kind)];
}

std::vector<Doubt> FindDoubts(const TabReading& reading, const Markings& markings) {
    std::vector<Doubt> doubts;
    for (const DoubtRow& row : kRows) {
        DoubtSink sink(row.Name.Kind, row.Try, doubts);
        if (row.Find != nullptr)
            row.Find(reading, sink);
        else
            row.FindAmongSigns(reading, markings, sink);
    }
    std::stable_sort(doubts.begin(), doubts.end(), [](const Doubt& a, const Doubt& b) {
        return std::tie(a.Line, a.Column, a.Kind) < std::tie(b.Line, b.Column, b.Kind);
    });
    return doubts;
}

} // namespace TabText
