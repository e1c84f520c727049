#include "Projects/Score/PlayedOut.h"

#include <algorithm>

namespace Score {

namespace {

constexpr std::size_t kMostBars = 100000;

// Walks through the score as a player does: a repeat goes back until its last time, endings are played at
// their times alone, and after a jump everything is played as the last time.
class Walk {
public:
    explicit Walk(const ScoreModel& score) : m_Bars(score.Bars) {
        // From the back: the last ending says how many times there are.
        m_LastTimes.resize(m_Bars.size());
        for (std::size_t bar = m_Bars.size(); bar-- > 0;) {
            const std::vector<int>& endings = m_Bars[bar].Repeats.Endings;
            if (!endings.empty())
                m_LastTimes[bar] = IsBeforeAnotherEnding(bar) ? m_LastTimes[bar + 1] : endings.back();
        }
    }

    // Indices of the bars in the order in which they are played; empty when there are too many.
    std::vector<std::size_t> Bars() {
        std::vector<std::size_t> order;
        for (m_At = 0; m_At < m_Bars.size();) {
            EnterStretch();
            if (!IsPlayedThisTime()) {
                ++m_At;
                continue;
            }
            if (order.size() >= kMostBars)
                return {};
            order.push_back(m_At);
            m_At = NextBar();
        }
        return order;
    }

private:
    bool IsBeforeAnotherEnding(std::size_t bar) const {
        const std::vector<int>& endings = m_Bars[bar].Repeats.Endings;
        return bar + 1 < m_Bars.size() && !m_Bars[bar + 1].Repeats.Endings.empty() &&
               m_Bars[bar + 1].Repeats.Endings.front() >= endings.front();
    }

    void BeginStretch(std::size_t bar) {
        m_Start = bar;
        m_Time = 1;
    }

    void EnterStretch() {
        const ModelRepeats& repeats = m_Bars[m_At].Repeats;
        const bool leavesEndings = m_IsInEnding && repeats.Endings.empty();
        if ((repeats.IsStart && m_At != m_Start) || leavesEndings)
            BeginStretch(m_At);
        m_IsInEnding = !repeats.Endings.empty();
    }

    bool IsPlayedThisTime() const {
        const std::vector<int>& endings = m_Bars[m_At].Repeats.Endings;
        const int time = m_Jump != nullptr ? m_LastTimes[m_At] : m_Time;
        return endings.empty() || std::find(endings.begin(), endings.end(), time) != endings.end();
    }

    std::size_t NextBar() {
        const ModelRepeats& repeats = m_Bars[m_At].Repeats;
        if (repeats.IsEnd && m_Jump == nullptr) {
            const int times = repeats.Endings.empty() ? repeats.Times : m_LastTimes[m_At];
            if (m_Time < times) {
                ++m_Time;
                m_IsInEnding = false;
                return m_Start;
            }
            BeginStretch(m_At + 1);
        }
        return m_Jump == nullptr ? BarAfterJump() : BarOfTheEnd();
    }

    std::size_t BarAfterJump() {
        const ModelWay& way = m_Bars[m_At].Way;
        if (way.To == Jump::None)
            return m_At + 1;
        m_Jump = &way;
        return way.To == Jump::DaCapo ? 0 : FirstWith(&ModelWay::HasSegno);
    }

    // After the jump, until its end.
    std::size_t BarOfTheEnd() {
        const ModelWay& way = m_Bars[m_At].Way;
        if (m_Jump->Until == JumpEnd::Fine && way.HasFine)
            return m_Bars.size();
        if (m_Jump->Until == JumpEnd::Coda && way.HasToCoda && !m_IsInCoda) {
            m_IsInCoda = true;
            return FirstWith(&ModelWay::HasCoda);
        }
        return m_At + 1;
    }

    std::size_t FirstWith(bool ModelWay::*sign) const {
        const auto found =
            std::find_if(m_Bars.begin(), m_Bars.end(), [&](const ModelBar& bar) { return bar.Way.*sign; });
        return static_cast<std::size_t>(found - m_Bars.begin());
    }

    const std::vector<ModelBar>& m_Bars;
    // For each bar of an ending, how often its stretch is played.
    std::vector<int> m_LastTimes;
    std::size_t m_At = 0;
    // Of the stretch that is repeated next.
    std::size_t m_Start = 0;
    int m_Time = 1;
    bool m_IsInEnding = false;
    // Null before it was taken.
    const ModelWay* m_Jump = nullptr;
    bool m_IsInCoda = false;
};

// The time signature in force in each bar.
std::vector<ModelTimeSignature> TimesInForce(const ScoreModel& score) {
    std::vector<ModelTimeSignature> times;
    ModelTimeSignature now = score.FirstTimeSignature;
    for (const ModelBar& bar : score.Bars) {
        now = bar.TimeSignature.value_or(now);
        times.push_back(now);
    }
    return times;
}

// The tempo in force in each bar; 0 where none was stated.
std::vector<int> TemposInForce(const ScoreModel& score) {
    std::vector<int> tempos;
    int now = score.Heading.Tempo;
    for (const ModelBar& bar : score.Bars) {
        now = bar.Tempo > 0 ? bar.Tempo : now;
        tempos.push_back(now);
    }
    return tempos;
}

bool IsSame(const ModelTimeSignature& a, const ModelTimeSignature& b) {
    return a.Numerator == b.Numerator && a.Denominator == b.Denominator;
}

} // namespace

std::optional<ScoreModel> PlayedOut(const ScoreModel& score) {
    const bool leadsBack = std::any_of(score.Bars.begin(), score.Bars.end(), [](const ModelBar& bar) {
        return bar.Repeats.IsEnd || bar.Way.To != Jump::None;
    });
    const std::vector<std::size_t> order = leadsBack ? Walk(score).Bars() : std::vector<std::size_t>();
    if (order.empty())
        return std::nullopt;
    ScoreModel played = score;
    played.Bars.clear();
    const std::vector<ModelTimeSignature> times = TimesInForce(score);
    const std::vector<int> tempos = TemposInForce(score);
    for (std::size_t index = 0; index < order.size(); ++index) {
        played.Bars.push_back(score.Bars[order[index]]);
        ModelBar& bar = played.Bars.back();
        bar.Repeats = {};
        bar.Way = {};
        if (index == 0 || order[index] == order[index - 1] + 1)
            continue;
        // After a way back or a leap, a bar may need what it had from a bar before it.
        if (!IsSame(times[order[index]], times[order[index - 1]]))
            bar.TimeSignature = times[order[index]];
        if (tempos[order[index]] != tempos[order[index - 1]])
            bar.Tempo = tempos[order[index]];
    }
    return played;
}

} // namespace Score
