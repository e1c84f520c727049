#pragma once

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Score/ModelMarks.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Score {

using Fretline::kUnitsPerCrotchet;
using Fretline::kUnitsPerWholeNote;

struct ModelNote {
    /// From 0 at the lowest string. A text with staves of different heights gives notes on strings above
    /// those of the tuning.
    int String = 0;
    /// From the tuning in force in its bar. Negative when that has no fret for the note: in a score alone,
    /// where another stave of the text was tuned lower or had more strings.
    int Fret = 0;
    /// MIDI note number.
    int Midi = 0;
    /// Diatonic step, 7 to the octave; C of MIDI note 0 is 0.
    int Diat = 0;
    bool TiedToNext = false;
    /// How it is played, each kind at most once, in the order of the enumeration. Empty unless the tab's text
    /// was joined to the score: the score itself says nothing of it.
    std::vector<ModelTechnique> Techniques = {};
};

/// A note, a chord of notes, or a rest (no notes). Times in score units from the start of the bar.
struct ModelEvent {
    int Position = 0;
    int Duration = 0;
    std::vector<ModelNote> Notes;
};

struct ModelText {
    int Position = 0;
    std::string Text;
};

struct ModelTimeSignature {
    int Numerator = 4;
    int Denominator = 4;
};

struct ModelBar {
    /// In score units: what the bar spacing says.
    int Length = kUnitsPerWholeNote;
    std::optional<ModelTimeSignature> TimeSignature;
    std::vector<std::string> Labels;
    /// In the order of the score, which is that of their positions.
    std::vector<ModelEvent> Events;
    std::vector<ModelText> ChordSymbols;
    /// As the tab's text has them; none in a score alone.
    ModelRepeats Repeats = {};
    ModelWay Way = {};
    /// Crotchets a minute from this bar on, where the text changes them; 0 elsewhere.
    int Tempo = 0;
    /// It is the first of a stave of the tab's text; of none in a score alone.
    bool BeginsLine = false;
    /// The open strings from this bar on, as ScoreModel::Tuning, where the tab's text tunes a stave unlike
    /// the one before. Never in a score alone, which has one tuning.
    std::optional<std::vector<int>> Tuning = {};
};

/// A finished score as the exports and the summary see it: read from the score's tree alone, once. Where it
/// came from a tab, what the players wrote between the frets may then be joined to it, and nothing else
/// changes. Texts are in the score's code page (Windows-1252).
struct ScoreModel {
    std::string InstrumentName;
    std::string ShortName;
    /// MIDI program, counted from 0.
    int Program = 0;
    std::string StaveTypeId;
    /// Real durations were read; otherwise the order of the notes is all that the score tells.
    bool HasRhythms = false;
    /// Open strings as MIDI note numbers, lowest string first; one entry a stave line. In force until a bar
    /// says otherwise.
    std::vector<int> Tuning;
    /// The time signature in force before the first bar that has its own.
    ModelTimeSignature FirstTimeSignature;
    std::vector<ModelBar> Bars;
    /// What the tab's text says of the whole piece; nothing in a score alone.
    ModelHeading Heading = {};

    int CountNotes() const;
    /// The strings of the tuning, and any above them on which a note lies.
    int CountStrings() const;
    int CountChordSymbols() const;
    /// True when the bar is the first, or the last, of an ending.
    bool BeginsEnding(std::size_t bar) const;
    bool EndsEnding(std::size_t bar) const;

    /// Reads the tree of a score that a conversion has finished. Empty when the tree is not a score with one
    /// stave, or a value in it makes no sense (a string that the stave does not have, a duration of no power
    /// of two); `why` then says what is wrong.
    static std::optional<ScoreModel> Read(const Nvr::TreeNode& score, std::string& why);
    /// The same of the score as it is stored. Of the whole, most of which is the template's, a fraction is
    /// looked at, and bar by bar: the tree of a long score takes three times as much memory as the score.
    static std::optional<ScoreModel> ReadStored(std::string_view score, std::string& why);
};

} // namespace Score
