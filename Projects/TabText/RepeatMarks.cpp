#include "Projects/TabText/RepeatMarks.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabFile;

bool IsRepeatDot(char c) {
    return c == ':' || c == '*' || c == 'o' || c == 'O';
}

// Two dots or more, all in the same column at an edge of the bar: a lone sign is something else.
bool HasDots(const TabBar& bar, int column) {
    constexpr int kFewestDots = 2;
    int dots = 0;
    for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
        dots += column >= 0 && IsRepeatDot(bar.GetFile().GetChar(line, column)) ? 1 : 0;
    return dots >= kFewestDots;
}

// Dots on all lines make a barline of their own, next to the bar; on some they stand in its first column.
bool BeginsRepeat(const TabBar& bar) {
    return HasDots(bar, bar.GetStartColumn()) || HasDots(bar, bar.GetStartColumn() - 1);
}

bool EndsRepeat(const TabBar& bar) {
    const int end = bar.GetStartColumn() + bar.GetWidth();
    return HasDots(bar, end - 1) || HasDots(bar, end);
}

// The times that a word says: "x4", "(2x)", "[x3]"; 0 for any other word.
int TimesOf(std::string_view word) {
    constexpr int kMostTimes = 64;
    const std::string_view bare = WithoutPunctuation({0, word}).Text;
    if (bare.size() < 2 || bare.size() > 3)
        return 0;
    const bool leads = Nvr::Ascii::ToLower(bare.front()) == 'x';
    const std::string_view digits = leads ? bare.substr(1) : bare.substr(0, bare.size() - 1);
    if (!leads && Nvr::Ascii::ToLower(bare.back()) != 'x')
        return 0;
    if (!std::all_of(digits.begin(), digits.end(), Nvr::Ascii::IsDigit))
        return 0;
    int times = 0;
    for (const char digit : digits)
        times = times * 10 + (digit - '0');
    return times >= 2 && times <= kMostTimes ? times : 0;
}

// The times in the text from `start` on; 0 where it says none.
int TimesIn(std::string_view line, std::size_t start) {
    if (start >= line.size())
        return 0;
    for (const Word& word : WordsOf(line.substr(start)))
        if (const int times = TimesOf(word.Text); times > 0)
            return times;
    return 0;
}

// What is written after the stave's last barline.
int TimesAfter(const TabFile& file, const Fretline::TabStave& stave) {
    for (int line = stave.GetFirstLine(); line < stave.GetEndLine(); ++line) {
        const std::string_view text = file.GetLine(line);
        const std::size_t last = text.find_last_of('|');
        if (last == std::string_view::npos)
            continue;
        if (const int times = TimesIn(text, last + 1); times > 0)
            return times;
    }
    return 0;
}

// The last line above the stave with words in it, within reach of the stave.
int TimesAbove(const TabReading& reading, const Fretline::TabStave& stave) {
    const int line = stave.GetFirstLine() - 1;
    return line < 0 || reading.GetAnalysis().IsStaveLine(line) ? 0
                                                               : TimesIn(reading.GetFile().GetLine(line), 0);
}

// Reads the staves in turn; a repeat that begins in one may end in a later one.
class RepeatReader {
public:
    explicit RepeatReader(const TabReading& reading) : m_Reading(reading) {}

    std::vector<BarMark> Read() {
        for (const StaveBars& stave : StavesWithBars(m_Reading))
            ReadStave(stave);
        return std::move(m_Marks);
    }

private:
    std::size_t IndexOf(const BarReading& bar) const {
        return static_cast<std::size_t>(&bar - m_Reading.GetBars().data());
    }

    void ReadStave(const StaveBars& stave) {
        int times = TimesAfter(m_Reading.GetFile(), *stave.Stave);
        times = times > 0 ? times : TimesAbove(m_Reading, *stave.Stave);
        const std::size_t before = m_Marks.size();
        for (const BarReading& bar : stave.Bars)
            if (BeginsRepeat(*bar.Bar) || EndsRepeat(*bar.Bar))
                m_Marks.push_back({IndexOf(bar), {BeginsRepeat(*bar.Bar), EndsRepeat(*bar.Bar), 2}});
        if (times == 0)
            return;
        if (m_Marks.size() > before)
            SetTimesOfLastEnd(before, times);
        else
            RepeatWholeStave(stave, times);
    }

    void SetTimesOfLastEnd(std::size_t first, int times) {
        for (std::size_t index = m_Marks.size(); index > first; --index) {
            if (!m_Marks[index - 1].Repeats.IsEnd)
                continue;
            m_Marks[index - 1].Repeats.Times = times;
            return;
        }
    }

    void RepeatWholeStave(const StaveBars& stave, int times) {
        const std::size_t first = IndexOf(stave.Bars.front());
        const std::size_t last = IndexOf(stave.Bars.back());
        m_Marks.push_back({first, {true, first == last, times}});
        if (first != last)
            m_Marks.push_back({last, {false, true, times}});
    }

    const TabReading& m_Reading;
    std::vector<BarMark> m_Marks;
};

} // namespace

void ReadRepeats(const TabReading& reading, BarMarks& marks) {
    for (const BarMark& mark : RepeatReader(reading).Read())
        marks.At(mark.Bar).Repeats = mark.Repeats;
}

} // namespace TabText
