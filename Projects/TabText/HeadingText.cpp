#include "Projects/TabText/HeadingText.h"

#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/BarMarks.h"
#include "Projects/TabText/StatedCapo.h"
#include "Projects/TabText/TabReading.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

using Nvr::Ascii::IsDigit;
using std::string_view;

constexpr int kSlowest = 20;
constexpr int kFastest = 400;

// Crotchets a minute, and where a line says so; 0 where it does not.
struct StatedTempo {
    int PerMinute = 0;
    int Column = 0;
};

// The first number within reach of a place; 0 for none.
int NumberNear(string_view text) {
    constexpr std::size_t kReach = 12;
    text = text.substr(0, kReach);
    const auto* digit = std::find_if(text.begin(), text.end(), IsDigit);
    int number = 0;
    for (; digit != text.end() && IsDigit(*digit) && number <= kFastest; ++digit)
        number = number * 10 + (*digit - '0');
    return number;
}

// The number right before a place, blanks between them or not.
StatedTempo NumberBefore(string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    constexpr std::size_t kDigits = 3;
    int number = 0;
    std::size_t start = text.size();
    while (start > 0 && text.size() - start < kDigits && IsDigit(text[start - 1]))
        --start;
    for (const char digit : text.substr(start))
        number = number * 10 + (digit - '0');
    return {number, static_cast<int>(start)};
}

StatedTempo BeatsPerMinute(string_view line) {
    const std::size_t bpm = FindInAnyCase(line, "bpm");
    if (bpm == string_view::npos)
        return {};
    const StatedTempo before = NumberBefore(line.substr(0, bpm));
    return before.PerMinute > 0 ? before : StatedTempo{NumberNear(line.substr(bpm)), static_cast<int>(bpm)};
}

// "quarter note = 100", "J=100"
StatedTempo NoteEquals(string_view line) {
    for (const string_view note : {"quarter", "crotchet", "J", "q"}) {
        // A single letter is told by its case.
        const std::size_t at = note.size() == 1 ? line.find(note) : FindInAnyCase(line, note);
        if (at == string_view::npos || (at > 0 && Nvr::Ascii::IsAlnum(line[at - 1])))
            continue;
        const std::size_t end = at + note.size();
        const std::size_t equals = line.find('=', end);
        if (equals == string_view::npos)
            continue;
        const std::vector<Word> between = WordsOf(line.substr(end, equals - end));
        if (between.empty() || (between.size() == 1 && IsSameWord(between[0].Text, "note")))
            return {NumberNear(line.substr(equals)), static_cast<int>(at)};
    }
    return {};
}

StatedTempo TempoAfterWord(string_view line) {
    const std::size_t at = FindInAnyCase(line, "tempo");
    return at == string_view::npos ? StatedTempo{}
                                   : StatedTempo{NumberNear(line.substr(at)), static_cast<int>(at)};
}

StatedTempo TempoIn(string_view line) {
    for (const auto read : {BeatsPerMinute, NoteEquals, TempoAfterWord})
        if (const StatedTempo tempo = read(line); tempo.PerMinute >= kSlowest && tempo.PerMinute <= kFastest)
            return tempo;
    return {};
}

bool IsSwung(string_view line) {
    const std::vector<Word> words = WordsOf(line);
    return std::any_of(words.begin(), words.end(), [](const Word& word) {
        return IsOneOf(WithoutPunctuation(word).Text, {"swung", "shuffle", "swing"});
    });
}

// What a line says after one of these words and a colon; empty when it begins otherwise.
std::string ValueOf(string_view line, std::initializer_list<string_view> keys) {
    const std::vector<Word> words = WordsOf(line);
    const std::size_t colon = line.find(':');
    if (words.empty() || colon == string_view::npos)
        return {};
    const auto start = static_cast<std::size_t>(words.front().Column);
    if (colon < start || !IsOneOf(WithoutPunctuation(words.front()).Text, keys))
        return {};
    const std::vector<Word> value = WordsOf(line.substr(colon + 1));
    if (value.empty())
        return {};
    const auto first = static_cast<std::size_t>(value.front().Column);
    return std::string(
        line.substr(colon + 1 + first, static_cast<std::size_t>(value.back().GetEndColumn()) - first));
}

