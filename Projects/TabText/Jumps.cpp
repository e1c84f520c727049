#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/BarMarks.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using std::string_view;

enum class WaySign { Segno, Coda, ToCoda, Fine, Jump };
constexpr std::size_t kWaySigns = 5;

struct FoundSign {
    WaySign Kind = WaySign::Segno;
    Score::Jump To = Score::Jump::None;
    Score::JumpEnd Until = Score::JumpEnd::End;
    SignSpan Span;
    // "%" for the segno, which may mean something else.
    bool IsSymbol = false;
    // None where its place is not clear.
    std::optional<std::size_t> Bar = {};
};

// Finds the signs of one line.
class WayLine {
public:
    explicit WayLine(string_view text) : m_Text(text), m_Words(WordsOf(text)) {}

    std::vector<FoundSign> Read() {
        std::vector<FoundSign> signs;
        for (m_At = 0; m_At < m_Words.size(); ++m_At)
            if (const std::size_t count = ReadSign(); count > 0) {
                m_Sign.Span.Column = m_Words[m_At].Column;
                m_Sign.Span.EndColumn = m_Words[m_At + count - 1].GetEndColumn();
                if (StandsAlone(m_Sign))
                    signs.push_back(m_Sign);
                m_At += count - 1;
            }
        return signs;
    }

private:
    bool Is(std::size_t ahead, std::initializer_list<string_view> words) const {
        return m_At + ahead < m_Words.size() &&
               IsOneOf(WithoutPunctuation(m_Words[m_At + ahead]).Text, words);
    }

    // The number of words that the sign has; 0 for none.
    std::size_t ReadSign() {
        m_Sign = {};
        if (const std::size_t count = ReadJump(); count > 0)
            return count + ReadJumpEnd(count);
        if (Is(0, {"to"}) && Is(1, {"coda"})) {
            m_Sign.Kind = WaySign::ToCoda;
            return 2;
        }
        if (Is(0, {"%", "segno"})) {
            const bool hasBoth = Is(1, {Is(0, {"%"}) ? "segno" : "%"});
            m_Sign.Kind = WaySign::Segno;
            m_Sign.IsSymbol = Is(0, {"%"}) && !hasBoth;
            return hasBoth ? 2 : 1;
        }
        for (const auto& [word, kind] : {std::pair{"coda", WaySign::Coda}, std::pair{"fine", WaySign::Fine}})
            if (Is(0, {word})) {
                m_Sign.Kind = kind;
                return 1;
            }
        return 0;
    }

    std::size_t ReadJump() {
        m_Sign.Kind = WaySign::Jump;
        if (Is(0, {"d.c", "dc"}) || (Is(0, {"da"}) && Is(1, {"capo"}))) {
            m_Sign.To = Score::Jump::DaCapo;
            return Is(0, {"da"}) ? 2 : 1;
        }
        if (Is(0, {"d.s", "ds"}) || (Is(0, {"dal"}) && Is(1, {"segno"}))) {
            m_Sign.To = Score::Jump::DalSegno;
            return Is(0, {"dal"}) ? 2 : 1;
        }
        return 0;
    }

    std::size_t ReadJumpEnd(std::size_t from) {
        const bool hasEnd = Is(from, {"al", "to"});
        if (hasEnd && Is(from + 1, {"fine", "end"}))
            m_Sign.Until = Score::JumpEnd::Fine;
        else if (hasEnd && Is(from + 1, {"coda"}))
            m_Sign.Until = Score::JumpEnd::Coda;
        else
            return 0;
        return 2;
    }

    // Among other words it is one of these: two blanks separate a sign from what is none.
    bool StandsAlone(const FoundSign& sign) const {
        const auto start = static_cast<std::size_t>(sign.Span.Column);
        const auto end = static_cast<std::size_t>(sign.Span.EndColumn);
        const bool before = start < 2 || m_Text.substr(start - 2, 2) == "  " ||
                            m_Text.substr(0, start).find_first_not_of(' ') == string_view::npos ||
                            m_Text[start - 1] == '|' || m_Text.substr(start - 2, 2) == "| ";
        const bool after = end + 1 >= m_Text.size() || m_Text.substr(end, 2) == "  ";
        return before && after;
    }

    string_view m_Text;
    std::vector<Word> m_Words;
    std::size_t m_At = 0;
    FoundSign m_Sign;
};

