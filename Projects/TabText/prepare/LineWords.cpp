#include "Projects/TabText/prepare/LineWords.h"

#include "Projects/Fretline/stave/ChordRoot.h"
#include "Projects/Fretline/text/Labels.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using Nvr::Ascii::IsAlpha;
using Nvr::Ascii::IsDigit;
using std::string_view;

// Words that stand among chords and above notes, and say nothing about whether the line is prose.
constexpr auto kPlayingWords = std::to_array<string_view>(
    {"let",  "ring",  "hold", "pm",      "p.m",  "palm", "mute",       "muted",  "slide", "bend",  "full",
     "half", "rel",   "vib",  "vibrato", "harm", "trem", "tap",        "fade",   "fill",  "dist",  "clean",
     "rit",  "gliss", "fine", "d.c",     "d.s",  "al",   "distortion", "repeat", "riff",  "strum", "x2",
     "1st",  "2nd",   "3rd",  "time",    "cont", "gtr",  "n.c",        "nc"});

// Lines with one of these are read by what looks for tempo, capo and tuning.
constexpr auto kFacts = std::to_array<string_view>(
    {"capo", "tuning", "tuned", "tune", "tempo", "bpm", "swing", "swung", "shuffle"});
// So are those with one of these and a colon after it.
constexpr auto kHeadings = std::to_array<string_view>({"title:", "song:", "artist:", "band:", "composer:"});
// These mark notes, or say who plays.
constexpr auto kMarks = std::to_array<string_view>(
    {"gtr", "guitar", "guitars", "bass", "pm", "p.m", "n.h", "nh", "a.h", "ah", "p.h", "ph", "ring"});

template <std::size_t Size>
bool IsAmong(string_view word, const std::array<string_view, Size>& words) {
    return std::any_of(words.begin(), words.end(),
                       [word](string_view entry) { return IsSameWord(word, entry); });
}

bool IsLabelWord(string_view word) {
    return IsAmong(word, Fretline::kLabelKeywords);
}

// "Q", "q.", "E..": a length; "xQ" one that is tied.
bool IsLength(string_view word) {
    constexpr string_view kLengths = "WHQESTXwhqestx";
    if (word.size() > 1 && (word.front() == '+' || word.front() == '-' || word.front() == 'x'))
        word.remove_prefix(1);
    return kLengths.find(word.front()) != string_view::npos &&
           word.find_first_not_of('.', 1) == string_view::npos;
}

// "4", "x4", "2x", "a", "&".
bool IsCount(string_view word) {
    return std::all_of(word.begin(), word.end(), [](char c) { return IsDigit(c) || c == 'x' || c == 'X'; }) ||
           (word.size() == 1 && Nvr::Ascii::IsLower(word.front()));
}

// "Csus2" of "Csus2/4", "Dm7" of "Dm7/b5".
string_view WithoutAddedNote(string_view chord) {
    const std::size_t slash = chord.rfind('/');
    if (slash == string_view::npos || chord.ends_with("6/9"))
        return chord;
    string_view note = chord.substr(slash + 1);
    if (!note.empty() && (note.front() == 'b' || note.front() == '#'))
        note.remove_prefix(1);
    const bool isNumber = !note.empty() && std::all_of(note.begin(), note.end(), IsDigit);
    return isNumber ? chord.substr(0, slash) : chord;
}

// "Co7", and signs that are no letters: a triangle, a circle.
bool IsOddlySpelledChord(string_view word) {
    if (word.empty() || !Fretline::IsChordRoot(word.front()))
        return false;
    const bool isDiminished = word.size() > 2 && word[1] == 'o' && IsDigit(word[2]);
    return std::none_of(word.begin() + (isDiminished ? 2 : 1), word.end(), IsAlpha);
}

