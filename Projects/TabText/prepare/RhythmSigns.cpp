#include "Projects/TabText/prepare/RhythmSigns.h"

#include "Projects/Fretline/stave/NoteLengths.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <string>

namespace TabText {

namespace {

using std::string_view;

bool IsAnyOf(char c, string_view list) {
    return list.find(c) != string_view::npos;
}

bool IsBarline(string_view word) {
    return word.find_first_not_of('|') == string_view::npos;
}

int DottedLength(int length, std::size_t dots) {
    int sum = length;
    for (int term = length / 2; dots > 0 && term > 0; --dots, term /= 2)
        sum += term;
    return sum;
}

// "q", "E.", "+h": Length is 0 for any other word.
LengthLetter LengthLetterOf(const Word& word) {
    // The shortest is no letter that anybody writes small.
    constexpr string_view kLetters = "WHQEST";
    const bool isTied = word.Text.size() > 1 && IsAnyOf(word.Text.front(), "+-x");
    const string_view text = word.Text.substr(isTied ? 1 : 0);
    const char letter = Nvr::Ascii::ToUpper(text.front());
    if (!IsAnyOf(letter, kLetters) || text.find_first_not_of('.', 1) != string_view::npos)
        return {};
    return {word.Column + (isTied ? 1 : 0), DottedLength(Fretline::NoteLengthOf(letter), text.size() - 1),
            letter != text.front()};
}

// How many characters of each kind a line has; Others are none of its kind and no punctuation.
struct SignCount {
    int Signs = 0;
    int Others = 0;
    // Of the signs, those that begin no chord.
    int Plain = 0;
};

SignCount CountSigns(string_view line, string_view signs) {
    SignCount count;
    for (const char c : line) {
        if (c == '\0' || Nvr::Ascii::IsSpace(c) || IsAnyOf(c, ".,|_-()"))
            continue;
        const bool isSign = IsAnyOf(c, signs);
        count.Signs += isSign ? 1 : 0;
        count.Others += isSign ? 0 : 1;
        count.Plain += isSign && (c < 'A' || c > 'G') ? 1 : 0;
    }
    return count;
}

bool IsOf(string_view line, string_view signs) {
    constexpr int kFewestSigns = 2;
    const SignCount count = CountSigns(line, signs);
    return count.Others == 0 && count.Signs >= kFewestSigns && count.Plain > 0;
}

} // namespace

std::vector<LengthLetter> LengthLettersOf(string_view line) {
    std::vector<LengthLetter> letters;
    for (const Word& word : WordsOf(line)) {
        const LengthLetter letter = LengthLetterOf(word);
        if (letter.Length > 0)
            letters.push_back(letter);
        else if (!IsBarline(word.Text))
            return {};
    }
    return letters;
}

bool IsOfStrokesOrFingers(string_view line) {
    const bool hasThumb = line.find_first_of("Tt") != string_view::npos;
    return IsOf(line, "duDUvV^n>") || IsOf(line, "pimac") || IsOf(line, "PIMA") ||
           (hasThumb && line.find_first_of("1234") != string_view::npos && IsOf(line, "Tt1234"));
}

bool IsOfCounts(string_view line) {
    return line.find_first_not_of(" |123456789&+ea") == string_view::npos &&
           line.find('1') != string_view::npos && line.find_first_of("&+") != string_view::npos;
}

std::vector<Count> CountsOf(string_view cells, int beats) {
    std::vector<Count> counts;
    std::string signs;
    for (std::size_t column = 0; column < cells.size(); ++column)
        if (cells[column] != '\0' && cells[column] != ' ') {
            counts.push_back({static_cast<int>(column)});
            signs += cells[column] == '+' ? '&' : cells[column];
        }
    std::size_t at = 0;
    for (int beat = 0; beat < beats; ++beat) {
        if (at == signs.size() || signs[at] - '1' != beat)
            return {};
        const std::size_t next = std::min(signs.find_first_of("123456789", at + 1), signs.size());
        const std::string_view between = std::string_view(signs).substr(at + 1, next - at - 1);
        if (!between.empty() && between != "&" && between != "e&a")
            return {};
        const int parts = static_cast<int>(between.size()) + 1;
        for (int part = 0; part < parts; ++part, ++at) {
            counts[at].Beat = beat;
            counts[at].Quarter = kQuartersOfABeat / parts * part;
        }
    }
    return at == signs.size() ? counts : std::vector<Count>();
}

} // namespace TabText
