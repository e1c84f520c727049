#pragma once

#include "Projects/Score/ScoreModel.h"

#include <cstddef>
#include <vector>

namespace Fretline {
class TabBar;
}

namespace TabText {

/// The open strings of a bar of the text as MIDI note numbers, lowest first.
std::vector<int> OpenStringsOf(const Fretline::TabBar& bar);

/// Gives the notes of a bar the frets that these open strings have for them.
void SetFrets(Score::ModelBar& bar, const std::vector<int>& tuning);

/// Gives the bars of a model the strings of their staves, bar by bar in the order of the model. Borrows the
/// model. Frets are set from the first change of strings on; up to it, the model's own are right.
class TuningJoiner {
public:
    explicit TuningJoiner(Score::ScoreModel& score) : m_Score(score), m_Now(&score.Tuning) {}

    /// The bars of the model from `first` up to before `end` came from that bar of the text.
    void Join(const Fretline::TabBar& bar, std::size_t first, std::size_t end);

private:
    Score::ScoreModel& m_Score;
    const std::vector<int>* m_Now;
    /// Of the bar before: the bars of a stave have one tuning.
    const std::vector<int>* m_Text = nullptr;
};

} // namespace TabText
