// What the text says in words and the score does not use.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/StatedCapo.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/Tunings.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

namespace TabText {

namespace {

constexpr int kChrom2PerSemitone = 2;
constexpr int kSemitonesPerOctave = 12;

template <typename Visit>
void ForEachLineOfWords(const TabReading& reading, Visit visit) {
    for (int line = 0; line < reading.GetFile().GetLineCount(); ++line)
        if (!reading.GetAnalysis().IsStaveLine(line))
            visit(line, reading.GetFile().GetLine(line));
}

// The pitch classes of the strings of each stave, lowest first.
std::set<std::vector<int>> TuningsRead(const TabReading& reading) {
    std::set<std::vector<int>> tunings;
    for (const StaveBars& entry : StavesWithBars(reading)) {
        std::vector<int> strings;
        for (const int pitch : entry.Stave->GetTuning())
            strings.push_back(pitch / kChrom2PerSemitone % kSemitonesPerOctave);
        tunings.insert(std::move(strings));
    }
    return tunings;
}

// A place in a line where a tuning is stated. It was used when some stave has these strings; with one string
// given, as its lowest.
struct StatedTuning {
    int Column = 0;
    int EndColumn = 0;
    std::vector<int> Strings;

    bool WasUsed(const std::set<std::vector<int>>& tunings) const {
        if (Strings.size() != 1)
            return tunings.count(Strings) + tunings.count({Strings.rbegin(), Strings.rend()}) > 0;
        return std::any_of(tunings.begin(), tunings.end(),
                           [&](const std::vector<int>& tuning) { return tuning.front() == Strings.front(); });
    }
};

// The words from `first` on while they spell strings, read as one: "D A D G A D".
StatedTuning JoinSpelledWords(const std::vector<Word>& words, std::size_t first) {
    constexpr std::size_t kMostStrings = 8;
    StatedTuning stated{words[first].Column, words[first].GetEndColumn(), {}};
    std::string spelled;
    for (std::size_t index = first; index < std::min(words.size(), first + kMostStrings); ++index) {
        const Word bare = WithoutPunctuation(words[index]);
        // Four letters are read as four strings, one letter as one.
        if (SpelledStrings("AAA" + std::string(bare.Text)).empty() || bare.Text.empty())
            break;
        spelled += bare.Text;
        stated.EndColumn = bare.GetEndColumn();
    }
    stated.Strings = SpelledStrings(spelled);
    // Small letters spell words as well ("a bad egg"), but hardly one of six letters.
    constexpr std::size_t kSurelyATuning = 6;
    if (!Nvr::Ascii::IsUpper(words[first].Text.front()) && words[first].Text.size() < kSurelyATuning)
        stated.Strings.clear();
    return stated;
}

// "Drop D": the lowest string alone.
std::optional<StatedTuning> FindDropTuning(const std::vector<Word>& words) {
    for (std::size_t index = 0; index + 1 < words.size(); ++index) {
        const Word note = WithoutPunctuation(words[index + 1]);
        const bool isNote = note.Text.size() == 1 && IsChordName(note.Text);
        if (isNote && IsOneOf(WithoutPunctuation(words[index]).Text, {"drop", "dropped"})) {
            std::vector<int> strings = SpelledStrings("AAA" + std::string(note.Text));
            return StatedTuning{words[index].Column, note.GetEndColumn(), {strings.back()}};
        }
    }
    return std::nullopt;
}

// "Tuning: D A D G A D", "tuned to DADGAD": the letters after such a word.
std::optional<StatedTuning> FindSpelledTuning(const std::vector<Word>& words) {
    bool isOfTuning = false;
    for (std::size_t index = 0; index < words.size(); ++index) {
        const Word bare = WithoutPunctuation(words[index]);
        if (isOfTuning)
            if (StatedTuning stated = JoinSpelledWords(words, index); !stated.Strings.empty())
                return stated;
        isOfTuning = isOfTuning || Nvr::Ascii::StartsWithIgnoreCase(bare.Text, "tun");
    }
    return std::nullopt;
}

// "Tune down a half step", "all strings down 1/2 step".
std::optional<StatedTuning> FindShiftedTuning(std::string_view line) {
    const std::size_t down = FindInAnyCase(line, "down");
    const bool isShift = FindInAnyCase(line, "step") != std::string_view::npos ||
                         FindInAnyCase(line, "semitone") != std::string_view::npos;
    if (down == std::string_view::npos || !isShift)
        return std::nullopt;
    return StatedTuning{static_cast<int>(down), static_cast<int>(down) + 4, {}};
}

std::optional<StatedTuning> FindStatedTuning(std::string_view line) {
    const std::vector<Word> words = WordsOf(line);
    if (std::optional<StatedTuning> stated = FindSpelledTuning(words))
        return stated;
    std::optional<StatedTuning> stated = FindDropTuning(words);
    return stated ? stated : FindShiftedTuning(line);
}

struct Instrument {
    std::string_view Word;
    // The stave of so many lines is read as something else; 0 for any.
    int Lines;
};

constexpr std::array<Instrument, 6> kInstruments{
    {{"ukulele", 4}, {"mandolin", 4}, {"violin", 4}, {"banjo", 0}, {"charango", 5}, {"bass", 5}}};

bool IsPlayedOn(const Instrument& instrument, const std::vector<StaveBars>& staves) {
    return std::any_of(staves.begin(), staves.end(), [&](const StaveBars& stave) {
        return instrument.Lines == 0 || stave.Stave->GetLineCount() == instrument.Lines;
    });
}

bool IsOtherByte(char c) {
    return static_cast<unsigned char>(c) > 0x7F;
}

// Bytes of this line reach the score, or were drawn as a stave in other characters.
bool AreBytesRead(const TabReading& reading, int line, const std::set<int>& symbolLines) {
    constexpr std::ptrdiff_t kBytesOfADrawing = 24;
    const std::string_view text = reading.GetFile().GetLine(line);
    const std::ptrdiff_t count = std::count_if(text.begin(), text.end(), IsOtherByte);
    return count > 0 && (reading.GetAnalysis().IsStaveLine(line) || symbolLines.count(line) != 0 ||
                         count >= kBytesOfADrawing);
}

// Lines of chords, rhythms and labels that the score has.
std::set<int> SymbolLines(const TabReading& reading) {
    std::set<int> lines;
    for (const BarReading& bar : reading.GetBars())
        lines.insert({bar.Bar->GetChordLine(), bar.Bar->GetRhythmLine().m_Line});
    for (const auto& label : reading.GetAnalysis().GetLabels())
        lines.insert(label->m_Line);
    return lines;
}

} // namespace

void FindStatedTunings(const TabReading& reading, DoubtSink& doubts) {
    const std::set<std::vector<int>> tunings = TuningsRead(reading);
    ForEachLineOfWords(reading, [&](int line, std::string_view text) {
        const std::optional<StatedTuning> stated = FindStatedTuning(text);
        if (stated && !tunings.empty() && !stated->WasUsed(tunings))
            doubts.Add(line, stated->Column, stated->EndColumn,
                       "the tuning stated here was not used: strings are tuned by the letters before them");
    });
}

void FindStatedCapos(const TabReading& reading, DoubtSink& doubts) {
    std::set<int> frets;
    ForEachLineOfWords(reading, [&](int line, std::string_view text) {
        const CapoStatement capo = StatedCapo(text);
        if (capo.Fret > 0 && frets.insert(capo.Fret).second)
            doubts.Add(line, capo.Column, capo.EndColumn,
                       "the score sounds without the capo on fret " + std::to_string(capo.Fret));
    });
}

void FindStatedInstruments(const TabReading& reading, DoubtSink& doubts) {
    const std::vector<StaveBars> staves = StavesWithBars(reading);
    ForEachLineOfWords(reading, [&](int line, std::string_view text) {
        for (const Word& word : WordsOf(text))
            for (const Instrument& instrument : kInstruments)
                if (IsSameWord(WithoutPunctuation(word).Text, instrument.Word) &&
                    IsPlayedOn(instrument, staves))
                    doubts.Add(
                        line, word.Column, word.GetEndColumn(),
                        "the staves were read for a " +
                            std::string(staves.front().Stave->GetLineCount() == 4 ? "bass" : "guitar") +
                            ", not for a " + std::string(instrument.Word));
    });
}

void FindOtherBytes(const TabReading& reading, DoubtSink& doubts) {
    const std::set<int> symbolLines = SymbolLines(reading);
    int first = -1;
    int count = 0;
    for (int line = 0; line < reading.GetFile().GetLineCount(); ++line) {
        if (!AreBytesRead(reading, line, symbolLines))
            continue;
        first = first < 0 ? line : first;
        ++count;
    }
    if (first < 0)
        return;
    const std::string_view text = reading.GetFile().GetLine(first);
    const auto column = static_cast<int>(std::find_if(text.begin(), text.end(), IsOtherByte) - text.begin());
    doubts.Add(first, column, column + 1,
               "bytes that are not ASCII stand in " +
                   (count == 1 ? std::string("a line") : std::to_string(count) + " lines") +
                   " that matter: each was read as one character");
}

} // namespace TabText
