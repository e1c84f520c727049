#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/TabReading.h"

#include <algorithm>
#include <utility>

namespace TabText {

namespace {

std::vector<int> OpenStringsOf(const Fretline::TabBar& bar) {
    std::vector<int> strings;
    for (const int chrom2 : bar.GetTuning())
        strings.push_back(chrom2 / Fretline::kChrom2PerSemitone);
    return strings;
}

// A stave that lacks lines at the top goes on with the strings it has.
bool ArePartOf(const std::vector<int>& strings, const std::vector<int>& tuning) {
    return strings.size() <= tuning.size() && std::equal(strings.begin(), strings.end(), tuning.begin());
}

void SetFrets(Score::ModelBar& bar, const std::vector<int>& tuning) {
    constexpr int kNoFret = -1;
    for (Score::ModelEvent& event : bar.Events)
        for (Score::ModelNote& note : event.Notes) {
            const auto string = static_cast<std::size_t>(note.String);
            note.Fret = string < tuning.size() ? note.Midi - tuning[string] : kNoFret;
        }
}

} // namespace

void JoinTunings(const TabReading& reading, Score::ScoreModel& score) {
    const std::vector<int>* now = &score.Tuning;
    // Of the bar before: the bars of a stave have one tuning.
    const std::vector<int>* text = nullptr;
    for (const BarReading& entry : reading.GetBars()) {
        const int end =
            std::min(entry.FirstScoreBar + entry.Bar->ScoreBarCount(), static_cast<int>(score.Bars.size()));
        if (entry.FirstScoreBar >= end)
            continue;
        Score::ModelBar& first = score.Bars[static_cast<std::size_t>(entry.FirstScoreBar)];
        if (const std::vector<int>* before = std::exchange(text, &entry.Bar->GetTuning()); before != text)
            if (std::vector<int> tuning = OpenStringsOf(*entry.Bar); !ArePartOf(tuning, *now))
                now = &first.Tuning.emplace(std::move(tuning));
        // Up to the first change, the score's own frets are those of the text.
        if (now == &score.Tuning)
            continue;
        for (int bar = entry.FirstScoreBar; bar < end; ++bar)
            SetFrets(score.Bars[static_cast<std::size_t>(bar)], *now);
    }
}

} // namespace TabText
