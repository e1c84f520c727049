#include "Projects/TabText/StatedTimes.h"

#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using std::string_view;

constexpr int kFewestTimes = 2;
constexpr int kMostTimes = 64;

// Up to two digits, or a word; 0 for anything else.
int NumberOf(string_view word) {
    constexpr std::array<string_view, 5> kNumbers{"two", "three", "four", "five", "six"};
    for (std::size_t number = 0; number < kNumbers.size(); ++number)
        if (IsSameWord(word, kNumbers[number]))
            return static_cast<int>(number) + kFewestTimes;
    if (word.empty() || word.size() > 2 || !std::all_of(word.begin(), word.end(), Nvr::Ascii::IsDigit))
        return 0;
    int number = 0;
    for (const char digit : word)
        number = number * 10 + (digit - '0');
    return number >= kFewestTimes && number <= kMostTimes ? number : 0;
}

bool IsTimesSign(char c) {
    return Nvr::Ascii::ToLower(c) == 'x';
}

// "x4" and "4x".
int TimesOf(string_view bare) {
    if (bare.size() < 2)
        return 0;
    if (IsTimesSign(bare.front()))
        return Nvr::Ascii::IsDigit(bare[1]) ? NumberOf(bare.substr(1)) : 0;
    const bool isSign = IsTimesSign(bare.back()) && Nvr::Ascii::IsDigit(bare[0]);
    return isSign ? NumberOf(bare.substr(0, bare.size() - 1)) : 0;
}

class TimesLine {
public:
    TimesLine(string_view line, std::size_t start)
        : m_Start(static_cast<int>(start)), m_Words(WordsOf(line.substr(start))) {}

    std::vector<StatedTimes> Read() const {
        std::vector<StatedTimes> found;
        for (std::size_t word = 0; word < m_Words.size(); ++word) {
            std::size_t count = 1;
            int times = TimesOf(Bare(word));
            bool isStated = times > 0;
            if (!isStated)
                isStated = ReadPhrase(word, times, count);
            if (!isStated)
                continue;
            found.push_back(
                {times, m_Start + m_Words[word].Column, m_Start + m_Words[word + count - 1].GetEndColumn()});
            word += count - 1;
        }
        return found;
    }

private:
    string_view Bare(std::size_t word) const {
        return word < m_Words.size() ? WithoutPunctuation(m_Words[word]).Text : string_view();
    }

    // "x 4", "play 3 times", "repeat twice"; "3 times" where nothing else is there.
    bool ReadPhrase(std::size_t word, int& times, std::size_t& count) const {
        if (IsSameWord(Bare(word), "x")) {
            count = 2;
            times = NumberOf(Bare(word + 1));
            return times > 0;
        }
        const bool isPlayed = IsOneOf(Bare(word), {"play", "played"});
        const bool isRepeated = IsOneOf(Bare(word), {"repeat", "repeats", "repeated"});
        if (isRepeated && m_Words.size() == 1)
            return true;
        const std::size_t number = word + (isPlayed || isRepeated ? 1 : 0);
        if (!isPlayed && !isRepeated && (word > 0 || m_Words.size() > 2))
            return false;
        const bool isTwice = IsSameWord(Bare(number), "twice");
        times = isTwice ? kFewestTimes : NumberOf(Bare(number));
        if (times == 0 || (!isTwice && !IsSameWord(Bare(number + 1), "times")))
            return false;
        count = number + (isTwice ? 1 : 2) - word;
        times = isRepeated ? 0 : times;
        return true;
    }

    int m_Start;
    std::vector<Word> m_Words;
};

} // namespace

std::vector<StatedTimes> StatedTimesIn(string_view line, std::size_t start) {
    return start < line.size() ? TimesLine(line, start).Read() : std::vector<StatedTimes>();
}

} // namespace TabText
