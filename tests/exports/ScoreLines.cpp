// Prints what a score file holds, one line a bar, chord symbol, sounding note and rest, for comparison with
// what other programs understood of its exports:
//
//     rhythms                       when the score has them
//     bar 1 for 1024                its length in score units; then "[" and "]3" for a repeat and its times,
//                                   "(1)" for an ending, "q=90" for a tempo, Segno, Coda, "D.C. al Fine"
//     chord Am at 0
//     0 for 256 5:3:48              from the start of the bar, in all, ties joined: string (1 is the
//     highest), 256 for 768 rest              fret, MIDI note
//
// Where the text shows parts that sound together, "part Guitar" stands before the lines of each, and what is
// said of all of them stands in the first.
//
// The times are those of the timeline that MIDI is made from. Of a score without rhythms only the order
// counts: each chord lasts 256 units. With the tab and the folder of the options as further arguments, each
// note that the text marks has the letters of its techniques at its end: "0 for 256 5:3:48=hv". The
// frets are then compared with the digits of the text first; nothing is printed when they differ.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Opening/WholeFile.h"
#include "Projects/Score/ScoreParts.h"
#include "Projects/Score/Timeline.h"
#include "Projects/Score/Utf8.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/SplitParts.h"
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
std::string Letters(const std::vector<ModelTechnique>& techniques) {
    static constexpr std::pair<Technique, char> kLetters[] = {
        {Technique::HammerOn, 'h'}, {Technique::PullOff, 'h'},         {Technique::Slide, 's'},
        {Technique::Bend, 'b'},     {Technique::Vibrato, 'v'},         {Technique::Dead, 'x'},
        {Technique::Ghost, 'g'},    {Technique::NaturalHarmonic, 'n'}, {Technique::PalmMute, 'm'},
    };
    std::string letters;
    for (const auto& [kind, letter] : kLetters)
        if (FindTechnique(techniques, kind) != nullptr && letters.find(letter) == std::string::npos)
            letters += letter;
    return letters.empty() ? letters : "=" + letters;
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

// What is printed of one bar after its chord symbols, by start; rests and then strings from the highest.
struct Line {
    int Start;
    int String;
    int Duration;
    std::string Text;
};

// When something is struck, in any of the parts.
std::set<int> StrikesOf(ScoreParts parts) {
    std::set<int> strikes;
    for (const ScoreModel& part : parts)
        for (const SoundingNote& note : SoundingNotes(part))
            strikes.insert(note.Start);
    return strikes;
}

class Printer {
public:
    Printer(const ScoreModel& score, const std::set<int>& strikes, bool isTop)
        : m_Score(score), m_Strikes(strikes), m_IsTop(isTop), m_Tuning(&score.Tuning),
          m_Starts(BarStarts(score)), m_Notes(SoundingNotes(score)) {}

    void Print() {
        if (m_Score.HasRhythms && m_IsTop)
            std::cout << "rhythms\n";
        if (m_Score.Heading.Capo > 0)
            std::cout << "capo " << m_Score.Heading.Capo << '\n';
        for (std::size_t bar = 0; bar < m_Score.Bars.size(); ++bar)
            PrintBar(bar);
    }

private:
    static void PrintWay(const ModelBar& bar) {
        if (bar.Tempo > 0)
            std::cout << " q=" << bar.Tempo;
        std::cout << (bar.Way.HasSegno ? " Segno" : "") << (bar.Way.HasCoda ? " Coda" : "")
                  << (bar.Way.HasToCoda ? " \"To Coda\"" : "") << (bar.Way.HasFine ? " \"Fine\"" : "");
        if (bar.Way.To != Jump::None)
            std::cout << " \"" << JumpText(bar.Way) << '"';
    }

    void PrintBar(std::size_t index) {
        const ModelBar& bar = m_Score.Bars[index];
        if (bar.Tuning)
            m_Tuning = &*bar.Tuning;
        std::vector<Line> lines = LinesOf(index);
        std::cout << "bar " << index + 1 << " for " << LengthOf(index) << (bar.Repeats.IsStart ? " [" : "");
        if (bar.Repeats.IsEnd)
            std::cout << " ]" << bar.Repeats.Times;
        for (const int time : bar.Repeats.Endings)
            std::cout << " (" << time << ')';
        if (m_IsTop)
            PrintWay(bar);
        std::cout << '\n';
        for (const ModelText& chord : bar.ChordSymbols)
            std::cout << "chord " << ToUtf8(chord.Text) << " at " << OrderedTime(index, chord.Position)
                      << '\n';
        std::vector<Line> ordered = lines;
        for (Line& line : ordered)
            line.Start = OrderedTime(index, line.Start);
        std::sort(ordered.begin(), ordered.end(), [](const Line& a, const Line& b) {
            return a.Start != b.Start ? a.Start < b.Start : a.String > b.String;
        });
        for (const Line& line : ordered)
            std::cout << line.Start << " for " << line.Duration << ' ' << line.Text << '\n';
    }

    std::vector<Line> LinesOf(std::size_t bar) {
        const int start = m_Starts[bar];
        const int end = m_Starts[bar + 1];
        std::vector<Line> lines;
        for (; m_Next < m_Notes.size() && m_Notes[m_Next].Start < end; ++m_Next) {
            const SoundingNote& note = m_Notes[m_Next];
            AddRest(lines, start, note.Start);
            m_SilentFrom = std::max(m_SilentFrom, note.End);
            lines.push_back({note.Start - start, note.String,
                             m_Score.HasRhythms ? note.End - note.Start : kUnitsPerCrotchet, TextOf(note)});
        }
        AddRest(lines, start, end);
        return lines;
    }

    void AddRest(std::vector<Line>& lines, int barStart, int end) {
        if (m_Score.HasRhythms && end > m_SilentFrom)
            lines.push_back({m_SilentFrom - barStart, -1, end - m_SilentFrom, "rest"});
        m_SilentFrom = std::max(m_SilentFrom, end);
    }

    std::string TextOf(const SoundingNote& note) const {
        const std::string place = note.Fret < 0
                                      ? "-:-"
                                      : std::to_string(static_cast<int>(m_Tuning->size()) - note.String) +
                                            ":" + std::to_string(note.Fret);
        return place + ":" + std::to_string(note.Midi) + Letters(*note.Techniques);
    }

    int LengthOf(std::size_t bar) const {
        const int length = m_Starts[bar + 1] - m_Starts[bar];
        const bool isEmpty = m_Strikes.lower_bound(m_Starts[bar]) == m_Strikes.lower_bound(m_Starts[bar + 1]);
        return isEmpty ? length : OrderedTime(bar, length);
    }

    // The time itself where there are rhythms, else as many crotchets as chords begin before it.
    int OrderedTime(std::size_t bar, int time) const {
        if (m_Score.HasRhythms)
            return time;
        const auto before =
            std::distance(m_Strikes.lower_bound(m_Starts[bar]), m_Strikes.lower_bound(m_Starts[bar] + time));
        return static_cast<int>(before) * kUnitsPerCrotchet;
    }

    const ScoreModel& m_Score;
    const std::set<int>& m_Strikes;
    bool m_IsTop;
    // Of the present bar.
    const std::vector<int>* m_Tuning;
    std::vector<int> m_Starts;
    std::vector<SoundingNote> m_Notes;
    // The first note that begins in the present bar or after it.
    std::size_t m_Next = 0;
    int m_SilentFrom = 0;
};

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
    TabText::SplitScore split;
    if (argc == 4) {
        const TabText::TabReading reading(argv[2], argv[3]);
        TabText::JoinMarkings(reading, TabText::ReadMarkings(reading), *score);
        if (!HasTheFretsOfTheText(reading, *score))
            return 1;
        split = TabText::SplitParts(reading, *score);
    }
    const ScoreParts parts = split.Parts.empty() ? AsParts(*score) : ScoreParts(split.Parts);
    const std::set<int> strikes = StrikesOf(parts);
    for (const ScoreModel& part : parts) {
        if (parts.size() > 1)
            std::cout << "part " << ToUtf8(part.InstrumentName) << '\n';
        Printer(part, strikes, &part == &parts.front()).Print();
    }
    return 0;
}
