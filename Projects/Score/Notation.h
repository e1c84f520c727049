#pragma once

#include "Projects/Score/ScoreParts.h"

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
    /// One entry a note: it is tied to the same note in the next piece. Empty for a rest.
    std::vector<bool> IsTied = {};
    /// At least one of the notes is struck here. Signs of how it is played stand only where it is.
    bool IsStruck = true;

    int GetDuration() const { return Value + (Dots > 0 ? Value / 2 : 0); }
    bool HasTie() const;
};

/// One bar as a reader of music expects it.
struct WrittenBar {
    /// All pieces together, in score units.
    int Length = 0;
    /// The time signature in force.
    ModelTimeSignature Metre = {};
    /// The first bar, when it is the end of a bar of its metre.
    bool IsPickup = false;
    std::vector<WrittenPiece> Pieces = {};
    /// Where each chord symbol of the bar stands, in the positions of the pieces.
    std::vector<int> ChordPositions = {};

    /// Where the bar begins in its metre: 0 but for a pickup.
    int GetOffset() const { return IsPickup ? LengthOf(Metre) - Length : 0; }
    /// There are pieces, and all are rests.
    bool IsRest() const;

    /// In score units.
    static int LengthOf(const ModelTimeSignature& metre);
};

/// How long a beat of three parts lasts, such as the dotted crotchet of 6/8; 0 for a metre whose beats have
/// two.
int CompoundBeat(const ModelTimeSignature& metre);

/// Writes a score out: the tied pieces of one struck note become one dotted note, and rests one rest, where
/// the beat allows it; what is empty becomes rests. A score without rhythms has a crotchet for each chord
/// that is struck, in order, and no rests. The model must outlive the result.
std::vector<WrittenBar> WriteOut(const ScoreModel& score);

/// The same for each of several parts. Without rhythms, chords that are struck together stand below each
/// other: a part has a rest of a crotchet for each chord that only others have.
std::vector<std::vector<WrittenBar>> WriteOut(ScoreParts parts);

} // namespace Score
