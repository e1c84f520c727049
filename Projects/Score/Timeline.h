#pragma once

#include "Projects/Score/ScoreModel.h"

#include <vector>

namespace Score {

/// One sounding note of a score, ties joined. Times in score units from the start of the score.
struct SoundingNote {
    int Start = 0;
    int End = 0;
    int String = 0;
    int Midi = 0;
    int Fret = 0;
    /// Of the note that is struck: of a tied chain, the first. The score's; never null in what SoundingNotes
    /// gives.
    const std::vector<ModelTechnique>* Techniques = nullptr;
};

/// Where each bar of a score begins, and one more entry: where the last one ends. A bar takes as long as its
/// spacing says, or longer when its notes reach beyond that.
std::vector<int> BarStarts(const ScoreModel& score);

/// Every note that is struck, in order of its start, lowest string first; a tied chain is one note. A string
/// sounds one note at a time: a note ends where the next begins on its string.
std::vector<SoundingNote> SoundingNotes(const ScoreModel& score);

} // namespace Score
