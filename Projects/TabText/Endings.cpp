#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/BarMarks.h"
#include "Projects/TabText/PartsTogether.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

using std::string_view;

constexpr int kHighestEnding = 9;

// One number, or several, over the bar where an ending begins.
struct EndingSign {
    std::vector<int> Times;
    SignSpan Span;
    // With the strokes drawn beside it, and no fewer than two of them after it.
    bool IsDrawn = false;
    // Before the word "time" or the like.
    bool IsInWords = false;
    // A number alone, which could be a count,
    bool IsBare = false;
    // and has no strokes beside it either: "(1)", "|1".
    bool IsWeak = false;
    // An index into TabReading::GetBars, or its place in the order of bars once all signs are known.
    std::size_t Bar = 0;
    // The bar above which the strokes end.
    std::size_t DrawnEnd = 0;
};

bool IsStroke(char c) {
    return c == '_' || c == '-' || c == '=' || c == '.' || c == '~';
}

bool IsEdge(char c) {
    return c == '|' || c == '[' || c == ']' || c == '(' || c == ')' || c == ':';
}

// Reads one line. Numbers count where the line has nothing else but strokes; "1st time" counts among other
// words too.
class EndingLine {
public:
    explicit EndingLine(string_view text) : m_Text(text) {}

    std::vector<EndingSign> Read() {
        std::vector<EndingSign> signs;
        bool hasOthers = false;
        while (m_At < m_Text.size()) {
            const std::size_t start = m_At;
            EndingSign sign;
            if (IsStroke(m_Text[m_At]) || IsEdge(m_Text[m_At]) || m_Text[m_At] == ' ') {
                ++m_At;
            } else if (Nvr::Ascii::IsDigit(m_Text[m_At]) && ReadSign(sign)) {
                signs.push_back(std::move(sign));
            } else {
                hasOthers = true;
                m_At = std::min(m_Text.find(' ', start), m_Text.size());
            }
        }
        if (hasOthers)
            std::erase_if(signs, [](const EndingSign& sign) { return !sign.IsInWords; });
        return signs;
    }

private:
    char At(std::size_t place) const { return place < m_Text.size() ? m_Text[place] : '\0'; }

    bool ReadSign(EndingSign& sign) {
        const std::size_t start = m_At;
        bool isMarked = false;
        char separator = '\0';
        do {
            if (!ReadNumber(separator, sign.Times))
                return false;
            isMarked = ReadOrdinal() || isMarked;
            separator = ReadSeparator();
        } while (separator != '\0');
        // "3 times" says how often.
        if (!isMarked && Nvr::Ascii::StartsWithIgnoreCase(m_Text.substr(m_At), " times"))
            return false;
        sign.IsInWords = ReadWord();
        sign.IsBare = !isMarked && !sign.IsInWords;
        if (sign.IsBare && !IsBracketed(start)) {
            sign.IsWeak = IsInBrackets(start);
            if (!sign.IsWeak)
                return false;
        }
        SetSpan(sign, start);
        return true;
    }

    bool ReadNumber(char separator, std::vector<int>& times) {
        const int number = At(m_At) - '0';
        if (number < 1 || number > kHighestEnding || Nvr::Ascii::IsDigit(At(m_At + 1)))
            return false;
        if (!times.empty() && number <= times.back())
            return false;
        // "1.-3." is the first three.
        for (int between = times.empty() ? number : times.back() + 1; separator == '-' && between < number;
             ++between)
            times.push_back(between);
        times.push_back(number);
        ++m_At;
        return true;
    }

    bool ReadOrdinal() {
        const string_view rest = m_Text.substr(m_At);
        for (const string_view ending : {"st", "nd", "rd", "th"})
            if (Nvr::Ascii::StartsWithIgnoreCase(rest, ending)) {
                m_At += ending.size();
                return true;
            }
        if (At(m_At) != '.')
            return false;
        ++m_At;
        return true;
    }

    // Between two numbers; a zero, and nothing read, where none follows.
    char ReadSeparator() {
        std::size_t next = m_At;
        while (At(next) == ' ' && next < m_At + 1)
            ++next;
        const char separator = At(next);
        if (separator != ',' && separator != '-' && separator != '&' && separator != '+')
            return '\0';
        next += At(next + 1) == ' ' ? 2 : 1;
        if (!Nvr::Ascii::IsDigit(At(next)))
            return '\0';
        m_At = next;
        return separator;
    }

    bool ReadWord() {
        const std::size_t start = m_At + (At(m_At) == ' ' ? 1 : 0);
        std::size_t end = start;
        while (Nvr::Ascii::IsAlpha(At(end)))
            ++end;
        if (!IsOneOf(m_Text.substr(std::min(start, m_Text.size()), end - start),
                     {"time", "times", "ending", "end", "rep", "repeat"}))
            return false;
        m_At = end;
        return true;
    }

