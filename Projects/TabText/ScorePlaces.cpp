#include "Projects/TabText/ScorePlaces.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/TabReading.h"

#include <algorithm>

namespace TabText {

const Fretline::TabColumn* ColumnAt(const Fretline::TabBar& bar, int textColumn) {
    const int place = textColumn - bar.GetStartColumn();
    // A column may reach one place to the left of its key.
    const auto& columns = bar.GetColumns();
    auto next = std::lower_bound(columns.begin(), columns.end(), place + 2, Fretline::IsLeftOf);
    for (int tries = 0; tries < 2 && next != columns.begin(); ++tries) {
        --next;
        if (place >= next->m_Column + next->m_StartOffset && place < next->m_Column + next->m_Width)
            return &*next;
    }
    return nullptr;
}

std::optional<ScorePlace> ScorePlaceOf(const BarReading& reading, const Fretline::TabColumn& column) {
    const int length = reading.Bar->GetBarLength();
    if (length <= 0)
        return std::nullopt;
    return ScorePlace{reading.FirstScoreBar + column.m_Position / length, column.m_Position % length};
}

} // namespace TabText
