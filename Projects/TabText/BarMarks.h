#pragma once

#include "Projects/TabText/Markings.h"
#include "Projects/TabText/StaveBars.h"

#include <map>
#include <optional>

namespace TabText {

/// As many lines above a stave are looked at.
constexpr int kLinesAbove = 3;

/// Gathers what is said of the bars.
struct BarMarks {
    /// By index into TabReading::GetBars.
    std::map<std::size_t, BarMark> ByBar;
    std::vector<SignSpan> Signs;
    std::vector<UnclearSign> Unclear;

    BarMark& At(std::size_t bar) {
        BarMark& mark = ByBar[bar];
        mark.Bar = bar;
        return mark;
    }
};

/// A barline and the last place of the bar before it.
constexpr int kPlacesBeforeABar = 2;

/// The bar of the stave over which something begins at the column; kPlacesBeforeABar belong to it. Nothing
/// right of the stave; left of it, the first bar. An index into TabReading::GetBars.
std::optional<std::size_t> BarFrom(const TabReading& reading, const StaveBars& stave, int column);

/// The endings of repeats, above the staves: "1." and "2.", "1st time" and "2nd time", brackets such as
/// "|1.----|" and "___1___". The repeat signs of the text have been read into `marks`. An ending that the
/// signs do not fit is unclear.
void ReadEndings(const TabReading& reading, BarMarks& marks);

/// The one jump of a text and the signs that it needs: "D.C. al Fine", "D.S. al Coda", "Fine", "Segno",
/// "To Coda", "Coda". A jump without what it needs is unclear, as is a sign that could belong to two bars.
/// Words that no jump needs are no signs.
void ReadJumps(const TabReading& reading, BarMarks& marks);

/// Each tempo after the first that is stated above a stave.
void ReadTempoChanges(const TabReading& reading, BarMarks& marks);

} // namespace TabText
