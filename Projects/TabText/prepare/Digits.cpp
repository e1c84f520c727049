#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/StaveWidener.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <bitset>
#include <cstdint>

namespace TabText {

namespace {

using Nvr::Ascii::IsDigit;

constexpr int kHighestFretReadAsOneNumber = 22;
constexpr int kLowestFretOfTwoDigits = 10;
constexpr int kHighestFret = 24;
// With zeros before it. A longer one is looked at no further.
constexpr std::size_t kMostDigitsOfAFret = 8;
// As far as one hand reaches.
constexpr int kFretsOfAHand = 4;
// What shows that somebody wrote numbers without a gap, and how much that takes: less might be a slip.
constexpr int kEnoughSigns = 4;
constexpr int kSignsOfDoubledDigit = 2;
constexpr int kSignsOfOtherRun = 1;

// Digits that touch each other on one string.
struct DigitRun {
    int Line = 0;
    int Start = 0;
    std::string_view Digits;
    int Bar = 0;
    // "x" beside it: the plug-in takes each sign by itself.
    bool TouchesMuted = false;
    // Where its digits are to be put apart: after each, after each second, or nowhere.
    int PartLength = 0;

    int GetEnd() const { return Start + static_cast<int>(Digits.size()); }
    bool IsLone() const { return Digits.size() == 1; }
    bool IsPair() const { return Digits.size() == 2; }
    bool StartsWithZero() const { return Digits.size() > 1 && Digits[0] == '0'; }
    bool IsOneDigitRepeated() const { return Digits.find_first_not_of(Digits[0]) == std::string_view::npos; }
    bool IsDoubled() const { return IsPair() && IsOneDigitRepeated(); }
    int GetPair(std::size_t at) const { return (Digits[at] - '0') * 10 + (Digits[at + 1] - '0'); }
    // A hand at that fret cannot reach the number, were it one fret.
    bool IsOutOfReachFrom(int fret) const { return fret < GetPair(0) - kFretsOfAHand; }
    bool IsFretOfTwoDigits() const { return IsPair() && !StartsWithZero() && GetPair(0) <= kHighestFret; }
    // The plug-in takes all of it as one fret.
    bool IsReadAsOne() const {
        int value = 0;
        for (const char digit : Digits)
            if ((value = value * 10 + (digit - '0')) > kHighestFretReadAsOneNumber)
                return false;
        return !TouchesMuted;
    }
};

// What the numbers of one string within a bar have in common.
struct NumbersOfBar {
    // A bit for each digit that stands alone.
    std::uint16_t Lone = 0;
    bool HasOtherFretOfTwoDigits = false;

    bool HasLone(char digit) const { return (Lone >> static_cast<unsigned>(digit - '0') & 1U) != 0; }
};

// The same for all strings.
struct BarOfStave {
    // -1 where no digit stands alone.
    int HighestLone = -1;
    bool HasOtherFretOfTwoDigits = false;
};

struct StaveNumbers {
    explicit StaveNumbers(const Fretline::TabStave& stave)
        : FirstLine(stave.GetFirstLine()), Bars(stave.GetBarlines().size() + 1),
          ByLineAndBar(static_cast<std::size_t>(stave.GetLineCount()) * Bars.size()) {}

    NumbersOfBar& At(const DigitRun& run) { return ByLineAndBar[IndexOf(run)]; }
    const NumbersOfBar& At(const DigitRun& run) const { return ByLineAndBar[IndexOf(run)]; }
    BarOfStave& BarOf(const DigitRun& run) { return Bars[static_cast<std::size_t>(run.Bar)]; }
    const BarOfStave& BarOf(const DigitRun& run) const { return Bars[static_cast<std::size_t>(run.Bar)]; }

