#include "Projects/TabText/StringMarks.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/TabText/BendAmounts.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <optional>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabFile;
using Nvr::Ascii::IsDigit;
using Score::ModelTechnique;
using Score::Technique;

// A fret number or a dead note on one line of a bar. Places count in the bar's text.
struct Stop {
    std::size_t Start = 0;
    std::size_t End = 0;
    int Fret = 0;
    bool IsDead = false;
};

bool IsDead(char c) {
    return c == 'x' || c == 'X';
}

// Walks one line of a bar from stop to stop.
class StringReader {
public:
    // `next` is the bar after it on the stave, null for the last.
    StringReader(const TabBar& bar, const TabBar* next, std::size_t barIndex, const SignMeanings& signs,
                 std::vector<NoteMark>& marks)
        : m_File(bar.GetFile()), m_BarIndex(barIndex), m_StartColumn(bar.GetStartColumn()),
          m_Width(bar.GetWidth()),
          m_WidthWithNext(next == nullptr ? m_Width
                                          : next->GetStartColumn() + next->GetWidth() - m_StartColumn),
          m_Signs(signs), m_Marks(marks) {}

    void Read(int line) {
        m_Line = line;
        m_Text = m_File.GetStretch(line, m_StartColumn, m_WidthWithNext);
        m_OwnEnd = std::min(m_Text.size(), static_cast<std::size_t>(m_Width));
        m_GhostsEnd = m_HarmonicsEnd = m_AmountEnd = 0;
        m_Before.reset();
        m_FirstSign = m_Text.size();
        for (FindStop(0, m_OwnEnd); m_After; FindStop(m_Before->End, m_OwnEnd)) {
            ReadSigns();
            ReadStop(*m_After);
            m_Before = m_After;
            m_FirstSign = m_Text.size();
        }
        if (!m_Before)
            return;
        // What is played on from the bar's last stop may lead to the next bar's first one.
        FindStop(m_OwnEnd, m_Text.size());
        ReadSigns();
    }

private:
    // Goes on to the next stop, and keeps in mind where the first sign before it stands.
    void FindStop(std::size_t start, std::size_t end) {
        m_After.reset();
        // Most of a string is dashes.
        for (std::size_t at = m_Text.find_first_not_of('-', start); at < end;
             at = m_Text.find_first_not_of('-', at + 1)) {
            if (IsDigit(m_Text[at]) || IsDead(m_Text[at])) {
                m_After = StopAt(at);
                return;
            }
            if (at < m_FirstSign && SignAt(at) != nullptr)
                m_FirstSign = at;
        }
    }

    Stop StopAt(std::size_t at) const {
        constexpr std::size_t kDigitsOfAFret = 2;
        if (IsDead(m_Text[at]))
            return {at, at + 1, 0, true};
        Stop stop{at, at, 0, false};
        for (; IsDigit(At(stop.End)); ++stop.End)
            if (stop.End - at < kDigitsOfAFret)
                stop.Fret = stop.Fret * 10 + (m_Text[stop.End] - '0');
        return stop;
    }

    char At(std::size_t place) const { return place < m_Text.size() ? m_Text[place] : '\0'; }

    void Add(const Stop& stop, ModelTechnique what, std::size_t start, std::size_t end) {
        const auto column = [&](std::size_t place) { return m_StartColumn + static_cast<int>(place); };
        // "*12*" says it twice; "10b12b14" goes on.
        if (what.Kind != Technique::Bend && !m_Marks.empty() && m_Marks.back().What == what &&
            m_Marks.back().Bar == m_BarIndex && m_Marks.back().NoteLine == m_Line &&
            m_Marks.back().NoteColumn == column(stop.Start)) {
            m_Marks.back().EndColumn = column(end);
            return;
        }
        m_Marks.push_back({what, m_BarIndex, m_Line, column(stop.Start), m_Line, column(start), column(end)});
    }

    void ReadStop(const Stop& stop) {
        if (stop.IsDead)
            Add(stop, {Technique::Dead, 0}, stop.Start, stop.End);
        const char beforeBracket = stop.Start < 2 ? '\0' : m_Text[stop.Start - 2];
        if (beforeBracket != 'b' && beforeBracket != 'r')
            ReadInBrackets(stop, "()", Technique::Ghost, m_GhostsEnd);
        ReadInBrackets(stop, "<>", Technique::NaturalHarmonic, m_HarmonicsEnd);
    }