// Finds the bars of the signs, and what of them belongs together.
class JumpReader {
public:
    JumpReader(const TabReading& reading, BarMarks& marks)
        : m_Reading(reading), m_Marks(marks), m_Staves(StavesWithBars(reading)) {}

    void Read() {
        if (m_Staves.empty())
            return;
        for (int line = 0; line < m_Reading.GetFile().GetLineCount(); ++line)
            ReadLine(line);
        if (Count(WaySign::Jump) == 0)
            return;
        if (std::any_of(m_Signs.begin(), m_Signs.end(),
                        [](const FoundSign& sign) { return sign.Kind == WaySign::Segno && !sign.IsSymbol; }))
            std::erase_if(m_Signs, [](const FoundSign& sign) { return sign.IsSymbol; });
        if (const char* why = WhatIsUnclear()) {
            for (const FoundSign& sign : m_Signs)
                if (sign.Kind == WaySign::Jump)
                    m_Marks.Unclear.push_back({sign.Span, why});
            return;
        }
        for (const FoundSign& sign : m_Signs)
            if (IsNeeded(sign.Kind)) {
                Write(sign);
                m_Marks.Signs.push_back(sign.Span);
            }
    }

private:
    void ReadLine(int line) {
        const string_view text = m_Reading.GetFile().GetLine(line);
        while (m_Below < m_Staves.size() && m_Staves[m_Below].Stave->GetEndLine() <= line)
            ++m_Below;
        const bool isInStave = m_Below < m_Staves.size() && m_Staves[m_Below].Stave->GetFirstLine() <= line;
        const std::size_t bar = text.find_last_of('|');
        // On a line of a stave, what stands after it.
        const std::size_t start = !isInStave ? 0 : bar == string_view::npos ? text.size() : bar + 1;
        for (FoundSign& sign : WayLine(text.substr(start)).Read()) {
            sign.Span.Line = line;
            sign.Span.Column += static_cast<int>(start);
            sign.Span.EndColumn += static_cast<int>(start);
            sign.Bar = isInStave ? BarAfterStave(sign) : BarOf(sign);
            m_Signs.push_back(sign);
        }
    }

    static bool BeginsABar(const FoundSign& sign) {
        return sign.Kind == WaySign::Segno || sign.Kind == WaySign::Coda;
    }

    std::size_t IndexOf(const BarReading& bar) const {
        return static_cast<std::size_t>(&bar - m_Reading.GetBars().data());
    }

    std::optional<std::size_t> BarAfterStave(const FoundSign& sign) const {
        if (BeginsABar(sign))
            return std::nullopt;
        return IndexOf(m_Staves[m_Below].Bars.back());
    }

    std::optional<std::size_t> BarOf(const FoundSign& sign) const {
        const StaveBars* above = m_Below == 0 ? nullptr : &m_Staves[m_Below - 1];
        const StaveBars* below = m_Below == m_Staves.size() ? nullptr : &m_Staves[m_Below];
        const int toAbove = above == nullptr ? kLinesAbove : sign.Span.Line - above->Stave->GetEndLine();
        const int toBelow =
            below == nullptr ? kLinesAbove : below->Stave->GetFirstLine() - 1 - sign.Span.Line;
        if (BeginsABar(sign))
            return toBelow < kLinesAbove ? BarFrom(m_Reading, *below, sign.Span.Column) : std::nullopt;
        if (toBelow < kLinesAbove && toBelow <= toAbove && !IsLeftOf(sign, *below))
            return BarEndingAt(sign, *below);
        if (toAbove >= kLinesAbove || (toBelow == 0 && toAbove > 0))
            return std::nullopt;
        return IsLeftOf(sign, *above) ? IndexOf(above->Bars.back()) : BarEndingAt(sign, *above);
    }

    static bool IsLeftOf(const FoundSign& sign, const StaveBars& stave) {
        return sign.Span.Column <= stave.Bars.front().Bar->GetStartColumn();
    }

