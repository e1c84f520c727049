#include "Projects/Fretline/stave/ScoreBar.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/ScorePlaces.h"
#include "Projects/TabText/TabReading.h"

#include <algorithm>

namespace TabText {

namespace {

using Fretline::TabBar;
using Score::ModelEvent;
using Score::ModelNote;
using Score::Technique;

constexpr int kChrom2PerSemitone = 2;

// Puts the marks of one reading on the notes of the score that came from the same text.
class Joiner {
public:
    Joiner(const TabReading& reading, Score::ScoreModel& score) : m_Reading(reading), m_Score(score) {}

    void Join(const NoteMark& mark) {
        const BarReading& reading = m_Reading.GetBars()[mark.Bar];
        ModelEvent* event = EventOf(reading, mark.NoteColumn);
        if (event == nullptr)
            return;
        const int string = reading.Bar->GetFirstLine() + reading.Bar->GetLineCount() - 1 - mark.NoteLine;
        auto note = std::find_if(event->Notes.begin(), event->Notes.end(),
                                 [&](const ModelNote& other) { return other.String == string; });
        const bool isDead = mark.What.Kind == Technique::Dead;
        // A string that sounds a fret at that time is not dead.
        if (isDead && note == event->Notes.end())
            AddTechnique(*AddDeadNote(*event, *reading.Bar, string), mark.What);
        else if (!isDead && note != event->Notes.end())
            AddTechnique(*note, mark.What);
    }

    void Join(const BarMark& mark) {
        const BarReading& reading = m_Reading.GetBars()[mark.Bar];
        const int last = reading.FirstScoreBar + reading.Bar->ScoreBarCount() - 1;
        if (last < reading.FirstScoreBar || last >= static_cast<int>(m_Score.Bars.size()))
            return;
        if (mark.Repeats.IsStart)
            BarAt(reading.FirstScoreBar).Repeats.IsStart = true;
        if (mark.Repeats.IsEnd) {
            BarAt(last).Repeats.IsEnd = true;
            BarAt(last).Repeats.Times = mark.Repeats.Times;
        }
        for (int bar = reading.FirstScoreBar; bar <= last; ++bar)
            BarAt(bar).Repeats.Endings = mark.Repeats.Endings;
        BarAt(reading.FirstScoreBar).Tempo = mark.Tempo;
        JoinWay(mark.Way, BarAt(reading.FirstScoreBar).Way, BarAt(last).Way);
    }

private:
    static void JoinWay(const Score::ModelWay& mark, Score::ModelWay& first, Score::ModelWay& last) {
        first.HasSegno = mark.HasSegno;
        first.HasCoda = mark.HasCoda;
        last.HasToCoda = mark.HasToCoda;
        last.HasFine = mark.HasFine;
        last.To = mark.To;
        last.Until = mark.Until;
    }

    Score::ModelBar& BarAt(int number) { return m_Score.Bars[static_cast<std::size_t>(number)]; }

    // The event that begins where the column of the text does; null when the score has none.
    ModelEvent* EventOf(const BarReading& reading, int textColumn) {
        const Fretline::TabColumn* column = ColumnAt(*reading.Bar, textColumn);
        const std::optional<ScorePlace> place = column ? ScorePlaceOf(reading, *column) : std::nullopt;
        if (!place || place->Bar >= static_cast<int>(m_Score.Bars.size()))
            return nullptr;
        std::vector<ModelEvent>& events = BarAt(place->Bar).Events;
        const auto event =
            std::lower_bound(events.begin(), events.end(), place->Position,
                             [](const ModelEvent& one, int position) { return one.Position < position; });
        return event == events.end() || event->Position != place->Position ? nullptr : &*event;
    }

    static std::vector<ModelNote>::iterator AddDeadNote(ModelEvent& event, const TabBar& bar, int string) {
        const Fretline::TabNote open(string, bar.GetTuning()[static_cast<std::size_t>(string)]);
        ModelNote note;
        note.String = string;
        note.Midi = open.m_Chrom2 / kChrom2PerSemitone;
        note.Diat = open.m_Diat;
        const auto place =
            std::upper_bound(event.Notes.begin(), event.Notes.end(), note.Diat,
                             [](int diat, const ModelNote& other) { return diat < other.Diat; });
        return event.Notes.insert(place, std::move(note));
    }

    // After a release it would be another bend, which a note does not have.
    static void AddFurtherBend(ModelNote& note, const Score::ModelTechnique& bend) {
        if (Score::FindTechnique(note.Techniques, Technique::Release) != nullptr)
            return;
        const auto place =
            std::find_if(note.Techniques.begin(), note.Techniques.end(),
                         [](const Score::ModelTechnique& other) { return other.Kind > Technique::Bend; });
        note.Techniques.insert(place, bend);
    }

    static void AddTechnique(ModelNote& note, const Score::ModelTechnique& what) {
        const auto place =
            std::find_if(note.Techniques.begin(), note.Techniques.end(),
                         [&](const Score::ModelTechnique& other) { return other.Kind >= what.Kind; });
        if (what.Kind == Technique::Bend && Score::FindTechnique(note.Techniques, Technique::Bend) != nullptr)
            AddFurtherBend(note, what);
        else if (place == note.Techniques.end() || place->Kind != what.Kind)
            note.Techniques.insert(place, what);
    }

    const TabReading& m_Reading;
    Score::ScoreModel& m_Score;
};

void JoinLines(const TabReading& reading, Score::ScoreModel& score) {
    int line = -1;
    for (const BarReading& bar : reading.GetBars()) {
        if (bar.Bar->GetFirstLine() != line && bar.FirstScoreBar < static_cast<int>(score.Bars.size()))
            score.Bars[static_cast<std::size_t>(bar.FirstScoreBar)].BeginsLine = true;
        line = bar.Bar->GetFirstLine();
    }
}

} // namespace

void JoinMarkings(const TabReading& reading, const Markings& markings, Score::ScoreModel& score) {
    JoinTunings(reading, score);
    JoinLines(reading, score);
    Joiner joiner(reading, score);
    for (const NoteMark& mark : markings.Notes)
        joiner.Join(mark);
    for (const BarMark& mark : markings.Bars)
        joiner.Join(mark);
    score.Heading = markings.Heading;
}

} // namespace TabText