    // Brackets may hold several stops: "(5h7)". `bracketsEnd` is the place after the last pair.
    void ReadInBrackets(const Stop& stop, std::string_view brackets, Technique kind,
                        std::size_t& bracketsEnd) {
        const bool isFirst = stop.Start > 0 && m_Text[stop.Start - 1] == brackets[0];
        if (isFirst) {
            const std::size_t next = m_Text.find_first_of(brackets, stop.End);
            const bool isClosed = next < m_OwnEnd && m_Text[next] == brackets[1];
            bracketsEnd = isClosed ? next + 1 : 0;
        }
        if (stop.Start >= bracketsEnd)
            return;
        const std::size_t nextStop = m_Text.find_first_of("0123456789xX", stop.End);
        const bool isLast = nextStop >= bracketsEnd;
        Add(stop, {kind, 0}, stop.Start - (isFirst ? 1 : 0), isLast ? bracketsEnd : stop.End);
    }

    // The signs between the stop before and the next one.
    void ReadSigns() {
        const std::size_t end = m_After ? m_After->Start : m_OwnEnd;
        for (std::size_t at = m_FirstSign; at < end; at = m_Text.find_first_not_of('-', at)) {
            const Sign* sign = SignAt(at);
            at = sign == nullptr ? at + 1 : ReadSign(*sign, at, end);
        }
    }

    const Sign* SignAt(std::size_t at) const {
        // A capital among letters is one of a word.
        const bool isOfAWord =
            Nvr::Ascii::IsUpper(m_Text[at]) &&
            (Nvr::Ascii::IsAlpha(At(at + 1)) || (at > 0 && Nvr::Ascii::IsAlpha(m_Text[at - 1])));
        const Sign* sign = IsTrill(at) ? TrillSign() : isOfAWord ? nullptr : m_Signs.Find(m_Text[at]);
        // After the barline, all but this belongs to the next bar's first note.
        const bool isOfNextBar = at >= m_OwnEnd && sign != nullptr && sign->Place != SignPlace::Between;
        return isOfNextBar ? nullptr : sign;
    }

    bool IsTrill(std::size_t at) const { return Nvr::Ascii::StartsWithIgnoreCase(m_Text.substr(at), "tr"); }

    static const Sign* TrillSign() {
        const auto signs = AllSigns();
        return &*std::find_if(signs.begin(), signs.end(), [](const Sign& sign) { return sign.Text == "tr"; });
    }

    // Gives the place after the sign.
    std::size_t ReadSign(const Sign& sign, std::size_t at, std::size_t end) {
        std::size_t after = at + (sign.Kind == Technique::Trill && IsTrill(at) ? 2 : 1);
        // A wave of one sign is one mark.
        while (after < end && sign.Kind == Technique::Vibrato && m_Text[after] == m_Text[at])
            ++after;
        switch (sign.Place) {
        case SignPlace::Between:
            ReadBetween(sign, at);
            break;
        case SignPlace::Slide:
            ReadSlide(at);
            break;
        case SignPlace::Before:
            if (IsRightBeforeNext(after))
                Add(*m_After, {sign.Kind, 0}, at, after);
            break;
        default:
            ReadAfter(sign, at, after, end);
            break;
        }
        return after;
    }

    // Nothing but a bracket stands between.
    bool IsRightBeforeNext(std::size_t after) const {
        return m_After && after + (At(after) == '<' || At(after) == '(' ? 1 : 0) == m_After->Start;
    }

    void ReadAfter(const Sign& sign, std::size_t at, std::size_t after, std::size_t end) {
        const bool isApart = !m_Before || m_Before->End != at;
        // "*12"
        if (sign.Kind == Technique::NaturalHarmonic && isApart && m_After && after == m_After->Start &&
            m_After->Start < m_OwnEnd) {
            Add(*m_After, {sign.Kind, 0}, at, after);
            return;
        }
        if (!m_Before || m_Before->IsDead || (sign.Kind == Technique::Bend && !IsBend(at, after)))
            return;
        if (sign.Kind == Technique::Bend && IsBackToTheFret(after)) {
            Add(*m_Before, {Technique::Release, 0}, at, after);
            return;
        }
        const int amount = AmountOf(sign.Kind, after, end);
        Add(*m_Before, {sign.Kind, amount}, at,
            sign.Kind == Technique::Bend ? m_AmountEnd : EndOfTarget(after));
    }

    // After the brackets around the number that follows; where it follows in none, after the sign.
    std::size_t EndOfTarget(std::size_t after) const {
        const bool isInBrackets =
            m_After && At(after) == '(' && m_After->Start == after + 1 && At(m_After->End) == ')';
        return isInBrackets ? m_After->End + 1 : after;
    }

    // A sign at the next number alone bends to that, or does not belong to what is before.
    bool IsBend(std::size_t at, std::size_t after) const {
        return Touches(*m_Before, at) || !m_After || m_After->Start != after ||
               m_After->Fret > m_Before->Fret;
    }

