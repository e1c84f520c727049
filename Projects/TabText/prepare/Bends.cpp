#include "Projects/TabText/BendAmounts.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

namespace TabText {

namespace {

using Nvr::Ascii::IsDigit;
using std::string;

// Nobody bends a string farther.
constexpr int kMostSemitonesOfABend = 5;
constexpr std::size_t kMostDigitsOfAFret = 2;

// A number of one or two digits and where it stands.
struct Number {
    std::size_t Start = 0;
    std::size_t End = 0;
    int Value = 0;

    bool IsFret() const { return End > Start && End - Start <= kMostDigitsOfAFret; }
};

Number NumberAt(const string& text, std::size_t start) {
    Number number{start, start, 0};
    for (; number.End < text.size() && IsDigit(text[number.End]); ++number.End)
        if (number.End - start < kMostDigitsOfAFret)
            number.Value = number.Value * 10 + (text[number.End] - '0');
    return number;
}

bool IsSign(const string& text, std::size_t at, char sign) {
    return at < text.size() && text[at] == sign;
}

// Where the number begins that a release sign at `at` is followed by, a bracket skipped.
Number TargetAfter(const string& text, std::size_t at) {
    return NumberAt(text, at + (IsSign(text, at, '(') ? 1 : 0));
}

// One line of a stave, whose targets are blanked.
class BendLine {
public:
    explicit BendLine(string text) : m_Text(std::move(text)) {}

    void BlankTargets() {
        for (std::size_t at = 0; at < m_Text.size();) {
            const Number number = NumberAt(m_Text, at);
            at = number.IsFret() ? BlankTargetsOf(number) : std::max(number.End, at + 1);
        }
    }

    const string& GetText() const { return m_Text; }
    // How far those go that lost their targets.
    const std::vector<MappedBend>& GetBends() const { return m_Bends; }

private:
    // Blanks what is bent to from the fret, and what that is released to. Gives the place to go on at.
    std::size_t BlankTargetsOf(const Number& struck) {
        m_From = struck.Value;
        m_IsBent = false;
        std::size_t at = struck.End;
        while (at < m_Text.size() && (m_Text[at] == 'b' || m_Text[at] == 'r' || m_Text[at] == '^')) {
            const std::size_t end = m_Text[at] == 'r' ? BlankRelease(at) : BlankBend(at);
            // "7br5": bent and released at once.
            at = end == 0 ? at + 1 : end;
            if (end == 0 && IsFretAt(at))
                return at;
        }
        return at;
    }

    bool IsFretAt(std::size_t at) const { return TargetAfter(m_Text, at).IsFret(); }

    // Each gives the place after the target, 0 when there is none.
    std::size_t BlankBend(std::size_t at) {
        const BendAmount amount = ReadBendAmount(m_Text, at + 1, m_From);
        const bool isBend = amount.QuarterTones > 0 && m_From > 0 && !IsHammered(at) &&
                            amount.QuarterTones <= kMostSemitonesOfABend * kQuarterTonesPerSemitone;
        // Where it goes to a fret and back by the same sign.
        if (!isBend)
            return m_IsBent ? BlankRelease(at) : 0;
        m_Text[at] = 'b';
        // From where an amount of tones would count is not clear.
        const bool isTold = !m_IsBent || TargetAfter(m_Text, at + 1).Value > m_From;
        m_IsBent = true;
        if (m_Text.find_first_of("0123456789", at) >= amount.End)
            return amount.End;
        if (isTold)
            m_Bends.push_back({static_cast<int>(at), amount.QuarterTones});
        m_From += amount.QuarterTones / kQuarterTonesPerSemitone;
        Blank(at + 1, amount.End);
        return amount.End;
    }

    std::size_t BlankRelease(std::size_t at) {
        const Number target = TargetAfter(m_Text, at + 1);
        if (!target.IsFret() || target.Value >= m_From || m_From - target.Value > kMostSemitonesOfABend)
            return 0;
        m_From = target.Value;
        m_Text[at] = 'r';
        const bool isInBrackets = target.Start > at + 1 && IsSign(m_Text, target.End, ')');
        const std::size_t end = target.End + (isInBrackets ? 1 : 0);
        Blank(isInBrackets ? at + 1 : target.Start, end);
        return end;
    }

    // "5^7^5" is played by the fretting hand, as is what leads on to a lower fret.
    bool IsHammered(std::size_t at) const {
        if (m_Text[at] != '^' || m_IsBent)
            return false;
        const Number target = TargetAfter(m_Text, at + 1);
        return IsSign(m_Text, target.End, '^') || IsSign(m_Text, target.End, 'p');
    }

    void Blank(std::size_t start, std::size_t end) { m_Text.replace(start, end - start, end - start, '-'); }

    string m_Text;
    std::vector<MappedBend> m_Bends;
    // The fret that the string sounds.
    int m_From = 0;
    bool m_IsBent = false;
};

} // namespace

void RunBends(Draft& draft) {
    const DraftReading reading(draft);
    for (const auto& stave : reading.GetStaves())
        for (int line = stave->GetFirstLine(); line < stave->GetEndLine(); ++line) {
            BendLine bends(draft.GetLine(line));
            bends.BlankTargets();
            draft.Overwrite(line, bends.GetText());
            for (const MappedBend& bend : bends.GetBends())
                draft.KeepBend(line, bend);
        }
}

} // namespace TabText
