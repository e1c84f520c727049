#include "Projects/TabText/BendsAbove.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/BarMarks.h"
#include "Projects/TabText/BendAmounts.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <limits>

namespace TabText {

namespace {

struct AmountSign {
    int QuarterTones = 0;
    SignSpan Span;
};

// The amounts of a line, each two blanks or more away from anything else.
struct AmountLine {
    std::vector<AmountSign> Amounts;
    bool HasOthers = false;
};

AmountLine AmountsOf(const TabReading& reading, int line) {
    const std::string_view text = reading.GetFile().GetLine(line);
    AmountLine found;
    for (std::size_t at = text.find_first_not_of(' '); at < text.size();
         at = text.find_first_not_of(' ', at)) {
        const BendAmount amount = ReadBendAmount(text, at, std::numeric_limits<int>::max());
        const std::size_t end = std::max(amount.End, std::min(text.find("  ", at), text.size()));
        const std::string_view word = text.substr(at, amount.End - at);
        // A number alone is something else.
        const bool isAmount = word.find('/') != std::string_view::npos || FindInAnyCase(word, "full") == 0;
        if (isAmount && end == amount.End)
            found.Amounts.push_back(
                {amount.QuarterTones, {line, static_cast<int>(at), static_cast<int>(end)}});
        else
            found.HasOthers = true;
        at = end;
    }
    // "3/4" alone is a time signature.
    constexpr int kThreeQuarters = 3;
    if (found.Amounts.size() == 1 && found.Amounts[0].QuarterTones == kThreeQuarters)
        found.Amounts.clear();
    return found;
}

// How many columns lie between a note with its bend and the amount above it.
int DistanceTo(const NoteMark& mark, const SignSpan& sign) {
    return std::max({mark.NoteColumn - sign.EndColumn + 1, sign.Column - mark.EndColumn + 1, 0});
}

NoteMark* BendUnder(const AmountSign& amount, std::span<NoteMark> marks) {
    constexpr int kReach = 2;
    NoteMark* nearest = nullptr;
    for (NoteMark& mark : marks) {
        const bool saysNothing = mark.EndColumn == mark.Column + 1;
        if (mark.What.Kind == Score::Technique::Bend && saysNothing &&
            DistanceTo(mark, amount.Span) <= kReach &&
            (nearest == nullptr || DistanceTo(mark, amount.Span) < DistanceTo(*nearest, amount.Span)))
            nearest = &mark;
    }
    return nearest;
}

// The marks of the stave, which are ordered by bar.
std::span<NoteMark> MarksOf(const TabReading& reading, const StaveBars& stave, std::vector<NoteMark>& marks) {
    const auto first = static_cast<std::size_t>(stave.Bars.data() - reading.GetBars().data());
    const auto place = [&](std::size_t bar) {
        return std::lower_bound(marks.begin(), marks.end(), bar,
                                [](const NoteMark& mark, std::size_t wanted) { return mark.Bar < wanted; }) -
               marks.begin();
    };
    NoteMark* const data = marks.data();
    return {data + place(first), data + place(first + stave.Bars.size())};
}

} // namespace

void ReadBendsAbove(const TabReading& reading, std::vector<NoteMark>& marks,
                    std::vector<UnclearSign>& unclear) {
    for (const StaveBars& stave : StavesWithBars(reading)) {
        const int first = stave.Stave->GetFirstLine();
        for (int line = first - 1; line >= std::max(first - kLinesAbove, 0); --line) {
            if (reading.GetAnalysis().IsStaveLine(line))
                break;
            const AmountLine found = AmountsOf(reading, line);
            for (const AmountSign& amount : found.Amounts) {
                NoteMark* bend = BendUnder(amount, MarksOf(reading, stave, marks));
                if (bend != nullptr)
                    bend->What.Amount = amount.QuarterTones;
                else if (!found.HasOthers)
                    unclear.push_back({amount.Span, "no bend stands under it"});
            }
        }
    }
}

} // namespace TabText