    bool IsBracketed(std::size_t start) const {
        const char before = start == 0 ? '\0' : m_Text[start - 1];
        const char after = At(m_At);
        return (before == '_' && after == '_') || ((before == '|' || before == '[') && IsStroke(after));
    }

    bool IsInBrackets(std::size_t start) const {
        const char before = start == 0 ? '\0' : m_Text[start - 1];
        const bool isAtEnd = m_At >= m_Text.size() || m_Text[m_At] == ' ';
        return (before == '(' && At(m_At) == ')') || ((before == '|' || before == '[') && isAtEnd);
    }

    void SetSpan(EndingSign& sign, std::size_t start) {
        constexpr std::size_t kFewestStrokes = 2;
        std::size_t left = start;
        while (left > 0 && IsStroke(m_Text[left - 1]))
            --left;
        if (left > 0 && IsEdge(m_Text[left - 1]))
            --left;
        const std::size_t numberEnd = m_At;
        while (IsStroke(At(m_At)))
            ++m_At;
        sign.IsDrawn = m_At >= numberEnd + kFewestStrokes;
        sign.Span.Column = static_cast<int>(left);
        sign.Span.EndColumn = static_cast<int>(m_At);
    }

    string_view m_Text;
    std::size_t m_At = 0;
};

bool IsRhythmLine(const StaveBars& stave, int line) {
    return std::any_of(stave.Bars.begin(), stave.Bars.end(),
                       [&](const BarReading& bar) { return bar.Bar->GetRhythmLine().m_Line == line; });
}

// A number alone stands at the beginning of its bar, or it counts beats.
bool StandsAtBarStart(const TabReading& reading, const EndingSign& sign) {
    constexpr int kReach = 2;
    return std::abs(reading.GetBars()[sign.Bar].Bar->GetStartColumn() - sign.Span.Column) <= kReach;
}

// The signs of one line over their bars; none when one of them has none, or the line is something else.
std::vector<EndingSign> SignsOf(const TabReading& reading, const StaveBars& stave, int line) {
    std::vector<EndingSign> signs = EndingLine(reading.GetFile().GetLine(line)).Read();
    if (IsRhythmLine(stave, line))
        return {};
    for (EndingSign& sign : signs) {
        const auto bar = BarFrom(reading, stave, sign.Span.Column);
        if (!bar)
            return {};
        sign.Span.Line = line;
        sign.Bar = *bar;
        const auto last = static_cast<std::size_t>(&stave.Bars.back() - reading.GetBars().data());
        // The last stroke may stand over the barline, or right after it.
        constexpr int kOverTheBarline = 2;
        sign.DrawnEnd = BarFrom(reading, stave, sign.Span.EndColumn - 1 - kPlacesBeforeABar - kOverTheBarline)
                            .value_or(last);
        if (sign.IsBare && !StandsAtBarStart(reading, sign))
            return {};
    }
    return signs;
}

// Joins the signs that belong to one repeat, and gives the bars of the clear ones their endings.
class EndingReader {
public:
    EndingReader(const TabReading& reading, BarMarks& marks) : m_Reading(reading), m_Marks(marks) {}

    void Read() {
        for (const StaveBars& stave : StavesWithBars(m_Reading))
            ReadAbove(stave);
        if (m_Signs.empty())
            return;
        PutInOrder();
        for (std::size_t first = 0; first < m_Signs.size();) {
            const std::size_t end = EndOfGroup(first);
            ReadGroup(std::span(m_Signs).subspan(first, end - first));
            first = end;
        }
    }

private:
    void ReadAbove(const StaveBars& stave) {
        const int first = stave.Stave->GetFirstLine();
        for (int line = first - 1; line >= 0 && line >= first - kLinesAbove; --line) {
            if (m_Reading.GetAnalysis().IsStaveLine(line))
                return;
            std::vector<EndingSign> signs = SignsOf(m_Reading, stave, line);
            if (signs.empty())
                continue;
            std::move(signs.begin(), signs.end(), std::back_inserter(m_Signs));
            return;
        }
    }

