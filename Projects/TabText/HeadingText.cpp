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
int NumberBefore(string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    constexpr std::size_t kDigits = 3;
    int number = 0;
    std::size_t start = text.size();
    while (start > 0 && text.size() - start < kDigits && IsDigit(text[start - 1]))
        --start;
    for (const char digit : text.substr(start))
        number = number * 10 + (digit - '0');
    return number;
}

int TempoIn(string_view line) {
    int tempo = 0;
    if (const std::size_t bpm = FindInAnyCase(line, "bpm"); bpm != string_view::npos) {
        tempo = NumberBefore(line.substr(0, bpm));
        tempo = tempo > 0 ? tempo : NumberNear(line.substr(bpm));
    }
    for (const string_view word : {"tempo", "q=", "q ="})
        if (const std::size_t at = FindInAnyCase(line, word); tempo == 0 && at != string_view::npos)
            tempo = NumberNear(line.substr(at));
    return tempo >= kSlowest && tempo <= kFastest ? tempo : 0;
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

void SetIfEmpty(std::string& field, std::string value) {
    if (field.empty())
        field = std::move(value);
}

} // namespace

Score::ModelHeading ReadHeading(const TabReading& reading) {
    Score::ModelHeading heading;
    const auto& staves = reading.GetAnalysis().GetStaves();
    const int head = staves.empty() ? 0 : staves.front()->GetFirstLine();
    for (int line = 0; line < reading.GetFile().GetLineCount(); ++line) {
        if (reading.GetAnalysis().IsStaveLine(line))
            continue;
        const string_view text = reading.GetFile().GetLine(line);
        if (line < head) {
            SetIfEmpty(heading.Title, ValueOf(text, {"title", "song"}));
            SetIfEmpty(heading.Artist, ValueOf(text, {"artist", "band", "composer"}));
        }
        heading.Tempo = heading.Tempo > 0 ? heading.Tempo : TempoIn(text);
        heading.Capo = heading.Capo > 0 ? heading.Capo : StatedCapo(text).Fret;
        heading.IsSwung = heading.IsSwung || IsSwung(text);
    }
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
            const int stated = reading.GetAnalysis().IsStaveLine(line) ? 0 : TempoIn(text);
            if (stated == 0 || stated == tempo)
                continue;
            const Word word = WordsOf(text).front();
            // That of the heading is one of those above the first stave.
            if (tempo > 0 && isAfterFirst)
                if (const auto bar = BarFrom(reading, stave, word.Column)) {
                    marks.At(*bar).Tempo = stated;
                    marks.Signs.push_back({line, word.Column, static_cast<int>(text.size())});
                }
            tempo = isAfterFirst || tempo == 0 ? stated : tempo;
        }
        isAfterFirst = true;
        line = stave.Stave->GetEndLine();
    }
}

} // namespace TabText
