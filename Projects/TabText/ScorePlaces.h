#pragma once

#include <optional>

namespace Fretline {
class TabBar;
struct TabColumn;
} // namespace Fretline

namespace TabText {

struct BarReading;

/// A time of a score: a bar, counted from 0, and score units from its start.
struct ScorePlace {
    int Bar = 0;
    int Position = 0;
};

/// The column of a bar that has been read at an absolute column of the text; null when there is none. Lives
/// as long as the bar.
const Fretline::TabColumn* ColumnAt(const Fretline::TabBar& bar, int textColumn);

/// When a column sounds in the score that was made of the same text; nothing in a bar that takes no time.
std::optional<ScorePlace> ScorePlaceOf(const BarReading& reading, const Fretline::TabColumn& column);

} // namespace TabText