    // The bar at whose end the sign stands. One that begins with its bar, and ends before it does, could
    // belong to the end of the bar before.
    std::optional<std::size_t> BarEndingAt(const FoundSign& sign, const StaveBars& stave) const {
        constexpr int kReach = 3;
        const int middle = (sign.Span.Column + sign.Span.EndColumn) / 2;
        // The barline belongs to the bar before it.
        const auto index =
            BarFrom(m_Reading, stave, middle - kPlacesBeforeABar - 1).value_or(IndexOf(stave.Bars.back()));
        const Fretline::TabBar& bar = *m_Reading.GetBars()[index].Bar;
        const int end = bar.GetStartColumn() + bar.GetWidth();
        const bool beginsWithIt = sign.Span.Column <= bar.GetStartColumn() + 1;
        return beginsWithIt && sign.Span.EndColumn < end - kReach ? std::nullopt : std::optional(index);
    }

    std::size_t Count(WaySign kind) const {
        return static_cast<std::size_t>(std::count_if(
            m_Signs.begin(), m_Signs.end(), [&](const FoundSign& sign) { return sign.Kind == kind; }));
    }

    const FoundSign* TheOne(WaySign kind) const {
        const auto found = std::find_if(m_Signs.begin(), m_Signs.end(),
                                        [&](const FoundSign& sign) { return sign.Kind == kind; });
        return found == m_Signs.end() || Count(kind) != 1 || !found->Bar ? nullptr : &*found;
    }

    bool IsNeeded(WaySign kind) const {
        const FoundSign& jump = *TheOne(WaySign::Jump);
        switch (kind) {
        case WaySign::Segno:
            return jump.To == Score::Jump::DalSegno;
        case WaySign::Fine:
            return jump.Until == Score::JumpEnd::Fine;
        case WaySign::Coda:
        case WaySign::ToCoda:
            return jump.Until == Score::JumpEnd::Coda;
        default:
            return true;
        }
    }

    // Null when the way is clear.
    const char* WhatIsUnclear() const {
        if (Count(WaySign::Jump) > 1)
            return "the text has another jump";
        const FoundSign* jump = TheOne(WaySign::Jump);
        if (jump == nullptr)
            return "it is not clear which bar it ends";
        struct Needed {
            WaySign Kind;
            const char* Why;
        };
        constexpr std::array<Needed, kWaySigns - 1> kNeeded{{
            {WaySign::Segno, "no single bar begins with the Segno"},
            {WaySign::Fine, "no single bar ends with the Fine"},
            {WaySign::ToCoda, "no single bar ends with \"To Coda\""},
            {WaySign::Coda, "no single bar begins with the Coda"},
        }};
        for (const Needed& needed : kNeeded)
            if (IsNeeded(needed.Kind) && TheOne(needed.Kind) == nullptr)
                return needed.Why;
        return IsInOrder(*jump) ? nullptr : "the signs that it leads to stand in another order";
    }

    bool IsInOrder(const FoundSign& jump) const {
        const std::size_t start = jump.To == Score::Jump::DalSegno ? *TheOne(WaySign::Segno)->Bar : 0;
        const auto isBetween = [&](const FoundSign& sign) {
            return start <= *sign.Bar && *sign.Bar <= *jump.Bar;
        };
        if (start > *jump.Bar)
            return false;
        if (jump.Until == Score::JumpEnd::Fine)
            return isBetween(*TheOne(WaySign::Fine));
        return jump.Until == Score::JumpEnd::End ||
               (isBetween(*TheOne(WaySign::ToCoda)) && *TheOne(WaySign::Coda)->Bar > *jump.Bar);
    }

    void Write(const FoundSign& sign) {
        Score::ModelWay& way = m_Marks.At(*sign.Bar).Way;
        switch (sign.Kind) {
        case WaySign::Segno:
            way.HasSegno = true;
            break;
        case WaySign::Coda:
            way.HasCoda = true;
            break;
        case WaySign::ToCoda:
            way.HasToCoda = true;
            break;
        case WaySign::Fine:
            way.HasFine = true;
            break;
        case WaySign::Jump:
            way.To = sign.To;
            way.Until = sign.Until;
            break;
        }
    }

    const TabReading& m_Reading;
    BarMarks& m_Marks;
    std::vector<StaveBars> m_Staves;
    // The first stave that does not end above the present line.
    std::size_t m_Below = 0;
    std::vector<FoundSign> m_Signs;
};

} // namespace

void ReadJumps(const TabReading& reading, BarMarks& marks) {
    JumpReader(reading, marks).Read();
}

} // namespace TabText
