#include "Projects/TabText/RepeatMarks.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/StatedTimes.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/Words.h"

#include <algorithm>
#include <array>
#include <set>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabFile;

bool IsRepeatDot(char c) {
    return c == ':' || c == '*' || c == 'o' || c == 'O';
}

// What the dots at the edges of a bar begin or end. On all lines they make a barline of their own, next to
// the bar; on some they stand in its first or last column.
Score::ModelRepeats RepeatsOf(const TabBar& bar) {
    const int start = bar.GetStartColumn();
    const int end = start + bar.GetWidth();
    const std::array columns{start - 1, start, end - 1, end};
    std::array<int, columns.size()> dots{};
    for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line) {
        const std::string_view text = bar.GetFile().GetLine(line);
        for (std::size_t edge = 0; edge < columns.size(); ++edge) {
            const auto place = static_cast<std::size_t>(columns[edge]);
            dots[edge] += place < text.size() && IsRepeatDot(text[place]) ? 1 : 0;
        }
    }
    // A lone sign is something else.
    constexpr int kFewestDots = 2;
    const auto hasDots = [&](std::size_t edge) { return dots[edge] >= kFewestDots; };
    return {hasDots(0) || hasDots(1), hasDots(2) || hasDots(3)};
}

// How often something is played, and where that is said.
struct TimesSign {
    int Times = 0;
    SignSpan Span;
};

std::vector<TimesSign> TimesIn(const TabFile& file, int line, std::size_t start) {
    std::vector<TimesSign> signs;
    for (const StatedTimes& stated : StatedTimesIn(file.GetLine(line), start))
        signs.push_back({stated.Times, {line, stated.Column, stated.EndColumn}});
    return signs;
}

// What is written after the stave's last barline.
std::vector<TimesSign> TimesAfter(const TabFile& file, const Fretline::TabStave& stave) {
    for (int line = stave.GetFirstLine(); line < stave.GetEndLine(); ++line) {
        const std::size_t last = file.GetLine(line).find_last_of('|');
        if (last == std::string_view::npos)
            continue;
        if (std::vector<TimesSign> signs = TimesIn(file, line, last + 1); !signs.empty())
            return signs;
    }
    return {};
}

// In the nearest line that says it, between what belongs to the stave before and this one.
std::vector<TimesSign> TimesAbove(const TabReading& reading, const Fretline::TabStave& stave) {
    const int first = stave.GetFirstLine();
    for (int line = first - 1; line >= std::max(first - kLinesAbove, 0); --line) {
        if (reading.GetAnalysis().IsStaveLine(line))
            break;
        // Right below another stave.
        if (line + 1 < first && line > 0 && reading.GetAnalysis().IsStaveLine(line - 1))
            break;
        if (std::vector<TimesSign> signs = TimesIn(reading.GetFile(), line, 0); !signs.empty())
            return signs;
    }
    return {};
}

// Right below the stave, where a blank line separates it from what follows.
std::vector<TimesSign> TimesBelow(const TabReading& reading, const Fretline::TabStave& stave) {
    const int line = stave.GetEndLine();
    const int count = reading.GetFile().GetLineCount();
    if (line >= count || reading.GetAnalysis().IsStaveLine(line))
        return {};
    std::vector<TimesSign> signs = TimesIn(reading.GetFile(), line, 0);
    const bool isFollowed =
        !signs.empty() && line + 1 < count && !WordsOf(reading.GetFile().GetLine(line + 1)).empty();
    return isFollowed ? std::vector<TimesSign>() : signs;
}

// Reads the staves in turn; a repeat that begins in one may end in a later one.
class RepeatReader {
public:
    RepeatReader(const TabReading& reading, BarMarks& marks) : m_Reading(reading), m_Marks(marks) {}

