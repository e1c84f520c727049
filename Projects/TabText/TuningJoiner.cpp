#include "Projects/TabText/TuningJoiner.h"

#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Fretline/stave/TabBar.h"

#include <algorithm>
#include <utility>

namespace TabText {

namespace {

// A stave that lacks lines at the top goes on with the strings it has.
bool ArePartOf(const std::vector<int>& strings, const std::vector<int>& tuning) {
    return strings.size() <= tuning.size() && std::equal(strings.begin(), strings.end(), tuning.begin());
}

} // namespace

std::vector<int> OpenStringsOf(const Fretline::TabBar& bar) {
    std::vector<int> strings;
    for (const int chrom2 : bar.GetTuning())
        strings.push_back(chrom2 / Fretline::kChrom2PerSemitone);
    return strings;
}

void SetFrets(Score::ModelBar& bar, const std::vector<int>& tuning) {
    constexpr int kNoFret = -1;
    for (Score::ModelEvent& event : bar.Events)
        for (Score::ModelNote& note : event.Notes) {
            const auto string = static_cast<std::size_t>(note.String);
            note.Fret = string < tuning.size() ? note.Midi - tuning[string] : kNoFret;
        }
}

void TuningJoiner::Join(const Fretline::TabBar& bar, std::size_t first, std::size_t end) {
    if (const std::vector<int>* before = std::exchange(m_Text, &bar.GetTuning()); before != m_Text)
        if (std::vector<int> tuning = OpenStringsOf(bar); !ArePartOf(tuning, *m_Now))
            m_Now = &m_Score.Bars[first].Tuning.emplace(std::move(tuning));
    if (m_Now == &m_Score.Tuning)
        return;
    for (std::size_t index = first; index < end; ++index)
        SetFrets(m_Score.Bars[index], *m_Now);
}

} // namespace TabText
