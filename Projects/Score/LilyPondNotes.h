#pragma once

#include "Projects/Score/Notation.h"
#include "Projects/Score/ScoreParts.h"
#include "Projects/Score/Spelling.h"

#include <string>

namespace Score {

/// A text in LilyPond's quotes, whatever it holds. `text` is UTF-8.
std::string QuotedText(const std::string& text);

/// A pitch by the English names of notes, such as "fs'" for F sharp above middle C.
std::string LilyPondPitch(const SpelledPitch& pitch);

/// A length of time in score units, as a duration: "4." or "1*5/8".
std::string LengthText(int length);

/// The same as a fraction of a whole note, such as "5/8".
std::string FractionText(int length);

/// The definitions that the signs at the notes of the parts use, before the music; and how the line over
/// muted notes looks, in the music of a part before its notes.
std::string LilyPondMarks(ScoreParts parts);
std::string LilyPondMuteLine(const ScoreModel& score);

/// Writes notes, chords and rests one after the other. Borrows the score.
class LilyPondNotes {
public:
    /// `isForTab` leaves out what no fret gives.
    LilyPondNotes(const ScoreModel& score, bool isForTab)
        : m_Tuning(&score.Tuning), m_HasRhythms(score.HasRhythms), m_IsForTab(isForTab) {}

    /// The strings of the pieces from here on.
    const std::vector<int>& GetTuning() const { return *m_Tuning; }
    void SetTuning(const std::vector<int>& tuning) { m_Tuning = &tuning; }

    /// One piece; `next` is the next one that is struck or a rest, null at the end.
    std::string Piece(const WrittenPiece& piece, const WrittenPiece* next);

private:
    std::string Note(const ModelNote& note, bool isStruck) const;
    // These go in order from piece to piece.
    std::string SignsAt(const WrittenPiece& piece, const WrittenPiece* next);
    std::string BendAt(const WrittenPiece& piece, const WrittenPiece* next);
    std::string MuteAt(const WrittenPiece& piece, const WrittenPiece* next);

    const std::vector<int>* m_Tuning;
    // Without them, a rest is room for what other parts have.
    bool m_HasRhythms;
    bool m_IsForTab;
    bool m_IsSlurOpen = false;
    bool m_IsBent = false;
    bool m_IsMuteOpen = false;
};

} // namespace Score
