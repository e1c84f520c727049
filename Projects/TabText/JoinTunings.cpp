#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/TabReading.h"
#include "Projects/TabText/TuningJoiner.h"

#include <algorithm>

namespace TabText {

void JoinTunings(const TabReading& reading, Score::ScoreModel& score) {
    TuningJoiner joiner(score);
    for (const BarReading& entry : reading.GetBars()) {
        const int end =
            std::min(entry.FirstScoreBar + entry.Bar->ScoreBarCount(), static_cast<int>(score.Bars.size()));
        if (entry.FirstScoreBar < end)
            joiner.Join(*entry.Bar, static_cast<std::size_t>(entry.FirstScoreBar),
                        static_cast<std::size_t>(end));
    }
}

} // namespace TabText
