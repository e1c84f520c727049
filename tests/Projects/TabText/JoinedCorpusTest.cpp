// Made-up tabs, read and converted: where the score has a note, and with which fret, is where the text has
// it.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/StruckNotes.h"
#include "tests/Projects/TabText/ConvertedText.h"
#include "tests/Projects/TabText/ReadText.h"
#include "tests/support/TabBook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <tuple>

namespace {

using Score::ScoreModel;

// Bar of the score, time in it, string from the lowest, fret.
using Place = std::tuple<int, int, int, int>;

// What the score strikes: a note that is tied to is none.
std::multiset<Place> PlacesOf(const ScoreModel& score) {
    std::multiset<Place> places;
    std::map<int, int> tied;
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar)
        for (const Score::ModelEvent& event : score.Bars[bar].Events) {
            const std::map<int, int> before = std::exchange(tied, {});
            for (const Score::ModelNote& note : event.Notes) {
                const auto from = before.find(note.String);
                if (note.TiedToNext)
                    tied[note.String] = note.Midi;
                if (from == before.end() || from->second != note.Midi)
                    places.emplace(static_cast<int>(bar), event.Position, note.String, note.Fret);
            }
        }
    return places;
}

// What the columns of the text give.
struct TextPlaces {
    std::multiset<Place> Lasting;
    // Those that last no time, and sound with the next ones of their bar: bar, string, fret.
    std::set<std::tuple<int, int, int>> Passing;
};

TextPlaces PlacesOf(const TabText::TabReading& reading) {
    TextPlaces places;
    for (const TabText::BarReading& bar : reading.GetBars())
        for (const TabText::StruckNote& note : TabText::StruckNotesOf(*bar.Bar)) {
            const int length = bar.Bar->GetBarLength();
            const int scoreBar = bar.FirstScoreBar + (length > 0 ? note.Time->m_Position / length : 0);
            const int time = length > 0 ? note.Time->m_Position % length : note.Time->m_Position;
            if (note.Time->m_Duration > 0)
                places.Lasting.emplace(scoreBar, time, note.String, note.Fret);
            else
                places.Passing.emplace(scoreBar, note.String, note.Fret);
        }
    return places;
}

std::string Text(const std::multiset<Place>& places) {
    std::string text;
    for (const auto& [bar, position, string, fret] : places)
        text += "bar " + std::to_string(bar) + " at " + std::to_string(position) + ": string " +
                std::to_string(string) + " fret " + std::to_string(fret) + "; ";
    return text;
}

// Those of `a` that `b` lacks.
std::string Missing(const std::multiset<Place>& a, const std::multiset<Place>& b) {
    std::multiset<Place> missing;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::inserter(missing, missing.end()));
    return Text(missing);
}

TEST(JoinedCorpus, HasTheNotesOfTheTextAtTheirPlaces) {
    constexpr int kTabs = 60;
    std::size_t notes = 0;
    std::size_t changes = 0;
    for (int seed = 0; seed < kTabs; ++seed) {
        const std::string text = TestSupport::MakeOddTab(static_cast<std::uint32_t>(seed));
        const int level = seed % 3;
        const TestSupport::ReadText reading(text, level);
        std::optional<ScoreModel> score = TestSupport::ConvertText(text, level);
        if (!score)
            continue;
        TabText::JoinTunings(*reading, *score);
        const TextPlaces places = PlacesOf(*reading);
        std::multiset<Place> struck = PlacesOf(*score);
        EXPECT_EQ("", Missing(places.Lasting, struck)) << "not in the score of seed " << seed;
        std::erase_if(struck, [&](const Place& place) {
            const auto& [bar, time, string, fret] = place;
            return places.Lasting.count(place) == 0 && places.Passing.count({bar, string, fret}) != 0;
        });
        EXPECT_EQ("", Missing(struck, places.Lasting)) << "not in the text of seed " << seed;
        notes += places.Lasting.size();
        for (const Score::ModelBar& bar : score->Bars)
            changes += bar.Tuning ? 1 : 0;
    }
    EXPECT_GT(notes, 1000U) << "otherwise little was compared";
    EXPECT_GT(changes, 10U);
}

} // namespace
