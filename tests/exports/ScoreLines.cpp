// Prints what a score file holds, one line a bar, event and chord symbol, for comparison with what other
// programs understood of its exports:
//
//     bar 1
//     chord Am
//     256 5:3:48 2:1:60        duration in score units, then string (1 is the highest), fret, MIDI note; "~"
//     when tied on 128 rest
//
// With the tab and the folder of the options as further arguments, each note that the text marks has the
// letters of its techniques at its end: "256 5:3:48=hv". The frets are then compared with the digits of the
// text first; nothing is printed when they differ.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Opening/WholeFile.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/Score/Utf8.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/TabReading.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <utility>

namespace {

using Opening::ReadWholeFile;
using namespace Score;

// The techniques that both reading programs can hold, or one of them.
std::string Letters(const ModelNote& note) {
    static constexpr std::pair<Technique, char> kLetters[] = {
        {Technique::HammerOn, 'h'}, {Technique::PullOff, 'h'},         {Technique::Slide, 's'},
        {Technique::Bend, 'b'},     {Technique::Vibrato, 'v'},         {Technique::Dead, 'x'},
        {Technique::Ghost, 'g'},    {Technique::NaturalHarmonic, 'n'}, {Technique::PalmMute, 'm'},
    };
    std::string letters;
    for (const auto& [kind, letter] : kLetters)
        if (FindTechnique(note.Techniques, kind) != nullptr && letters.find(letter) == std::string::npos)
            letters += letter;
    return letters.empty() ? letters : "=" + letters;
}

void PrintEvent(const std::vector<int>& tuning, const ModelEvent& event) {
    std::cout << event.Duration;
    if (event.Notes.empty())
        std::cout << " rest";
    std::vector<ModelNote> notes = event.Notes;
    std::sort(notes.begin(), notes.end(),
              [](const ModelNote& a, const ModelNote& b) { return a.String > b.String; });
    for (const ModelNote& note : notes) {
        std::cout << ' ';
        if (note.Fret < 0)
            std::cout << "-:-";
        else
            std::cout << static_cast<int>(tuning.size()) - note.String << ':' << note.Fret;
        std::cout << ':' << note.Midi << (note.TiedToNext ? "~" : "") << Letters(note);
    }
    std::cout << '\n';
}

// Each note that is struck in some bars: string from the lowest, fret.
using Frets = std::multiset<std::pair<int, int>>;

Frets FretsOf(const TabText::BarReading& reading) {
    Frets frets;
    for (const TabText::StruckNote& note : TabText::StruckNotesOf(*reading.Bar))
        frets.insert({note.String, note.Fret});
    return frets;
}

Frets FretsOf(std::span<const ModelBar> bars) {
    Frets frets;
    std::map<int, int> tied;
    for (const ModelBar& bar : bars)
        for (const ModelEvent& event : bar.Events) {
            const std::map<int, int> before = std::exchange(tied, {});
            for (const ModelNote& note : event.Notes) {
                const auto from = before.find(note.String);
                if (note.TiedToNext)
                    tied[note.String] = note.Midi;
                if ((from == before.end() || from->second != note.Midi) &&
                    FindTechnique(note.Techniques, Technique::Dead) == nullptr)
                    frets.insert({note.String, note.Fret});
            }
        }
    return frets;
}

// The score has the frets of the text, bar by bar; the text's own digits say which.
bool HasTheFretsOfTheText(const TabText::TabReading& reading, const ScoreModel& score) {
    for (const TabText::BarReading& bar : reading.GetBars()) {
        const auto first = static_cast<std::size_t>(bar.FirstScoreBar);
        const auto count = static_cast<std::size_t>(bar.Bar->ScoreBarCount());
        if (first + count <= score.Bars.size() &&
            FretsOf(bar) == FretsOf(std::span(score.Bars).subspan(first, count)))
            continue;
        std::cerr << "bar " << first + 1 << " has other frets than the text\n";
        return false;
    }
    return true;
}

void PrintBar(const ScoreModel& score, const std::vector<int>& tuning, std::size_t index) {
    const ModelBar& bar = score.Bars[index];
    std::cout << "bar " << index + 1 << (bar.Repeats.IsStart ? " [" : "");
    if (bar.Repeats.IsEnd)
        std::cout << " ]" << bar.Repeats.Times;
    std::cout << '\n';
    for (const ModelEvent& event : bar.Events) {
        for (const ModelText& chord : bar.ChordSymbols)
            if (chord.Position == event.Position)
                std::cout << "chord " << ToUtf8(chord.Text) << '\n';
        PrintEvent(tuning, event);
    }
}

} // namespace

int main(int argc, char** argv) {
    const auto bytes = argc == 2 || argc == 4 ? ReadWholeFile(argv[1]) : std::nullopt;
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(
        bytes ? Nvr::TreeNode::LoadFromMemory(bytes->data(), bytes->size()) : nullptr);
    std::string why = "it cannot be read";
    auto score = tree ? ScoreModel::Read(*tree, why) : std::nullopt;
    if (!score) {
        std::cerr << "no score: " << why << '\n';
        return 1;
    }
    if (argc == 4) {
        const TabText::TabReading reading(argv[2], argv[3]);
        TabText::JoinMarkings(reading, TabText::ReadMarkings(reading), *score);
        if (!HasTheFretsOfTheText(reading, *score))
            return 1;
    }
    if (score->Heading.Capo > 0)
        std::cout << "capo " << score->Heading.Capo << '\n';
    const std::vector<int>* tuning = &score->Tuning;
    for (std::size_t bar = 0; bar < score->Bars.size(); ++bar) {
        if (score->Bars[bar].Tuning)
            tuning = &*score->Bars[bar].Tuning;
        PrintBar(*score, *tuning, bar);
    }
    return 0;
}
