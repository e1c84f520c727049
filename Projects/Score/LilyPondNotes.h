#pragma once

#include "Projects/Score/Notation.h"
#include "Projects/Score/ScoreModel.h"
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

/// Writes notes, chords and rests one after the other. Borrows the score.
class LilyPondNotes {
public:
    /// `isForTab` leaves out what no fret gives.
    LilyPondNotes(const ScoreModel& score, bool isForTab) : m_Tuning(&score.Tuning), m_IsForTab(isForTab) {}

    /// The strings of the pieces from here on.
    void SetTuning(const std::vector<int>& tuning) { m_Tuning = &tuning; }

    /// One piece; `next` is the one after it, null at the end.
    std::string Piece(const WrittenPiece& piece, const WrittenPiece* next);

private:
    std::string Note(const ModelNote& note) const;
    std::string SignsAfter(const WrittenPiece& piece, const WrittenPiece* next);

    const std::vector<int>* m_Tuning;
    bool m_IsForTab;
    bool m_IsSlurOpen = false;
};

} // namespace Score
