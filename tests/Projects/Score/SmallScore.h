#pragma once

#include "Projects/Score/ScoreModel.h"

namespace TestSupport {

/// Two bars for guitar in 3/4 with a label, chord symbols, a chord of two notes, a rest, and a note that is
/// tied over the barline; the first bar is shorter than its time signature.
inline Score::ScoreModel SmallScore() {
    using namespace Score;
    ScoreModel score;
    score.InstrumentName = "Guitar";
    score.ShortName = "Gtr.";
    score.Program = 25;
    score.HasRhythms = true;
    score.Tuning = {40, 45, 50, 55, 59, 64};
    ModelBar first;
    first.Length = 640;
    first.TimeSignature = ModelTimeSignature{3, 4};
    first.Labels = {"Verse 1"};
    first.ChordSymbols = {{0, "Am"}, {256, "C(add9)"}};
    first.Events = {{0, 256, {{1, 3, 48, 28, false}, {4, 1, 60, 35, false}}},
                    {256, 128, {}},
                    {384, 256, {{0, 2, 42, 24, true}}}};
    ModelBar second;
    second.Length = 768;
    second.Events = {{0, 512, {{0, 2, 42, 24, true}}}, {512, 256, {{0, 2, 42, 24, false}}}};
    score.Bars = {first, second};
    return score;
}

/// One part of a bar: a duration, negative for a rest; tied where the next one is to go on.
struct Part {
    int Duration;
    bool IsTied = false;
};

/// A bar of these parts, each a note on the lowest string, in that metre.
inline Score::ScoreModel ScoreOf(const std::vector<Part>& parts, Score::ModelTimeSignature metre = {4, 4}) {
    using namespace Score;
    ScoreModel score;
    score.HasRhythms = true;
    score.Tuning = {40, 45, 50, 55, 59, 64};
    score.FirstTimeSignature = metre;
    ModelBar bar;
    int position = 0;
    for (const Part& part : parts) {
        const int duration = part.Duration < 0 ? -part.Duration : part.Duration;
        ModelEvent event{position, duration, {}};
        if (part.Duration > 0)
            event.Notes = {{0, 0, 40, 0, part.IsTied}};
        bar.Events.push_back(event);
        position += duration;
    }
    bar.Length = position;
    score.Bars = {bar};
    return score;
}

/// The small score above a bass that plays when the guitar does and once more in the second bar.
inline std::vector<Score::ScoreModel> SmallParts() {
    using namespace Score;
    std::vector<ScoreModel> parts{SmallScore(), SmallScore()};
    ScoreModel& bass = parts.back();
    bass.InstrumentName = bass.ShortName = "Bass";
    bass.Program = 33;
    bass.Tuning = {28, 33, 38, 43};
    bass.Bars[0].Labels.clear();
    bass.Bars[0].ChordSymbols.clear();
    bass.Bars[0].Events = {{0, 640, {{1, 3, 36, 21, false}}}};
    bass.Bars[1].Events = {{0, 256, {{0, 1, 29, 17, false}}}, {256, 512, {{0, 3, 31, 18, false}}}};
    return parts;
}

} // namespace TestSupport
