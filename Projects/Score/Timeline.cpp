#include "Projects/Score/Timeline.h"

#include <algorithm>

namespace Score {

namespace {

int LengthOf(const ModelBar& bar) {
    int length = std::max(bar.Length, 0);
    for (const ModelEvent& event : bar.Events)
        length = std::max(length, event.Position + event.Duration);
    return length;
}

// What a string is doing at the present moment of the walk.
struct StringState {
    // Index of the last note struck on it, -1 before the first.
    int LastNote = -1;
    bool IsTied = false;
};

} // namespace

std::vector<int> BarStarts(const ScoreModel& score) {
    std::vector<int> starts{0};
    for (const ModelBar& bar : score.Bars)
        starts.push_back(starts.back() + LengthOf(bar));
    return starts;
}

std::vector<SoundingNote> SoundingNotes(const ScoreModel& score) {
    const std::vector<int> starts = BarStarts(score);
    std::vector<SoundingNote> notes;
    std::vector<StringState> strings(static_cast<std::size_t>(score.CountStrings()));
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar) {
        for (const ModelEvent& event : score.Bars[bar].Events) {
            const int start = starts[bar] + event.Position;
            for (const ModelNote& note : event.Notes) {
                StringState& string = strings[static_cast<std::size_t>(note.String)];
                SoundingNote* last =
                    string.LastNote < 0 ? nullptr : &notes[static_cast<std::size_t>(string.LastNote)];
                if (last != nullptr && string.IsTied && last->Midi == note.Midi) {
                    last->End = start + event.Duration;
                } else {
                    if (last != nullptr)
                        last->End = std::min(last->End, start);
                    string.LastNote = static_cast<int>(notes.size());
                    notes.push_back(
                        {start, start + event.Duration, note.String, note.Midi, note.Fret, &note.Techniques});
                }
                string.IsTied = note.TiedToNext;
            }
        }
    }
    return notes;
}

} // namespace Score
