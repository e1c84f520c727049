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

// Where the number begins that a bend sign at `at` is followed by, a bracket skipped.
Number TargetAfter(const string& text, std::size_t at) {
    return NumberAt(text, at + (IsSign(text, at, '(') ? 1 : 0));
}

bool IsTarget(char sign, int from, int target) {
    if (sign == 'r')
        return target < from && from - target <= kMostSemitonesOfABend;
    return from > 0 && target >= from && target - from <= kMostSemitonesOfABend;
}

void Blank(string& text, const Number& number) {
    text.replace(number.Start, number.End - number.Start, number.End - number.Start, '-');
}

// "1/2" after the sign: how far, in whole tones.
bool BlankFraction(string& text, const Number& upper) {
    if (!IsSign(text, upper.End, '/'))
        return false;
    const Number lower = NumberAt(text, upper.End + 1);
    const bool isFraction = (upper.Value == 1 || upper.Value == 3) && (lower.Value == 2 || lower.Value == 4);
    if (!isFraction || upper.End != upper.Start + 1 || lower.End != lower.Start + 1)
        return false;
    Blank(text, upper);
    Blank(text, lower);
    return true;
}

// Blanks what is bent to from the fret, and what that is released to. Gives the place to go on at.
std::size_t BlankTargetsOf(string& text, const Number& struck) {
    int from = struck.Value;
    std::size_t at = struck.End;
    while (at < text.size() && (text[at] == 'b' || text[at] == 'r' || text[at] == '^')) {
        const char sign = text[at];
        const Number target = TargetAfter(text, at + 1);
        if (sign != 'r' && BlankFraction(text, target))
            return target.End;
        if (!target.IsFret()) {
            // "7br5": bent and released at once.
            ++at;
            continue;
        }
        if (!IsTarget(sign, from, target.Value))
            return at + 1;
        from = target.Value;
        Blank(text, target);
        at = target.End + (IsSign(text, target.End, ')') ? 1 : 0);
    }
    return at;
}

string WithoutTargets(string text) {
    for (std::size_t at = 0; at < text.size();) {
        const Number number = NumberAt(text, at);
        at = number.IsFret() ? BlankTargetsOf(text, number) : std::max(number.End, at + 1);
    }
    return text;
}

} // namespace

void RunBends(Draft& draft) {
    const DraftReading reading(draft);
    for (const auto& stave : reading.GetStaves())
        for (int line = stave->GetFirstLine(); line < stave->GetEndLine(); ++line)
            draft.Overwrite(line, WithoutTargets(draft.GetLine(line)));
}

} // namespace TabText