    void Read() {
        for (const StaveBars& stave : StavesWithBars(m_Reading))
            ReadStave(stave);
        for (int line = 0; line < m_Reading.GetFile().GetLineCount(); ++line)
            if (!m_Reading.GetAnalysis().IsStaveLine(line) && m_Lines.count(line) == 0)
                DoubtLine(line);
    }

private:
    std::size_t IndexOf(const BarReading& bar) const {
        return static_cast<std::size_t>(&bar - m_Reading.GetBars().data());
    }

    void ReadStave(const StaveBars& stave) {
        bool hasRepeats = false;
        for (const BarReading& bar : stave.Bars)
            if (const Score::ModelRepeats repeats = RepeatsOf(*bar.Bar); repeats.IsStart || repeats.IsEnd) {
                m_Marks.At(IndexOf(bar)).Repeats = repeats;
                hasRepeats = true;
            }
        std::vector<TimesSign> signs = TimesAfter(m_Reading.GetFile(), *stave.Stave);
        if (signs.empty())
            signs = TimesAbove(m_Reading, *stave.Stave);
        if (signs.empty())
            signs = TimesBelow(m_Reading, *stave.Stave);
        for (const TimesSign& sign : signs) {
            m_Lines.insert(sign.Span.Line);
            if (const char* why = WhatIsUnclear(stave, sign, signs.size(), hasRepeats))
                m_Marks.Unclear.push_back({sign.Span, why});
        }
    }

    // A line of nothing else that stands by itself.
    void DoubtLine(int line) {
        constexpr std::size_t kMostLetters = 24;
        const std::vector<Word> words = WordsOf(m_Reading.GetFile().GetLine(line));
        const bool isShort = !words.empty() && static_cast<std::size_t>(words.back().GetEndColumn() -
                                                                        words.front().Column) <= kMostLetters;
        if (!isShort)
            return;
        const std::vector<TimesSign> signs = TimesIn(m_Reading.GetFile(), line, 0);
        if (signs.size() == 1 && signs[0].Span.Column == words.front().Column &&
            signs[0].Span.EndColumn == words.back().GetEndColumn())
            m_Marks.Unclear.push_back({signs[0].Span, "no stave stands right beside it"});
    }

    // Null when it is clear, and what is played so often has its times.
    const char* WhatIsUnclear(const StaveBars& stave, const TimesSign& sign, std::size_t count,
                              bool hasRepeats) {
        if (sign.Times == 0)
            return "it is not clear what it repeats, or how often that is in all";
        if (hasRepeats)
            return SetTimes(stave, sign, count) ? nullptr : "no repeat ends there";
        if (count > 1)
            return "no repeat signs say what is played so often";
        RepeatWholeStave(stave, sign.Times);
        return nullptr;
    }

    // One alone means the last repeat of the stave; of several each means the next one that ends.
    bool SetTimes(const StaveBars& stave, const TimesSign& sign, std::size_t count) {
        const std::size_t last = IndexOf(stave.Bars.back());
        std::size_t first = IndexOf(stave.Bars.front());
        if (count > 1)
            first = BarFrom(m_Reading, stave, sign.Span.Column).value_or(last);
        for (std::size_t step = 0; step <= last - first; ++step) {
            const std::size_t bar = count > 1 ? first + step : last - step;
            const auto mark = m_Marks.ByBar.find(bar);
            if (mark == m_Marks.ByBar.end() || !mark->second.Repeats.IsEnd)
                continue;
            mark->second.Repeats.Times = sign.Times;
            return true;
        }
        return false;
    }

    void RepeatWholeStave(const StaveBars& stave, int times) {
        const std::size_t first = IndexOf(stave.Bars.front());
        const std::size_t last = IndexOf(stave.Bars.back());
        m_Marks.At(first).Repeats = {true, first == last, times};
        if (first != last)
            m_Marks.At(last).Repeats = {false, true, times};
    }

    const TabReading& m_Reading;
    BarMarks& m_Marks;
    // Those that belong to a stave.
    std::set<int> m_Lines;
};

} // namespace

void ReadRepeats(const TabReading& reading, BarMarks& marks) {
    RepeatReader(reading, marks).Read();
}

} // namespace TabText