    int FirstLine;
    // By line, then by column.
    std::vector<DigitRun> Runs;
    std::vector<BarOfStave> Bars;
    std::vector<NumbersOfBar> ByLineAndBar;
    int HighestLone = 0;
    bool HasOtherFretOfTwoDigits = false;

private:
    std::size_t IndexOf(const DigitRun& run) const {
        return static_cast<std::size_t>(run.Line - FirstLine) * Bars.size() +
               static_cast<std::size_t>(run.Bar);
    }
};

void AddRunsOfLine(const Draft& draft, int line, const Fretline::TabStave& stave, StaveNumbers& numbers) {
    const std::string_view text = draft.GetLine(line);
    const auto& barlines = stave.GetBarlines();
    std::size_t bar = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t start = at;
        while (at < text.size() && IsDigit(text[at]))
            ++at;
        if (at == start)
            continue;
        while (bar < barlines.size() && barlines[bar].m_Column < static_cast<int>(start))
            ++bar;
        DigitRun run{line, static_cast<int>(start), text.substr(start, at - start), static_cast<int>(bar)};
        run.TouchesMuted = (start > 0 && Fretline::IsMuted(text[start - 1])) ||
                           (at < text.size() && Fretline::IsMuted(text[at]));
        numbers.Runs.push_back(run);
    }
}

void Sum(StaveNumbers& numbers) {
    for (const DigitRun& run : numbers.Runs) {
        NumbersOfBar& entry = numbers.At(run);
        BarOfStave& bar = numbers.BarOf(run);
        if (run.IsFretOfTwoDigits() && !run.IsDoubled())
            entry.HasOtherFretOfTwoDigits = bar.HasOtherFretOfTwoDigits = numbers.HasOtherFretOfTwoDigits =
                true;
        if (!run.IsLone())
            continue;
        const int digit = run.Digits[0] - '0';
        entry.Lone |= static_cast<std::uint16_t>(1U << static_cast<unsigned>(digit));
        bar.HighestLone = std::max(bar.HighestLone, digit);
        numbers.HighestLone = std::max(numbers.HighestLone, digit);
    }
}

// All numbers of a draft, and what they tell of how it was written.
class NumbersOfText {
public:
    NumbersOfText(const Draft& draft, const DraftReading& reading) {
        for (const auto& stave : reading.GetStaves()) {
            StaveNumbers& numbers = m_Staves.emplace_back(*stave);
            for (int line = stave->GetFirstLine(); line < stave->GetEndLine(); ++line)
                AddRunsOfLine(draft, line, *stave, numbers);
            Sum(numbers);
        }
        for (const StaveNumbers& stave : m_Staves)
            for (const DigitRun& run : stave.Runs)
                Count(stave, run);
    }

    std::vector<StaveNumbers>& GetStaves() { return m_Staves; }
    // Somebody wrote numbers without a gap here, and more than once. Where all numbers have two digits, a
    // zero before one is no number of its own.
    bool IsGlued() const { return m_SignsOfGlue >= kEnoughSigns && m_LoneNumbers >= m_PaddedPairs; }
    bool HasFret(int fret) const { return m_Frets.test(static_cast<std::size_t>(fret)); }

    // "11" beside a lone "1" of its string, in a place where nothing lies as high as fret 11.
    static bool RepeatsANeighbour(const StaveNumbers& stave, const DigitRun& run) {
        if (!run.IsDoubled() || run.StartsWithZero())
            return false;
        const NumbersOfBar& entry = stave.At(run);
        return entry.HasLone(run.Digits[0]) && !entry.HasOtherFretOfTwoDigits &&
               run.IsOutOfReachFrom(stave.BarOf(run).HighestLone);
    }

    // "22" where the hand is far below fret 22, and no fret of two digits is sure: in the bar, or where that
    // tells nothing, in the stave.
    static bool IsFarFromTheHand(const StaveNumbers& stave, const DigitRun& run) {
        const BarOfStave& bar = stave.BarOf(run);
        if (!run.IsDoubled() || bar.HasOtherFretOfTwoDigits)
            return false;
        if (bar.HighestLone > 0)
            return run.IsOutOfReachFrom(bar.HighestLone);
        return stave.HighestLone > 0 && run.IsOutOfReachFrom(stave.HighestLone) &&
               !stave.HasOtherFretOfTwoDigits;
    }

private:
    void Count(const StaveNumbers& stave, const DigitRun& run) {
        m_LoneNumbers += run.IsLone() ? 1 : 0;
        m_PaddedPairs += run.IsPair() && run.StartsWithZero() && !run.IsDoubled() ? 1 : 0;
        if (run.IsFretOfTwoDigits())
            m_Frets.set(static_cast<std::size_t>(run.GetPair(0)));
        m_SignsOfGlue += SignsOf(stave, run);
    }

    static int SignsOf(const StaveNumbers& stave, const DigitRun& run) {
        // Nobody means one number by three equal digits.
        if (run.Digits.size() > 2)
            return run.IsOneDigitRepeated() ? kEnoughSigns : kSignsOfOtherRun;
        if (RepeatsANeighbour(stave, run))
            return kSignsOfDoubledDigit;
        if (run.StartsWithZero())
            return run.IsDoubled() ? kSignsOfDoubledDigit : kSignsOfOtherRun;
        return 0;
    }

