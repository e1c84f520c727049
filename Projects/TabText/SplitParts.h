#pragma once

#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/PartsTogether.h"

#include <map>
#include <optional>
#include <vector>

namespace TabText {

class TabReading;

/// Where a bar of a part comes from.
struct PartBarSource {
    /// The bar of the score, counted from 0; none where the part rests.
    std::optional<int> ScoreBar;
    /// As in PartTimes; empty where the times are those of the score.
    std::map<int, int> NewTimes = {};

    /// The position in the part of what begins at a position of the score's bar.
    int InPart(int position) const;
};

/// A score whose parts sound together, as one model a part.
struct SplitScore {
    /// As Score::ScoreParts asks; empty when the text is one part.
    std::vector<Score::ScoreModel> Parts;
    /// For each part, where each of its bars comes from.
    std::vector<std::vector<PartBarSource>> Sources;
};

/// Splits the model of the score that the plug-in made of the text, where its parts sound together
/// (FindPartsTogether): the bars of a system begin together, and its columns sound together (TimesTogether).
/// `score` is joined with the markings (JoinMarkings); no note of it is lost, and those of a stave that is of
/// several parts are in each. A part has the strings of its own staves, its name, and the sound that its name
/// says; a capo is none of a bass.
SplitScore SplitParts(const TabReading& reading, const Score::ScoreModel& score);

} // namespace TabText
