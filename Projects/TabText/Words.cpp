#include "Projects/TabText/Words.h"

#include "Projects/Fretline/stave/ChordRoot.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

using std::string_view;

bool SeparatesWords(char c) {
    return c == '\0' || Nvr::Ascii::IsSpace(c);
}

bool IsSameLetter(char a, char b) {
    return Nvr::Ascii::ToLower(a) == Nvr::Ascii::ToLower(b);
}

bool HasLetter(string_view word) {
    return std::any_of(word.begin(), word.end(), Nvr::Ascii::IsAlpha);
}

bool TakeFront(string_view& text, string_view front) {
    if (!text.starts_with(front))
        return false;
    text.remove_prefix(front.size());
    return true;
}

bool TakeRoot(string_view& text) {
    if (text.empty() || !Fretline::IsChordRoot(text.front()))
        return false;
    text.remove_prefix(1);
    if (!text.empty() && (text.front() == '#' || text.front() == 'b'))
        text.remove_prefix(1);
    return true;
}

// What may follow the root of a chord, longer spellings first.
bool TakeQuality(string_view& text) {
    for (const string_view quality :
         {"maj", "Maj", "min", "mi", "m", "M", "sus", "add", "dim", "aug", "alt", "no", "#", "b", "+", "-"})
        if (TakeFront(text, quality))
            return true;
    if (Nvr::Ascii::IsDigit(text.front()) || text.front() == '(' || text.front() == ')') {
        text.remove_prefix(1);
        return true;
    }
    // After a slash follows a bass note, or the nine of a six-nine chord.
    string_view rest = text.substr(1);
    if (text.front() == '/' && (TakeRoot(rest) || TakeFront(rest, "9"))) {
        text = rest;
        return true;
    }
    return false;
}

// Says nothing about whether its line holds chords: a count, a barline, "N.C.", "x4".
bool IsNeutral(string_view word) {
    const string_view bare = WithoutPunctuation({0, word}).Text;
    const bool isCount = !bare.empty() && std::all_of(bare.begin(), bare.end(), [](char c) {
        return Nvr::Ascii::IsDigit(c) || c == 'x' || c == 'X';
    });
    return !HasLetter(word) || isCount || IsOneOf(bare, {"n.c", "nc"});
}

} // namespace

std::vector<Word> WordsOf(string_view line) {
    std::vector<Word> words;
    std::size_t at = 0;
    while (at < line.size()) {
        const auto* start = std::find_if_not(line.begin() + at, line.end(), SeparatesWords);
        const auto* end = std::find_if(start, line.end(), SeparatesWords);
        const auto column = static_cast<std::size_t>(start - line.begin());
        at = static_cast<std::size_t>(end - line.begin());
        if (at > column)
            words.push_back({static_cast<int>(column), line.substr(column, at - column)});
    }
    return words;
}

Word WithoutPunctuation(Word word) {
    constexpr string_view kBefore = "([{\"'|*-";
    constexpr string_view kAfter = ")]}\"'|*,.:;!?-";
    const std::size_t start = std::min(word.Text.find_first_not_of(kBefore), word.Text.size());
    word.Column += static_cast<int>(start);
    word.Text.remove_prefix(start);
    word.Text = word.Text.substr(0, word.Text.find_last_not_of(kAfter) + 1);
    return word;
}

bool IsSameWord(string_view a, string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), IsSameLetter);
}

bool IsOneOf(string_view word, std::initializer_list<string_view> list) {
    return std::any_of(list.begin(), list.end(), [&](string_view entry) { return IsSameWord(word, entry); });
}

std::size_t FindInAnyCase(string_view line, string_view text, std::size_t start) {
    if (start > line.size())
        return string_view::npos;
    const auto* found = std::search(line.begin() + start, line.end(), text.begin(), text.end(), IsSameLetter);
    return found == line.end() ? string_view::npos : static_cast<std::size_t>(found - line.begin());
}

bool IsChordName(string_view word) {
    if (!TakeRoot(word))
        return false;
    while (!word.empty())
        if (!TakeQuality(word))
            return false;
    return true;
}

bool IsLineOfChords(string_view line) {
    int chords = 0;
    int others = 0;
    for (const Word& word : WordsOf(line)) {
        if (IsChordName(word.Text) || IsChordName(WithoutPunctuation(word).Text))
            ++chords;
        else if (!IsNeutral(word.Text))
            ++others;
    }
    return chords > 0 && chords >= others;
}

} // namespace TabText