    std::vector<StaveNumbers> m_Staves;
    std::bitset<kHighestFret + 1> m_Frets;
    int m_SignsOfGlue = 0;
    int m_LoneNumbers = 0;
    int m_PaddedPairs = 0;
};

// "1212" where 12 is played by itself elsewhere, and neither 1 nor 2 on this string here.
bool IsMadeOfFrets(const NumbersOfText& text, const StaveNumbers& stave, const DigitRun& run) {
    if (run.Digits.size() < 4 || run.Digits.size() % 2 != 0)
        return false;
    for (std::size_t at = 0; at < run.Digits.size(); at += 2) {
        const int fret = run.GetPair(at);
        const bool isFret = fret >= kLowestFretOfTwoDigits && fret <= kHighestFretReadAsOneNumber;
        if (!isFret || !text.HasFret(fret) || stave.At(run).HasLone(run.Digits[at]))
            return false;
    }
    return true;
}

// Where the numbers of a stave are put apart: first what shows it by itself, then what stands with that.
void DecideParts(const NumbersOfText& text, StaveNumbers& stave) {
    std::vector<std::pair<int, int>> places;
    for (DigitRun& run : stave.Runs) {
        if (IsMadeOfFrets(text, stave, run))
            run.PartLength = 2;
        else if (text.IsGlued() && run.IsReadAsOne() &&
                 (run.StartsWithZero() || NumbersOfText::RepeatsANeighbour(stave, run) ||
                  NumbersOfText::IsFarFromTheHand(stave, run)))
            run.PartLength = 1;
        if (run.PartLength == 1)
            places.emplace_back(run.Start, run.GetEnd());
    }
    std::sort(places.begin(), places.end());
    for (DigitRun& run : stave.Runs)
        if (run.PartLength == 0 && run.Digits.size() > 1 &&
            std::binary_search(places.begin(), places.end(), std::pair(run.Start, run.GetEnd())))
            run.PartLength = 1;
}

// Ascending, each once: the columns before which a number is to begin.
std::vector<int> CutColumns(const StaveNumbers& stave) {
    std::vector<int> columns;
    for (const DigitRun& run : stave.Runs)
        if (run.PartLength > 0)
            for (int column = run.Start + run.PartLength; column < run.GetEnd(); column += run.PartLength)
                columns.push_back(column);
    std::sort(columns.begin(), columns.end());
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    return columns;
}

// True where the digits around a column are two numbers, be it that the plug-in knows that itself. Asked from
// left to right, line by line, or a little back, it costs next to nothing.
class CutTest {
public:
    explicit CutTest(const StaveNumbers& stave) : m_Stave(stave) {}

    bool operator()(int line, int column) {
        while (m_Next < m_Stave.Runs.size() && IsBefore(m_Stave.Runs[m_Next], line, column))
            ++m_Next;
        while (m_Next > 0 && !IsBefore(m_Stave.Runs[m_Next - 1], line, column))
            --m_Next;
        if (m_Next == m_Stave.Runs.size())
            return true;
        const DigitRun& run = m_Stave.Runs[m_Next];
        if (run.Line != line || run.Start >= column)
            return true;
        if (run.PartLength > 0)
            return (column - run.Start) % run.PartLength == 0;
        return run.Digits.size() > kMostDigitsOfAFret || !run.IsReadAsOne();
    }

private:
    static bool IsBefore(const DigitRun& run, int line, int column) {
        return run.Line != line ? run.Line < line : run.GetEnd() <= column;
    }

    const StaveNumbers& m_Stave;
    std::size_t m_Next = 0;
};

} // namespace

void RunDigits(Draft& draft) {
    const DraftReading reading(draft);
    NumbersOfText text(draft, reading);
    const std::vector<StaveSurroundings> surroundings = SurroundingsOf(draft, reading);
    for (std::size_t at = 0; at < surroundings.size(); ++at) {
        StaveNumbers& stave = text.GetStaves()[at];
        DecideParts(text, stave);
        const std::vector<int> columns = CutColumns(stave);
        if (!columns.empty())
            StaveWidener(draft, surroundings[at]).Widen(columns, CutTest(stave));
    }
}

} // namespace TabText
