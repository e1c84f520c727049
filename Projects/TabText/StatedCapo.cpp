#include "Projects/TabText/StatedCapo.h"

#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

constexpr int kHighestCapo = 12;

// "2", "2nd"; 0 for "8ths".
int NumberOf(std::string_view word) {
    int number = 0;
    std::size_t at = 0;
    for (; at < word.size() && Nvr::Ascii::IsDigit(word[at]) && number <= kHighestCapo; ++at)
        number = number * 10 + (word[at] - '0');
    const std::string_view rest = word.substr(at);
    const bool isNumber =
        rest.empty() || !Nvr::Ascii::IsAlpha(rest[0]) || IsOneOf(rest, {"st", "nd", "rd", "th"});
    return isNumber ? number : 0;
}

// A lone "I" may be a word, but at the end.
int RomanNumberOf(std::string_view word, bool isLast) {
    constexpr std::array<std::string_view, kHighestCapo> kNumbers{"I",   "II",   "III", "IV", "V",  "VI",
                                                                  "VII", "VIII", "IX",  "X",  "XI", "XII"};
    const auto* number = std::find(kNumbers.begin(), kNumbers.end(), word);
    return number == kNumbers.end() || (word == "I" && !isLast)
               ? 0
               : static_cast<int>(number - kNumbers.begin()) + 1;
}

int FirstNumberIn(std::string_view text) {
    const std::vector<Word> words = WordsOf(text);
    for (const Word& word : words) {
        std::string_view bare = WithoutPunctuation(word).Text;
        bare.remove_prefix(std::min(bare.find_first_not_of(":=.#"), bare.size()));
        const int number = NumberOf(bare);
        if (const int fret = number > 0 ? number : RomanNumberOf(bare, &word == &words.back()); fret > 0)
            return fret;
    }
    return 0;
}

} // namespace

CapoStatement StatedCapo(std::string_view line) {
    constexpr std::string_view kWord = "capo";
    constexpr std::size_t kReach = 24;
    const std::size_t capo = FindInAnyCase(line, kWord);
    if (capo == std::string_view::npos)
        return {};
    const int fret = FirstNumberIn(line.substr(capo + kWord.size(), kReach));
    const auto column = static_cast<int>(capo);
    return {fret <= kHighestCapo ? fret : 0, column, column + static_cast<int>(kWord.size())};
}

} // namespace TabText