    // Parts that sound together may each have the sign of one ending.
    void PutInOrder() {
        m_Order.emplace(m_Reading);
        for (EndingSign& sign : m_Signs) {
            sign.Bar = m_Order->PlaceOf(sign.Bar);
            sign.DrawnEnd = m_Order->PlaceOf(sign.DrawnEnd);
        }
        std::stable_sort(m_Signs.begin(), m_Signs.end(),
                         [](const EndingSign& a, const EndingSign& b) { return a.Bar < b.Bar; });
        const auto isOfAnotherPart = [&](const EndingSign& sign, const EndingSign& before) {
            return sign.Bar == before.Bar && sign.Times == before.Times && sign.Span.Line != before.Span.Line;
        };
        std::vector<EndingSign> signs;
        for (EndingSign& sign : m_Signs)
            if (signs.empty() || !isOfAnotherPart(sign, signs.back()))
                signs.push_back(std::move(sign));
            else
                m_Marks.Signs.push_back(sign.Span);
        m_Signs = std::move(signs);
    }

    std::size_t EndOfGroup(std::size_t first) const {
        std::size_t end = first + 1;
        while (end < m_Signs.size() && m_Signs[end].Times.front() == m_Signs[end - 1].Times.back() + 1 &&
               m_Signs[end].Bar > m_Signs[end - 1].Bar)
            ++end;
        return end;
    }

    bool IsEnd(std::size_t place) const {
        const std::vector<std::size_t>& bars = m_Order->BarsAt(place);
        return std::any_of(bars.begin(), bars.end(), [&](std::size_t bar) { return IsEndInPart(bar); });
    }

    bool IsEndInPart(std::size_t bar) const {
        const auto mark = m_Marks.ByBar.find(bar);
        return mark != m_Marks.ByBar.end() && mark->second.Repeats.IsEnd;
    }

    void ReadGroup(std::span<const EndingSign> group) {
        const char* why = WhatIsUnclear(group);
        // Nobody says that they were meant as endings.
        if (why != nullptr &&
            std::all_of(group.begin(), group.end(), [](const EndingSign& sign) { return sign.IsWeak; }))
            return;
        for (const EndingSign& sign : group) {
            if (why != nullptr)
                m_Marks.Unclear.push_back({sign.Span, why});
            else
                m_Marks.Signs.push_back(sign.Span);
        }
        if (why != nullptr)
            return;
        for (std::size_t index = 0; index < group.size(); ++index) {
            const std::size_t end = index + 1 < group.size() ? group[index + 1].Bar : EndOfLast(group[index]);
            for (std::size_t place = group[index].Bar; place < end; ++place)
                for (const std::size_t bar : m_Order->BarsAt(place))
                    m_Marks.At(bar).Repeats.Endings = group[index].Times;
            // An ending that is not the last is followed by another time.
            const bool isLast = index + 1 == group.size();
            for (const std::size_t bar : m_Order->BarsAt(end - 1))
                m_Marks.At(bar).Repeats.Times = group[index].Times.back() + (isLast ? 0 : 1);
        }
    }

    // Null when all is clear: each ending but the last goes on to the sign of the next, and ends a repeat
    // there alone.
    const char* WhatIsUnclear(std::span<const EndingSign> group) const {
        if (group.front().Times.front() != 1)
            return "there is no first ending before it";
        if (group.size() == 1)
            return "there is no second ending after it";
        for (std::size_t index = 0; index + 1 < group.size(); ++index)
            for (std::size_t bar = group[index].Bar; bar < group[index + 1].Bar; ++bar)
                if (IsEnd(bar) != (bar + 1 == group[index + 1].Bar))
                    return "no repeat sign says where the first ending ends";
        return nullptr;
    }

    // The bar after it.
    std::size_t EndOfLast(const EndingSign& sign) const {
        if (sign.IsDrawn)
            return std::max(sign.DrawnEnd, sign.Bar) + 1;
        constexpr std::size_t kMostBars = 16;
        const std::size_t most = std::min(sign.Bar + kMostBars, m_Order->GetCount());
        if (sign.Times.size() > 1)
            for (std::size_t bar = sign.Bar; bar < most; ++bar)
                if (IsEnd(bar))
                    return bar + 1;
        return sign.Bar + 1;
    }

    const TabReading& m_Reading;
    BarMarks& m_Marks;
    std::vector<EndingSign> m_Signs;
    // Known with the signs; asked about only where there are any.
    std::optional<BarOrder> m_Order;
};

} // namespace

std::optional<std::size_t> BarFrom(const TabReading& reading, const StaveBars& stave, int column) {
    const Fretline::TabBar& last = *stave.Bars.back().Bar;
    if (column > last.GetStartColumn() + last.GetWidth())
        return std::nullopt;
    const auto after =
        std::upper_bound(stave.Bars.begin() + 1, stave.Bars.end(), column + kPlacesBeforeABar,
                         [](int place, const BarReading& bar) { return place < bar.Bar->GetStartColumn(); });
    return static_cast<std::size_t>(&*(after - 1) - reading.GetBars().data());
}

void ReadEndings(const TabReading& reading, BarMarks& marks) {
    EndingReader(reading, marks).Read();
}

} // namespace TabText
