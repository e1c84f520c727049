#include "Projects/TabText/ScorePlaces.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/TabReading.h"

namespace TabText {

const Fretline::TabColumn* ColumnAt(const Fretline::TabBar& bar, int textColumn) {
    const int place = textColumn - bar.GetStartColumn();
    // A column may reach one place to the left of its key.
    auto next = bar.GetColumns().upper_bound(place + 1);
    for (int tries = 0; tries < 2 && next != bar.GetColumns().begin(); ++tries) {
        const Fretline::TabColumn& column = *(--next)->second;
        if (place >= column.m_Column + column.m_StartOffset && place < column.m_Column + column.m_Width)
            return &column;
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
