#pragma once

#include <vector>

namespace Score {
struct ScoreModel;
}

namespace TabText {

class TabReading;
struct Markings;
struct SplitScore;

/// One struck note of a score and the characters of the text that it comes from. Line and columns are those
/// of TabFile.
struct NotePlace {
    int Line = 0;
    int Column = 0;
    /// The column after its last character.
    int EndColumn = 0;
    /// Of the parts that sound together, counted from 0.
    int Part = 0;
    /// Of the score or of the part, counted from 0.
    int Bar = 0;
    /// In score units, from the start of the bar and from that of the piece (Score::BarStarts).
    int Position = 0;
    int Tick = 0;
    /// 0 for the lowest string.
    int String = 0;
};

/// Where the struck notes of a score (Score::SoundingNotes) stand in the text that it was made of at the same
/// rhythm level: by tick, then string. Dead notes of the markings are among them where they have been joined
/// to the score. Costs in proportion to text and score, but for the sorting.
std::vector<NotePlace> NotePlaces(const TabReading& reading, const Markings& markings,
                                  const Score::ScoreModel& score);

/// Places in the score that `split` was made of, as places in its parts: a note of several parts has one in
/// each. By tick, then part, then string. The same places where there are no parts.
std::vector<NotePlace> PlacesInParts(std::vector<NotePlace> places, const SplitScore& split);

} // namespace TabText
