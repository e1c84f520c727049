#include "Projects/TabText/StatedCapo.h"

#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

constexpr int kHighestCapo = 12;

int NumberIn(std::string_view text) {
    const auto* digit = std::find_if(text.begin(), text.end(), Nvr::Ascii::IsDigit);
    int number = 0;
    for (; digit != text.end() && Nvr::Ascii::IsDigit(*digit) && number <= kHighestCapo; ++digit)
        number = number * 10 + (*digit - '0');
    return number;
}

// "Capo II". A lone "I" may be a word, but at the end.
int RomanNumberIn(std::string_view text) {
    constexpr std::array<std::string_view, kHighestCapo> kNumbers{"I",   "II",   "III", "IV", "V",  "VI",
                                                                  "VII", "VIII", "IX",  "X",  "XI", "XII"};
    const std::vector<Word> words = WordsOf(text);
    for (const Word& word : words) {
        const auto* number = std::find(kNumbers.begin(), kNumbers.end(), WithoutPunctuation(word).Text);
        if (number != kNumbers.end() &&
            (word.Text.front() != 'I' || word.Text.size() > 1 || &word == &words.back()))
            return static_cast<int>(number - kNumbers.begin()) + 1;
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
    const std::string_view rest = line.substr(capo, kReach);
    const int number = NumberIn(rest);
    const int fret = number > 0 ? number : RomanNumberIn(rest);
    const auto column = static_cast<int>(capo);
    return {fret <= kHighestCapo ? fret : 0, column, column + static_cast<int>(kWord.size())};
}

} // namespace TabText
