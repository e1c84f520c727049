#include "Projects/Score/PlayedOut.h"

#include <algorithm>

namespace Score {

namespace {

constexpr std::size_t kMostBars = 100000;

// Indices of the bars in the order in which they are played; empty when there are too many.
std::vector<std::size_t> PlayedBars(const ScoreModel& score) {
    std::vector<std::size_t> order;
    std::size_t start = 0;
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar) {
        const ModelRepeats& repeats = score.Bars[bar].Repeats;
        if (repeats.IsStart)
            start = bar;
        order.push_back(bar);
        if (!repeats.IsEnd)
            continue;
        for (int time = 1; time < repeats.Times; ++time) {
            if (order.size() + (bar - start) >= kMostBars)
                return {};
            for (std::size_t again = start; again <= bar; ++again)
                order.push_back(again);
        }
        start = bar + 1;
    }
    return order;
}

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

bool IsSame(const ModelTimeSignature& a, const ModelTimeSignature& b) {
    return a.Numerator == b.Numerator && a.Denominator == b.Denominator;
}

} // namespace

std::optional<ScoreModel> PlayedOut(const ScoreModel& score) {
    const bool hasRepeats = std::any_of(score.Bars.begin(), score.Bars.end(),
                                        [](const ModelBar& bar) { return bar.Repeats.IsEnd; });
    const std::vector<std::size_t> order = hasRepeats ? PlayedBars(score) : std::vector<std::size_t>();
    if (order.empty())
        return std::nullopt;
    ScoreModel played = score;
    played.Bars.clear();
    const std::vector<ModelTimeSignature> times = TimesInForce(score);
    for (std::size_t index = 0; index < order.size(); ++index) {
        played.Bars.push_back(score.Bars[order[index]]);
        played.Bars.back().Repeats = {};
        // After a way back, the bar may need the signature that it had from a bar before it.
        if (index > 0 && order[index] <= order[index - 1] &&
            !IsSame(times[order[index]], times[order[index - 1]]))
            played.Bars.back().TimeSignature = times[order[index]];
    }
    return played;
}

} // namespace Score
