#pragma once

namespace Nvr {
class ConverterOutput;
}

namespace Fretline {

class ScoreHolder;
class TabAnalysis;

/// Turns the text into a score: adds one instrument, one stave and, bar by bar, the music, the bar spacings
/// and the system items to the flattened template that `score` holds. Reads every readable bar of the
/// analysis, which must not have been read before, and reports 20 to 80 percent to `output` after each.
///
/// True when the score has at least one bar. False, and the tree as it was, without a child "Music". Throws
/// std::out_of_range when there is no readable bar, and what `output` throws; the tree is then incomplete.
/// Other nodes that the template lacks are left out of the score.
bool BuildScore(TabAnalysis& analysis, ScoreHolder& score, Nvr::ConverterOutput& output);

} // namespace Fretline
