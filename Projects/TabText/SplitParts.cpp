#include "Projects/TabText/SplitParts.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/PartTimes.h"
#include "Projects/TabText/TabReading.h"
#include "Projects/TabText/TuningJoiner.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using Score::ModelBar;
using Score::ModelEvent;
using Score::ScoreModel;

// What a part with a word in its name sounds like: MIDI programs, counted from 0.
struct Sound {
    std::string_view Word;
    int Program;
};
constexpr int kBassProgram = 33;
constexpr std::array kSounds = std::to_array<Sound>({
    {"bass", kBassProgram},
    {"ukulele", 24},
    {"banjo", 105},
    {"distorted", 30},
    {"clean", 27},
    {"electric", 27},
});

void AddNotes(std::vector<Score::ModelNote>& notes, std::vector<Score::ModelNote> more) {
    for (Score::ModelNote& note : more)
        if (std::none_of(notes.begin(), notes.end(),
                         [&](const Score::ModelNote& other) { return other.String == note.String; }))
            notes.push_back(std::move(note));
}

// What goes on from a column before it is that column's still.
std::vector<ModelEvent> Retimed(std::vector<ModelEvent> events, const std::map<int, int>& times, int length) {
    std::vector<ModelEvent> retimed;
    for (ModelEvent& event : events) {
        const auto time = times.find(event.Position);
        if (time == times.end() || event.Notes.empty())
            continue;
        for (Score::ModelNote& note : event.Notes)
            note.TiedToNext = false;
        if (!retimed.empty() && retimed.back().Position >= time->second)
            AddNotes(retimed.back().Notes, std::move(event.Notes));
        else
            retimed.push_back({time->second, 0, std::move(event.Notes)});
    }
    for (std::size_t index = 0; index < retimed.size(); ++index) {
        const int end = index + 1 < retimed.size() ? retimed[index + 1].Position : length;
        retimed[index].Duration = std::max(end - retimed[index].Position, 1);
    }
    return retimed;
}

// A chord symbol stands at a column.
void Retime(std::vector<Score::ModelText>& chords, const std::map<int, int>& times) {
    for (Score::ModelText& chord : chords)
        if (const auto after = times.upper_bound(chord.Position); after != times.begin())
            chord.Position = std::prev(after)->second;
}

class Splitter {
public:
    Splitter(const TabReading& reading, const ScoreModel& score, const PartsTogether& together)
        : m_Reading(reading), m_Score(score), m_Together(together) {}

    SplitScore Split() {
        m_Split.Sources.resize(m_Together.Names.size());
        for (const PartName& name : m_Together.Names)
            m_Split.Parts.push_back(EmptyPart(name));
        for (const BarsTogether& bars : m_Together.Bars)
            AddBars(bars);
        for (std::size_t part = 0; part < m_Split.Parts.size(); ++part)
            JoinStrings(part);
        return std::move(m_Split);
    }

private:
    ScoreModel EmptyPart(const PartName& name) const {
        ScoreModel part;
        part.InstrumentName = name.Name;
        part.ShortName = name.Name;
        part.Program = m_Score.Program;
        part.StaveTypeId = m_Score.StaveTypeId;
        part.HasRhythms = m_Score.HasRhythms;
        part.FirstTimeSignature = m_Score.FirstTimeSignature;
        part.Heading = m_Score.Heading;
        const auto* sound = std::find_if(kSounds.begin(), kSounds.end(), [&](const Sound& one) {
            return name.Key.find(one.Word) != std::string::npos;
        });
        if (sound != kSounds.end())
            part.Program = sound->Program;
        if (part.Program == kBassProgram)
            part.Heading.Capo = 0;
        return part;
    }

    void AddBars(const BarsTogether& bars) {
        const std::optional<PartTimes> times = TimesTogether(m_Reading, bars);
        const int count = CountOf(bars);
        for (int index = 0; index < count; ++index) {
            for (std::size_t part = 0; part < bars.Bars.size(); ++part)
                AddBar(part, bars.Bars[part], index, times);
            Agree();
        }
    }

    // The bar of the part that is the one with that index of those which the bar of the text gave.
    void AddBar(std::size_t part, std::optional<std::size_t> textBar, int index,
                const std::optional<PartTimes>& times) {
        PartBarSource source;
        if (textBar) {
            const BarReading& reading = m_Reading.GetBars()[*textBar];
            const int scoreBar = reading.FirstScoreBar + index;
            if (index < reading.Bar->ScoreBarCount() && scoreBar < static_cast<int>(m_Score.Bars.size()))
                source.ScoreBar = scoreBar;
        }
        ModelBar bar;
        bar.Length = 0;
        if (source.ScoreBar) {
            bar = m_Score.Bars[static_cast<std::size_t>(*source.ScoreBar)];
            bar.Tuning.reset();
        }
        if (source.ScoreBar && times && !times->NewTimes[part].empty()) {
            source.NewTimes = times->NewTimes[part];
            bar.Events = Retimed(std::move(bar.Events), source.NewTimes, times->Length);
            Retime(bar.ChordSymbols, source.NewTimes);
        }
        if (source.ScoreBar && times)
            bar.Length = times->Length;
        m_Split.Parts[part].Bars.push_back(std::move(bar));
        m_Split.Sources[part].push_back(std::move(source));
    }

