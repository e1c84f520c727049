#include "Projects/TabText/prepare/DraftReading.h"

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/CStream.h"

#include <algorithm>
#include <sstream>

namespace TabText {

namespace {

// Lends a text to a TabFile while that is made.
class LentText {
public:
    explicit LentText(const Draft& draft) : m_Text(Join(draft)), m_Stream(m_Text) {}
    Nvr::InStream& Get() { return m_Stream; }

private:
    static std::string Join(const Draft& draft) {
        std::string text;
        for (int line = 0; line < draft.GetLineCount(); ++line) {
            text += draft.GetLine(line);
            if (line + 1 < draft.GetLineCount())
                text += '\n';
        }
        return text;
    }

    std::istringstream m_Text;
    Nvr::CInStream m_Stream;
};

// As far up as people write what belongs to the columns of a stave.
constexpr int kMostLinesAbove = 6;

bool IsBlankLine(const Draft& draft, int line) {
    const std::string& text = draft.GetLine(line);
    return std::all_of(text.begin(), text.end(), [](char c) { return c == '\0' || Nvr::Ascii::IsSpace(c); });
}

// The first line from `line` on, below `end`, that is blank.
int FirstBlankLine(const Draft& draft, int line, int end) {
    while (line < end && !IsBlankLine(draft, line))
        ++line;
    return line;
}

} // namespace

DraftReading::DraftReading(const Draft& draft)
    : m_File(LentText(draft).Get(), &m_Options, &m_Messages), m_Analysis(m_File) {}

void DraftReading::ReadBars() {
    for (Fretline::TabBar* bar : m_Analysis.GetReadableBars())
        bar->ReadBar(nullptr);
}

int LengthByMetre(const Fretline::TabBar& bar) {
    return bar.GetTimeSignature() == nullptr ? Fretline::kUnitsPerWholeNote
                                             : bar.GetTimeSignature()->GetLength();
}

std::vector<StaveSurroundings> SurroundingsOf(const Draft& draft, const DraftReading& reading) {
    std::vector<StaveSurroundings> all;
    const auto& staves = reading.GetStaves();
    int firstAbove = 0;
    for (std::size_t at = 0; at < staves.size(); ++at) {
        const int end = staves[at]->GetEndLine();
        const int next = at + 1 < staves.size() ? staves[at + 1]->GetFirstLine() : draft.GetLineCount();
        const int below = FirstBlankLine(draft, end, next);
        // Lines that reach from one stave to the next belong to the lower one, whose chords they are.
        const int endBelow = below == next && at + 1 < staves.size() ? end : below;
        const int first = staves[at]->GetFirstLine();
        all.push_back({first, end, std::max(firstAbove, first - kMostLinesAbove), endBelow});
        firstAbove = endBelow;
    }
    return all;
}

} // namespace TabText
