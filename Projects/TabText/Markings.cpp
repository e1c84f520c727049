#include "Projects/TabText/Markings.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/AboveMarks.h"
#include "Projects/TabText/HeadingText.h"
#include "Projects/TabText/RepeatMarks.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/StringMarks.h"
#include "Projects/TabText/TabReading.h"

namespace TabText {

Markings ReadMarkings(const TabReading& reading) {
    const SignMeanings signs(reading);
    Markings markings;
    std::size_t barIndex = 0;
    for (const BarReading& entry : reading.GetBars()) {
        const Fretline::TabBar& bar = *entry.Bar;
        for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
            ReadStringMarks(bar, barIndex, line, signs, markings.Notes);
        ++barIndex;
    }
    ReadMarksAbove(reading, markings.Notes);
    markings.Bars = ReadRepeats(reading);
    markings.Heading = ReadHeading(reading);
    return markings;
}

} // namespace TabText
