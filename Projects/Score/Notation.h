#pragma once

#include "Projects/Score/ScoreModel.h"

#include <vector>

namespace Score {

/// One note, chord or rest as it is written: a note value with its dots. Borrows the notes.
struct WrittenPiece {
    /// From the start of its bar, in score units.
    int Position = 0;
    /// The value without its dots, a power of two, and the dots: 0 or 1.
    int Value = 0;
    int Dots = 0;
    /// Null for a rest.
    const std::vector<ModelNote>* Notes = nullptr;
    /// It goes on into the next piece, which has the same notes.
    bool TiedToNext = false;
    /// The first piece of what is struck: only here stand signs of how it is played.
    bool IsStruck = true;

    int GetDuration() const { return Value + (Dots > 0 ? Value / 2 : 0); }
};

/// One bar as a reader of music expects it.
struct WrittenBar {
    /// All pieces together, in score units.
    int Length = 0;
    std::vector<WrittenPiece> Pieces;
};

/// Writes a score out: the tied pieces of one struck note become one dotted note, and rests one rest, where
/// the beat allows it; what is empty becomes rests. A score without rhythms has a crotchet for each chord, in
/// order, and no rests. The model must outlive the result.
std::vector<WrittenBar> WriteOut(const ScoreModel& score);

} // namespace Score