    // The second of "7b9b7".
    bool IsBackToTheFret(std::size_t after) const {
        return IsAmountOfABend(*m_Before) && m_After && m_After->Start == after &&
               m_After->Fret < m_Before->Fret;
    }

    void ReadBetween(const Sign& sign, std::size_t at) {
        if (!m_Before || !m_After || m_Before->IsDead || m_After->IsDead)
            return;
        // "pb" is a bend, and "^" leads nowhere from a fret to itself.
        if ((sign.Kind == Technique::PullOff && At(at + 1) == 'b') ||
            (sign.Text == "^" && m_After->Fret == m_Before->Fret))
            return;
        if (GoesOnBending(sign, at)) {
            Add(*m_Before, {Technique::Bend, (m_After->Fret - m_Before->Fret) * kQuarterTonesPerSemitone}, at,
                at + 1);
            return;
        }
        Technique kind = sign.Kind;
        if (sign.Text == "^" && m_After->Fret < m_Before->Fret)
            kind = Technique::PullOff;
        Add(*m_Before, {kind, 0}, at, at + 1);
    }

    // "10b12^13"
    bool GoesOnBending(const Sign& sign, std::size_t at) const {
        return sign.Text == "^" && IsAmountOfABend(*m_Before) && m_Before->End == at &&
               m_After->Start == at + 1 && m_After->Fret > m_Before->Fret;
    }

    // True when the sign at `at` leads on from `stop`, or to it, with no dash and little else between them.
    bool Touches(const Stop& stop, std::size_t at) const {
        constexpr std::size_t kReach = 4;
        const std::size_t start = std::min(stop.End, at);
        const std::size_t end = std::max(stop.Start, at);
        return end - start <= kReach && m_Text.substr(start, end - start).find('-') == std::string_view::npos;
    }

    bool IsAmountOfABend(const Stop& stop) const { return stop.Start > 0 && m_Text[stop.Start - 1] == 'b'; }

    void ReadSlide(std::size_t at) {
        // The stroke of "1/2".
        if (at < m_AmountEnd)
            return;
        const bool leadsFrom = m_Before && !m_Before->IsDead;
        const bool leadsTo = m_After && !m_After->IsDead;
        const bool touchesBefore = leadsFrom && Touches(*m_Before, at);
        const bool touchesAfter = leadsTo && Touches(*m_After, at);
        const int direction = m_Text[at] == '/' ? 1 : m_Text[at] == '\\' ? -1 : 0;
        if (leadsFrom && leadsTo && touchesBefore == touchesAfter)
            Add(*m_Before, {Technique::Slide, 0}, at, at + 1);
        else if (touchesBefore && direction != 0)
            Add(*m_Before, {Technique::SlideOut, direction}, at, at + 1);
        else if (touchesAfter && direction != 0 && m_After->Start < m_OwnEnd)
            Add(*m_After, {Technique::SlideIn, direction}, at, at + 1);
    }

    // In quarter tones for a bend, as a fret for a trill.
    int AmountOf(Technique kind, std::size_t after, std::size_t end) {
        if (kind == Technique::Trill) {
            const std::size_t bracket = At(after) == '(' ? 1 : 0;
            return m_After && after + bracket == end ? m_After->Fret : 0;
        }
        if (kind != Technique::Bend)
            return 0;
        const BendAmount amount = ReadBendAmount(m_Text, after, m_Before->Fret);
        m_AmountEnd = amount.End;
        return amount.QuarterTones > 0 ? amount.QuarterTones : kQuarterTonesPerTone;
    }

    const TabFile& m_File;
    std::size_t m_BarIndex;
    int m_StartColumn;
    int m_Width;
    // Up to the end of the next bar, or of this one where it is the last.
    int m_WidthWithNext;
    const SignMeanings& m_Signs;
    std::vector<NoteMark>& m_Marks;
    // All below is of the present line. The text goes on to the end of the next bar, if there is one.
    int m_Line = 0;
    std::string_view m_Text;
    std::size_t m_OwnEnd = 0;
    std::optional<Stop> m_Before;
    std::optional<Stop> m_After;
    // The first after m_Before; the end of the text where there is none.
    std::size_t m_FirstSign = 0;
    // The places after the last brackets of each kind.
    std::size_t m_GhostsEnd = 0;
    std::size_t m_HarmonicsEnd = 0;
    // The place after what says how far the last bend goes.
    std::size_t m_AmountEnd = 0;
};

} // namespace

void ReadStringMarks(const TabBar& bar, const TabBar* next, std::size_t barIndex, const SignMeanings& signs,
                     std::vector<NoteMark>& marks) {
    StringReader reader(bar, next, barIndex, signs, marks);
    for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
        reader.Read(line);
}

} // namespace TabText