    // The last bars of the parts have one length, and what is said of one of them is said of all.
    void Agree() {
        ModelBar shared;
        shared.Length = 0;
        for (ScoreModel& part : m_Split.Parts) {
            const ModelBar& bar = part.Bars.back();
            shared.Length = std::max(shared.Length, bar.Length);
            for (const ModelEvent& event : bar.Events)
                shared.Length = std::max(shared.Length, event.Position + event.Duration);
            Share(bar, shared);
        }
        for (std::size_t part = 0; part < m_Split.Parts.size(); ++part) {
            ModelBar& bar = m_Split.Parts[part].Bars.back();
            bar.Length = shared.Length;
            bar.TimeSignature = shared.TimeSignature;
            bar.Repeats = shared.Repeats;
            bar.Way = shared.Way;
            bar.BeginsLine = shared.BeginsLine;
            // They are written once, above the top part.
            bar.Tempo = part == 0 ? shared.Tempo : 0;
            bar.Labels = part == 0 ? shared.Labels : std::vector<std::string>();
        }
    }

    static void Share(const ModelBar& bar, ModelBar& shared) {
        if (!shared.TimeSignature)
            shared.TimeSignature = bar.TimeSignature;
        shared.Repeats.IsStart = shared.Repeats.IsStart || bar.Repeats.IsStart;
        if (bar.Repeats.IsEnd) {
            shared.Repeats.IsEnd = true;
            shared.Repeats.Times = std::max(shared.Repeats.Times, bar.Repeats.Times);
        }
        if (shared.Repeats.Endings.empty())
            shared.Repeats.Endings = bar.Repeats.Endings;
        shared.Way.HasSegno = shared.Way.HasSegno || bar.Way.HasSegno;
        shared.Way.HasCoda = shared.Way.HasCoda || bar.Way.HasCoda;
        shared.Way.HasToCoda = shared.Way.HasToCoda || bar.Way.HasToCoda;
        shared.Way.HasFine = shared.Way.HasFine || bar.Way.HasFine;
        if (shared.Way.To == Score::Jump::None) {
            shared.Way.To = bar.Way.To;
            shared.Way.Until = bar.Way.Until;
        }
        shared.BeginsLine = shared.BeginsLine || bar.BeginsLine;
        shared.Tempo = shared.Tempo == 0 ? bar.Tempo : shared.Tempo;
        for (const std::string& label : bar.Labels)
            if (std::find(shared.Labels.begin(), shared.Labels.end(), label) == shared.Labels.end())
                shared.Labels.push_back(label);
    }

    // From its first stave on.
    void JoinStrings(std::size_t part) {
        ScoreModel& model = m_Split.Parts[part];
        std::optional<TuningJoiner> joiner;
        std::size_t bar = 0;
        for (const BarsTogether& together : m_Together.Bars) {
            const std::size_t first = bar;
            bar += static_cast<std::size_t>(CountOf(together));
            if (!together.Bars[part])
                continue;
            const Fretline::TabBar& text = *m_Reading.GetBars()[*together.Bars[part]].Bar;
            if (!joiner) {
                model.Tuning = OpenStringsOf(text);
                for (ModelBar& each : model.Bars)
                    SetFrets(each, model.Tuning);
                joiner.emplace(model);
            }
            if (first < bar)
                joiner->Join(text, first, bar);
        }
    }

    // Of the longest of them, in bars of the score.
    int CountOf(const BarsTogether& bars) const {
        int count = 0;
        for (const std::optional<std::size_t>& bar : bars.Bars)
            count = std::max(count, bar ? m_Reading.GetBars()[*bar].Bar->ScoreBarCount() : 0);
        return count;
    }

    const TabReading& m_Reading;
    const ScoreModel& m_Score;
    const PartsTogether& m_Together;
    SplitScore m_Split;
};

} // namespace

int PartBarSource::InPart(int position) const {
    const auto time = NewTimes.find(position);
    return time == NewTimes.end() ? position : time->second;
}

SplitScore SplitParts(const TabReading& reading, const ScoreModel& score) {
    const PartsTogether together = FindPartsTogether(reading);
    return together.Names.empty() ? SplitScore() : Splitter(reading, score, together).Split();
}

} // namespace TabText
