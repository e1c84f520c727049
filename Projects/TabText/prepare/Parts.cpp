#include "Projects/TabText/TextParts.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/Steps.h"

#include <algorithm>

namespace TabText {

void RunParts(Draft& draft) {
    if (draft.GetPart().empty())
        return;
    const DraftReading reading(draft);
    const TextParts parts = FindParts(reading.GetFile(), reading.GetAnalysis());
    const auto part = std::find_if(parts.Names.begin(), parts.Names.end(),
                                   [&](const PartName& name) { return name.Key == draft.GetPart(); });
    if (part == parts.Names.end())
        return;
    const auto bit = static_cast<unsigned>(part - parts.Names.begin());
    const std::vector<unsigned> partsOfLines = parts.PartsOfLines(draft.GetLineCount());
    for (std::size_t line = 0; line < partsOfLines.size(); ++line)
        if ((partsOfLines[line] >> bit & 1U) == 0)
            draft.Overwrite(static_cast<int>(line), {});
    // They have said what they had to, and would be read as chords.
    for (const PartStave& stave : parts.Staves)
        if (stave.LabelLine >= 0)
            draft.Overwrite(stave.LabelLine, WithoutPartLabel(draft.GetLine(stave.LabelLine)));
}

} // namespace TabText