// "Am", "(F#m7)", "C-G", "Am|F", "Gmajor".
bool IsOfChords(string_view word) {
    constexpr string_view kBetween = "-|,>.~_=:;()[]*?!'\"{}";
    bool hasChord = false;
    std::size_t at = 0;
    while (at < word.size()) {
        const std::size_t start = std::min(word.find_first_not_of(kBetween, at), word.size());
        at = std::min(word.find_first_of(kBetween, start), word.size());
        string_view part = WithoutAddedNote(word.substr(start, at - start));
        for (const string_view ending : {"minor", "major", "mi7", "MA7", "Ma7"})
            if (part.size() > ending.size() && part.ends_with(ending))
                part.remove_suffix(ending.size());
        if (part.empty() || std::all_of(part.begin(), part.end(), IsDigit))
            continue;
        if (!IsChordName(part) && !IsOddlySpelledChord(part))
            return false;
        hasChord = true;
    }
    return hasChord;
}

WordKind KindOf(const Word& word) {
    const string_view bare = WithoutPunctuation(word).Text;
    if (std::none_of(bare.begin(), bare.end(), IsAlpha) || IsCount(bare))
        return WordKind::Sign;
    if (IsChordName(word.Text) || IsChordName(bare) || IsOfChords(word.Text))
        return WordKind::Chord;
    if (IsLength(bare))
        return WordKind::Sign;
    return IsAmong(bare, kPlayingWords) || IsLabelWord(bare) ? WordKind::Playing : WordKind::Other;
}

// "A" and "Am" are words of English too.
bool MayBeAnArticle(string_view word) {
    return word == "A" || word == "Am";
}

bool IsTimes(string_view word) {
    return word.size() > 1 && IsCount(word) &&
           (Nvr::Ascii::ToLower(word.front()) == 'x') != (Nvr::Ascii::ToLower(word.back()) == 'x');
}

} // namespace

bool LineWord::IsMisreadAt(int column) const {
    return (Kind == WordKind::Other || Kind == WordKind::Playing) && column >= Place.Column &&
           column < Place.GetEndColumn() &&
           Fretline::IsChordRoot(Place.Text[static_cast<std::size_t>(column - Place.Column)]);
}

LineWords::LineWords(string_view line) {
    for (const Word& word : WordsOf(line))
        m_Words.push_back({word, KindOf(word)});
    TellWordsFromChords();
    for (const LineWord& word : m_Words) {
        m_Chords += word.Kind == WordKind::Chord ? 1 : 0;
        m_Others += word.Kind == WordKind::Other ? 1 : 0;
    }
}

bool LineWords::SpellsATuning() const {
    return !m_Words.empty() &&
           IsOneOf(WithoutPunctuation(m_Words.front().Place).Text, {"tuning", "tuned", "tune"});
}

// "A man", "Riff B": between such words is one blank. They are then no chords, and not counted.
void LineWords::TellWordsFromChords() {
    const auto chords = std::count_if(m_Words.begin(), m_Words.end(),
                                      [](const LineWord& word) { return word.Kind == WordKind::Chord; });
    for (std::size_t at = 0; at + 1 < m_Words.size(); ++at) {
        LineWord& word = m_Words[at];
        LineWord& next = m_Words[at + 1];
        if (next.Place.Column != word.Place.GetEndColumn() + 1)
            continue;
        if (MayBeAnArticle(word.Place.Text) && next.Kind == WordKind::Other &&
            IsAlpha(next.Place.Text.front()))
            word.Kind = WordKind::Playing;
        else if (chords == 1 && next.Kind == WordKind::Chord && next.Place.Text.size() == 1 &&
                 IsLabelWord(word.Place.Text))
            next.Kind = WordKind::Playing;
    }
}

bool StatesAFact(string_view line) {
    const std::vector<Word> words = WordsOf(line);
    return std::any_of(words.begin(), words.end(), [](const Word& word) {
        return IsAmong(WithoutPunctuation(word).Text, kFacts) || IsAmong(word.Text, kHeadings);
    });
}

bool HasMarks(string_view line) {
    const std::vector<Word> words = WordsOf(line);
    return std::any_of(words.begin(), words.end(), [](const Word& word) {
        const string_view bare = WithoutPunctuation(word).Text;
        return IsAmong(bare, kMarks) || IsTimes(bare) || word.Text == "=";
    });
}

} // namespace TabText
