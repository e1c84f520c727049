#include "Projects/TabText/Markings.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/AboveMarks.h"
#include "Projects/TabText/BarMarks.h"
#include "Projects/TabText/BendsAbove.h"
#include "Projects/TabText/HeadingText.h"
#include "Projects/TabText/LineMap.h"
#include "Projects/TabText/RepeatMarks.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/StringMarks.h"
#include "Projects/TabText/TabReading.h"

namespace TabText {

namespace {

// On the same stave, with nothing but a barline between them.
bool IsRightAfter(const Fretline::TabBar& next, const Fretline::TabBar& bar) {
    constexpr int kWidestBarline = 2;
    const int end = bar.GetStartColumn() + bar.GetWidth();
    return next.GetFirstLine() == bar.GetFirstLine() && next.GetStartColumn() <= end + kWidestBarline;
}

void SetBends(const LineMap& map, std::vector<NoteMark>& marks) {
    for (NoteMark& mark : marks)
        if (mark.What.Kind == Score::Technique::Bend)
            if (const int quarterTones = map.QuarterTonesOfBend(mark.Line, mark.Column); quarterTones > 0)
                mark.What.Amount = quarterTones;
}

bool IsOfTheSameNote(const NoteMark& a, const NoteMark& b) {
    return a.Bar == b.Bar && a.NoteLine == b.NoteLine && a.NoteColumn == b.NoteColumn;
}

// A note that is bent farther ("10b12b13") has a second bend, which the text must say the amount of.
void TakeVagueBends(const LineMap* map, Markings& markings) {
    std::vector<NoteMark> kept;
    bool isBent = false;
    for (const NoteMark& mark : markings.Notes) {
        const bool isBend = mark.What.Kind == Score::Technique::Bend;
        isBent = isBent && IsOfTheSameNote(kept.back(), mark) && mark.What.Kind != Score::Technique::Release;
        if (isBend && isBent && (map == nullptr || map->QuarterTonesOfBend(mark.Line, mark.Column) == 0)) {
            markings.Unclear.push_back({{mark.Line, mark.Column, mark.EndColumn},
                                        "it is not clear how far the bend before it goes on"});
            continue;
        }
        isBent = isBent || isBend;
        kept.push_back(mark);
    }
    markings.Notes = std::move(kept);
}

} // namespace

Markings ReadMarkings(const TabReading& reading, const LineMap* map) {
    const SignMeanings signs(reading);
    Markings markings;
    const std::vector<BarReading>& bars = reading.GetBars();
    for (std::size_t index = 0; index < bars.size(); ++index) {
        const Fretline::TabBar& bar = *bars[index].Bar;
        const Fretline::TabBar* next = index + 1 < bars.size() ? bars[index + 1].Bar : nullptr;
        if (next != nullptr && !IsRightAfter(*next, bar))
            next = nullptr;
        ReadStringMarks(bar, next, index, signs, markings.Notes);
    }
    ReadBendsAbove(reading, markings.Notes, markings.Unclear);
    if (map != nullptr)
        SetBends(*map, markings.Notes);
    TakeVagueBends(map, markings);
    ReadMarksAbove(reading, markings.Notes, markings.Unclear);
    markings.Heading = ReadHeading(reading);
    BarMarks found;
    ReadRepeats(reading, found);
    ReadEndings(reading, found);
    ReadJumps(reading, found);
    ReadTempoChanges(reading, found);
    for (auto& [bar, mark] : found.ByBar)
        markings.Bars.push_back(std::move(mark));
    markings.BarSigns = std::move(found.Signs);
    markings.Unclear.insert(markings.Unclear.end(), found.Unclear.begin(), found.Unclear.end());
    return markings;
}

} // namespace TabText