// A line without what stands around it: quotes, dashes, stars.
string_view Bare(string_view line) {
    constexpr string_view kAround = " \"'*-=~#_";
    const std::size_t start = line.find_first_not_of(kAround);
    return start == string_view::npos ? string_view()
                                      : line.substr(start, line.find_last_not_of(kAround) + 1 - start);
}

// What is before "by" is no title but a deed: "Tabbed by".
bool IsDeed(string_view text) {
    const std::vector<Word> words = WordsOf(text);
    return words.empty() || IsOneOf(WithoutPunctuation(words.back()).Text,
                                    {"tab", "tabs", "tabbed", "transcribed", "written", "arranged", "music",
                                     "words", "lyrics", "song", "played", "performed", "recorded", "sung",
                                     "submitted", "composed", "made", "sent", "done"});
}

// "Title by Artist" in the first line of words, or "by Artist" in the one after it.
void ReadTitle(const TabReading& reading, int head, Score::ModelHeading& heading) {
    constexpr std::size_t kLongestTitle = 72;
    constexpr string_view kBy = "by ";
    std::vector<string_view> lines;
    for (int line = 0; line < head && lines.size() < 2; ++line)
        if (!WordsOf(reading.GetFile().GetLine(line)).empty())
            lines.push_back(Bare(reading.GetFile().GetLine(line)));
    if (lines.empty() || lines[0].size() > kLongestTitle)
        return;
    const std::size_t by = FindInAnyCase(lines[0], " by ");
    if (by != string_view::npos && !IsDeed(lines[0].substr(0, by))) {
        heading.Title = Bare(lines[0].substr(0, by));
        heading.Artist = Bare(lines[0].substr(by + 1 + kBy.size()));
    } else if (by == string_view::npos && lines.size() > 1 && lines[0].find(':') == string_view::npos &&
               Nvr::Ascii::StartsWithIgnoreCase(lines[1], kBy)) {
        heading.Title = lines[0];
        heading.Artist = Bare(lines[1].substr(kBy.size()));
    }
}

void SetIfEmpty(std::string& field, std::string value) {
    if (field.empty())
        field = std::move(value);
}

} // namespace

Score::ModelHeading ReadHeading(const TabReading& reading) {
    Score::ModelHeading heading;
    const auto& staves = reading.GetAnalysis().GetStaves();
    const int head = staves.empty() ? 0 : staves.front()->GetFirstLine();
    const int foot = staves.empty() ? 0 : staves.back()->GetEndLine();
    for (int line = 0; line < reading.GetFile().GetLineCount(); ++line) {
        if (reading.GetAnalysis().IsStaveLine(line))
            continue;
        const string_view text = reading.GetFile().GetLine(line);
        if (line < head) {
            SetIfEmpty(heading.Title, ValueOf(text, {"title", "song"}));
            SetIfEmpty(heading.Artist, ValueOf(text, {"artist", "band", "composer"}));
        }
        // Between the staves it is a change.
        if (heading.Tempo == 0 && (line < head || line >= foot))
            heading.Tempo = TempoIn(text).PerMinute;
        heading.Capo = heading.Capo > 0 ? heading.Capo : StatedCapo(text).Fret;
        heading.IsSwung = heading.IsSwung || IsSwung(text);
    }
    if (heading.Title.empty() && heading.Artist.empty())
        ReadTitle(reading, head, heading);
    return heading;
}

void ReadTempoChanges(const TabReading& reading, BarMarks& marks) {
    int tempo = 0;
    int line = 0;
    bool isAfterFirst = false;
    for (const StaveBars& stave : StavesWithBars(reading)) {
        const int first = stave.Stave->GetFirstLine();
        for (; line < first; ++line) {
            const string_view text = reading.GetFile().GetLine(line);
            const StatedTempo stated =
                reading.GetAnalysis().IsStaveLine(line) ? StatedTempo{} : TempoIn(text);
            if (stated.PerMinute == 0 || stated.PerMinute == tempo)
                continue;
            // That of the heading is one of those above the first stave.
            if (isAfterFirst)
                if (const auto bar = BarFrom(reading, stave, stated.Column)) {
                    marks.At(*bar).Tempo = stated.PerMinute;
                    marks.Signs.push_back({line, stated.Column, static_cast<int>(text.size())});
                }
            tempo = isAfterFirst || tempo == 0 ? stated.PerMinute : tempo;
        }
        isAfterFirst = true;
        line = stave.Stave->GetEndLine();
    }
}

} // namespace TabText
