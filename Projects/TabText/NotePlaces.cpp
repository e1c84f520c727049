#include "Projects/TabText/NotePlaces.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Score/Timeline.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/ScorePlaces.h"
#include "Projects/TabText/SplitParts.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/TabReading.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace TabText {

namespace {

using Strike = std::pair<int, int>;

// When what is struck on which string, in order.
std::vector<Strike> StrikesOf(const Score::ScoreModel& score) {
    std::vector<Strike> strikes;
    for (const Score::SoundingNote& note : Score::SoundingNotes(score))
        strikes.emplace_back(note.Start, note.String);
    std::sort(strikes.begin(), strikes.end());
    return strikes;
}

class PlaceFinder {
public:
    explicit PlaceFinder(const Score::ScoreModel& score)
        : m_BarStarts(Score::BarStarts(score)), m_Strikes(StrikesOf(score)) {}

    // Keeps a note of the text that the score strikes too.
    void Add(const BarReading& reading, const Fretline::TabColumn& column, NotePlace place) {
        const std::optional<ScorePlace> time = ScorePlaceOf(reading, column);
        if (!time || time->Bar + 1 >= static_cast<int>(m_BarStarts.size()))
            return;
        place.Bar = time->Bar;
        place.Position = time->Position;
        place.Tick = m_BarStarts[static_cast<std::size_t>(time->Bar)] + time->Position;
        if (std::binary_search(m_Strikes.begin(), m_Strikes.end(), Strike(place.Tick, place.String)))
            m_Places.push_back(place);
    }

    std::vector<NotePlace> Take() {
        std::sort(m_Places.begin(), m_Places.end(), [](const NotePlace& a, const NotePlace& b) {
            return std::tie(a.Tick, a.String, a.Line, a.Column) <
                   std::tie(b.Tick, b.String, b.Line, b.Column);
        });
        return std::move(m_Places);
    }

private:
    std::vector<int> m_BarStarts;
    std::vector<Strike> m_Strikes;
    std::vector<NotePlace> m_Places;
};

} // namespace

std::vector<NotePlace> NotePlaces(const TabReading& reading, const Markings& markings,
                                  const Score::ScoreModel& score) {
    PlaceFinder finder(score);
    for (const BarReading& bar : reading.GetBars())
        for (const StruckNote& note : StruckNotesOf(*bar.Bar))
            finder.Add(bar, *note.Time, {note.Line, note.Column, note.EndColumn, 0, 0, 0, 0, note.String});
    for (const NoteMark& mark : markings.Notes) {
        const BarReading& bar = reading.GetBars()[mark.Bar];
        const Fretline::TabColumn* column = ColumnAt(*bar.Bar, mark.NoteColumn);
        if (mark.What.Kind != Score::Technique::Dead || column == nullptr)
            continue;
        const int string = bar.Bar->GetFirstLine() + bar.Bar->GetLineCount() - 1 - mark.NoteLine;
        finder.Add(bar, *column, {mark.NoteLine, mark.NoteColumn, mark.NoteColumn + 1, 0, 0, 0, 0, string});
    }
    return finder.Take();
}

std::vector<NotePlace> PlacesInParts(std::vector<NotePlace> places, const SplitScore& split) {
    if (split.Parts.empty())
        return places;
    struct PartBar {
        int Part;
        int Bar;
        const PartBarSource* Source;
    };
    std::multimap<int, PartBar> barsOfScoreBar;
    for (std::size_t part = 0; part < split.Sources.size(); ++part)
        for (std::size_t bar = 0; bar < split.Sources[part].size(); ++bar)
            if (const PartBarSource& source = split.Sources[part][bar]; source.ScoreBar)
                barsOfScoreBar.emplace(*source.ScoreBar,
                                       PartBar{static_cast<int>(part), static_cast<int>(bar), &source});
    const std::vector<int> starts = Score::BarStarts(split.Parts.front());
    std::vector<NotePlace> inParts;
    for (NotePlace place : places) {
        const int position = place.Position;
        const auto [first, end] = barsOfScoreBar.equal_range(place.Bar);
        for (auto entry = first; entry != end; ++entry) {
            const PartBar& bar = entry->second;
            place.Part = bar.Part;
            place.Position = bar.Source->InPart(position);
            place.Tick = starts[static_cast<std::size_t>(bar.Bar)] + place.Position;
            inParts.push_back(place);
            inParts.back().Bar = bar.Bar;
        }
    }
    std::stable_sort(inParts.begin(), inParts.end(), [](const NotePlace& a, const NotePlace& b) {
        return std::tie(a.Tick, a.Part, a.String) < std::tie(b.Tick, b.Part, b.String);
    });
    return inParts;
}

} // namespace TabText
