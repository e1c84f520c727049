#include "Projects/TabText/StaveBars.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"

#include <algorithm>

namespace TabText {

std::vector<StaveBars> StavesWithBars(const TabReading& reading) {
    std::vector<StaveBars> staves;
    auto first = reading.GetBars().begin();
    for (const auto& stave : reading.GetAnalysis().GetStaves()) {
        const auto end = std::find_if(first, reading.GetBars().end(), [&](const BarReading& bar) {
            return bar.Bar->GetFirstLine() >= stave->GetEndLine();
        });
        if (first != end)
            staves.push_back({stave.get(), std::span(&*first, static_cast<std::size_t>(end - first))});
        first = end;
    }
    return staves;
}

} // namespace TabText
