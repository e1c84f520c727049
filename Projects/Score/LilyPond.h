#pragma once

#include "Projects/Score/ScoreParts.h"

#include <string>

namespace Score {

/// The staves of an engraved score.
enum class Layout {
    /// Notes and tab, one above the other.
    Both,
    Tab,
    Notes,
};

/// The score as a LilyPond file (2.24) that can be edited on, UTF-8: a header, one variable a section, a
/// stave with the instrument's clef and one of tab with its tuning, chord names, ties, beams by the metre,
/// section labels, and how notes are played where the tab's text was joined. All text is quoted, so that any
/// score gives a file that compiles. `title` is used where the score has none. With `isOnePage` the music is
/// set on a single page as high as it needs.
///
/// Each of several parts has staves and variables of its own, named after it.
std::string LilyPondText(ScoreParts parts, const std::string& title, Layout layout, bool isOnePage);
inline std::string LilyPondText(const ScoreModel& score, const std::string& title, Layout layout,
                                bool isOnePage) {
    return LilyPondText(AsParts(score), title, layout, isOnePage);
}

} // namespace Score
