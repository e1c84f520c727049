#include "Projects/TabText/prepare/DrawnLines.h"

#include "Projects/Fretline/text/StaveDetection.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <string>

namespace TabText {

namespace {

using std::string_view;

constexpr int kPercentDrawn = 55;
constexpr int kPercentDrawnOrMarks = 88;
constexpr int kPercentOfStrayLetters = 5;
// Of a string without name, stroke and fret.
constexpr int kPercentOfDashes = 94;

bool IsSpace(char c) {
    return c == '\0' || Nvr::Ascii::IsSpace(c);
}

// What players write between the frets.
bool IsMark(char c) {
    return string_view("hpbrstvHPBSTV/\\~^()<>[]{}=.*:+_#o'`\"").find(c) != string_view::npos;
}

bool IsDrawn(char c) {
    return c == '-' || c == '|' || Fretline::IsFretChar(c);
}

// The name at the start of a line and what follows it: "e|", "Bb |", "D-".
struct StringName {
    string_view Name;
    std::size_t End = 0;
};

StringName FindName(string_view line, std::size_t start) {
    if (start >= line.size() || !Fretline::IsNoteLetter(line[start]))
        return {{}, start};
    std::size_t end = start + 1;
    const auto at = [&](std::size_t place) { return place < line.size() ? line[place] : '\0'; };
    if (at(end) == '#' || at(end) == 'b')
        ++end;
    const std::size_t afterBlank = at(end) == ' ' ? end + 1 : end;
    if (at(afterBlank) == '|' || at(afterBlank) == ':' || at(end) == '-')
        return {line.substr(start, end - start), end};
    return {{}, start};
}

struct Counts {
    int All = 0;
    int Drawn = 0;
    int DrawnOrMarks = 0;
    bool HasStroke = false;
    int Letters = 0;
    bool IsOnlyRule = true;

    bool HasManyLetters() const { return Letters * 100 > All * kPercentOfStrayLetters; }
};

Counts CountIn(string_view body) {
    Counts counts;
    for (const char c : body) {
        if (IsSpace(c))
            continue;
        ++counts.All;
        counts.Drawn += IsDrawn(c) ? 1 : 0;
        counts.DrawnOrMarks += IsDrawn(c) || IsMark(c) ? 1 : 0;
        counts.HasStroke = counts.HasStroke || c == '|';
        counts.Letters += Nvr::Ascii::IsAlpha(c) && !Fretline::IsMuted(c) ? 1 : 0;
        counts.IsOnlyRule = counts.IsOnlyRule && string_view("-+=*#_").find(c) != string_view::npos;
    }
    return counts;
}

// The words of an annotation, in lower case and without full stops.
constexpr std::array<string_view, 44> kAnnotations{
    "pm",      "palm",    "muted",   "mute",   "nh",    "ah",      "ph",       "sh",        "th",
    "tp",      "hm",      "lr",      "let",    "ring",  "harm",    "harmonic", "harmonics", "vib",
    "vibrato", "trem",    "tremolo", "tap",    "taps",  "tapping", "rake",     "hold",      "fill",
    "bar",     "wbar",    "whammy",  "dive",   "full",  "grad",    "feedback", "fdbk",      "slow",
    "bend",    "release", "pick",    "scrape", "gliss", "strum",   "arpeggio", "dist"};

bool HasAnnotationWord(string_view line) {
    std::string word;
    for (std::size_t at = 0; at <= line.size(); ++at) {
        const char c = at < line.size() ? line[at] : ' ';
        if (Nvr::Ascii::IsAlpha(c))
            word += Nvr::Ascii::ToLower(c);
        if (Nvr::Ascii::IsAlpha(c) || (c == '.' && !word.empty()))
            continue;
        if (std::find(kAnnotations.begin(), kAnnotations.end(), word) != kAnnotations.end())
            return true;
        word.clear();
    }
    return false;
}

// A stretch of words longer than any annotation has.
bool HasSentence(string_view line) {
    constexpr int kMostWords = 4;
    int words = 0;
    bool isInWord = false;
    for (const char c : line) {
        const bool isLetter = Nvr::Ascii::IsAlpha(c);
        words += isLetter && !isInWord ? 1 : 0;
        isInWord = isLetter || (isInWord && !IsSpace(c) && c != '-');
        if (c == '-')
            words = 0;
        if (words > kMostWords)
            return true;
    }
    return false;
}

bool IsString(string_view body, bool hasName) {
    const Counts counts = CountIn(body);
    const bool hasFret = HasFretBesideDash(body);
    // Letters without a fret are chords or beats, but for a stray one.
    if (!hasFret && counts.HasManyLetters())
        return false;
    return (hasName || counts.HasStroke || hasFret) && body.find('-') != string_view::npos &&
           counts.Drawn * 100 >= counts.All * kPercentDrawn &&
           counts.DrawnOrMarks * 100 >= counts.All * kPercentDrawnOrMarks;
}

bool IsDashes(string_view line) {
    const Counts counts = CountIn(line);
    return counts.IsOnlyRule ||
           (!counts.HasManyLetters() && counts.Drawn * 100 >= counts.All * kPercentOfDashes);
}

} // namespace

bool HasFretBesideDash(string_view line) {
    for (std::size_t at = 0; at < line.size(); ++at)
        if (Fretline::IsFretChar(line[at]) &&
            ((at > 0 && line[at - 1] == '-') || (at + 1 < line.size() && line[at + 1] == '-')))
            return true;
    return false;
}

DrawnLine LookAt(string_view line) {
    DrawnLine drawn;
    const auto start =
        static_cast<std::size_t>(std::find_if_not(line.begin(), line.end(), IsSpace) - line.begin());
    if (start == line.size())
        return drawn;
    drawn.IsCandidate = Fretline::IsStaveLineCandidate(line);
    const StringName name = FindName(line, start);
    // What follows the last stroke is a remark: "|---| x2".
    const std::size_t last = line.find_last_of("-|");
    const string_view body = last == string_view::npos || last < name.End
                                 ? string_view()
                                 : line.substr(name.End, last + 1 - name.End);
    drawn.Kind = LineKind::Words;
    if (drawn.IsCandidate && name.Name.empty() && !HasFretBesideDash(line) && HasAnnotationWord(line) &&
        !HasSentence(line)) {
        drawn.Kind = LineKind::Annotation;
    } else if (IsString(body, !name.Name.empty())) {
        drawn.Kind = LineKind::String;
        drawn.Name = name.Name;
        drawn.NameColumn = static_cast<int>(start);
    } else if (drawn.IsCandidate && name.Name.empty() && IsDashes(line)) {
        drawn.Kind = LineKind::Dashes;
    }
    return drawn;
}

std::vector<DrawnLine> LookAtAll(const Draft& draft) {
    std::vector<DrawnLine> lines;
    lines.reserve(static_cast<std::size_t>(draft.GetLineCount()));
    for (int line = 0; line < draft.GetLineCount(); ++line)
        lines.push_back(LookAt(draft.GetLine(line)));
    return lines;
}

} // namespace TabText
