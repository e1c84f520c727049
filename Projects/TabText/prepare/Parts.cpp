#include "Projects/TabText/prepare/Parts.h"

#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/Steps.h"

#include <algorithm>
#include <map>

namespace TabText {

namespace {

constexpr std::size_t kMostParts = 9;
// A label stands at most so far above its stave.
constexpr int kMostLinesAboveStave = 6;

struct PartStave {
    int First = 0;
    int End = 0;
    /// Line of the label; -1 for none.
    int LabelLine = -1;
    /// One bit for each part; 0 for not known.
    unsigned Parts = 0;

    int GetSize() const { return End - First; }
};

// A stretch of staves, the second index after the last.
struct StaveRange {
    std::size_t First = 0;
    std::size_t End = 0;

    std::size_t GetCount() const { return End - First; }
};

class PartFinder {
public:
    explicit PartFinder(const Draft& draft) : m_Draft(draft), m_Reading(draft) {
        for (const auto& stave : m_Reading.GetStaves())
            m_Staves.push_back({stave->GetFirstLine(), stave->GetEndLine()});
    }

    TextParts Find() {
        ReadLabels();
        m_HasStavesLabelledTogether = HasStavesLabelledTogether();
        if (m_Names.size() > 1 ? m_Names.size() <= kMostParts && AssignWithoutLabel() : PairBySize())
            return {m_Names, LinesOfParts(), LabelLines()};
        return {};
    }

private:
    void ReadLabels() {
        int above = 0;
        for (PartStave& stave : m_Staves) {
            const int top = std::max(above, stave.First - kMostLinesAboveStave);
            for (int line = stave.First - 1; line >= top && stave.LabelLine < 0; --line)
                for (const PartName& name : ReadPartLabel(m_Draft.GetLine(line))) {
                    stave.LabelLine = line;
                    stave.Parts |= BitOf(name);
                }
            above = stave.End;
        }
    }

    unsigned BitOf(const PartName& name) {
        auto found = std::find(m_Names.begin(), m_Names.end(), name);
        if (found == m_Names.end() && m_Names.size() <= kMostParts)
            found = m_Names.insert(found, name);
        return found == m_Names.end() ? 0 : 1U << static_cast<unsigned>(found - m_Names.begin());
    }

    // False when a stave may belong to more than one part.
    bool AssignWithoutLabel() {
        const std::map<int, unsigned> partOfSize = PartsOfSizes();
        StaveRange labelled;
        for (std::size_t at = 0; at < m_Staves.size();) {
            if (m_Staves[at].Parts != 0) {
                labelled = LabelledTogether(at);
                at = labelled.End;
                continue;
            }
            StaveRange rest{at, at};
            while (rest.End < m_Staves.size() && m_Staves[rest.End].Parts == 0)
                ++rest.End;
            if (!AssignBySize(rest, partOfSize) && !AssignByPlace(rest, labelled) &&
                !AssignToLabelBefore(rest, labelled))
                return false;
            at = rest.End;
        }
        return true;
    }

    // Of each number of strings that only one part has. Empty when two parts have the same.
    std::map<int, unsigned> PartsOfSizes() const {
        std::map<int, unsigned> partOfSize;
        for (const PartStave& stave : m_Staves)
            if (stave.Parts != 0)
                partOfSize[stave.GetSize()] |= stave.Parts;
        for (const auto& [size, parts] : partOfSize)
            if ((parts & (parts - 1)) != 0)
                return {};
        return partOfSize;
    }

    // The staves from `first` on that are labelled, each with other parts.
    StaveRange LabelledTogether(std::size_t first) const {
        StaveRange range{first, first};
        unsigned parts = 0;
        while (range.End < m_Staves.size() && m_Staves[range.End].Parts != 0 &&
               (m_Staves[range.End].Parts & parts) == 0)
            parts |= m_Staves[range.End++].Parts;
        return range;
    }

    bool AssignBySize(const StaveRange& rest, const std::map<int, unsigned>& partOfSize) {
        for (std::size_t at = rest.First; at < rest.End; ++at)
            if (!partOfSize.contains(m_Staves[at].GetSize()))
                return false;
        for (std::size_t at = rest.First; at < rest.End; ++at)
            m_Staves[at].Parts = partOfSize.at(m_Staves[at].GetSize());
        return true;
    }

    int LinesBefore(std::size_t stave) const { return m_Staves[stave].First - m_Staves[stave - 1].End; }

    // In systems like the one that was labelled: as many staves, and no farther from each other than systems
    // are.
    bool AssignByPlace(const StaveRange& rest, const StaveRange& labelled) {
        const std::size_t count = labelled.GetCount();
        if (count < 2 || rest.GetCount() % count != 0)
            return false;
        int farthestWithin = 0;
        int nearestBetween = LinesBefore(rest.First);
        for (std::size_t at = rest.First; at < rest.End; ++at) {
            if ((at - rest.First) % count == 0)
                nearestBetween = std::min(nearestBetween, LinesBefore(at));
            else
                farthestWithin = std::max(farthestWithin, LinesBefore(at));
        }
        if (farthestWithin > nearestBetween)
            return false;
        for (std::size_t at = rest.First; at < rest.End; ++at)
            m_Staves[at].Parts = m_Staves[labelled.First + (at - rest.First) % count].Parts;
        return true;
    }

    // Where one part is written down after the other.
    bool AssignToLabelBefore(const StaveRange& rest, const StaveRange& labelled) {
        if (labelled.GetCount() != 1 || m_HasStavesLabelledTogether)
            return false;
        for (std::size_t at = rest.First; at < rest.End; ++at)
            m_Staves[at].Parts = m_Staves[labelled.First].Parts;
        return true;
    }

    bool HasStavesLabelledTogether() const {
        for (std::size_t at = 1; at < m_Staves.size(); ++at)
            if (m_Staves[at].LabelLine >= 0 && m_Staves[at - 1].LabelLine >= 0 &&
                (m_Staves[at].Parts & m_Staves[at - 1].Parts) == 0)
                return true;
        return false;
    }

    // Staves of a guitar and of a bass, most of which stand right below each other, in one order.
    bool PairBySize() {
        constexpr int kGuitar = 6;
        constexpr int kBass = 4;
        constexpr int kMostLinesBetween = 4;
        constexpr std::size_t kFewestPairs = 2;
        std::size_t basses = 0;
        std::size_t guitars = 0;
        std::size_t pairs = 0;
        for (std::size_t at = 0; at < m_Staves.size(); ++at) {
            const int size = m_Staves[at].GetSize();
            if (size != kGuitar && size != kBass)
                return false;
            (size == kBass ? basses : guitars) += 1;
            const bool isPair = at > 0 && size != m_Staves[at - 1].GetSize() &&
                                size != m_Staves[0].GetSize() && LinesBefore(at) <= kMostLinesBetween;
            pairs += isPair ? 1 : 0;
        }
        const bool isAllPairs = pairs > 0 && 2 * pairs == m_Staves.size();
        // Two of three of the rarer ones.
        if (!isAllPairs && (pairs < kFewestPairs || 3 * pairs < 2 * std::min(basses, guitars)))
            return false;
        m_Names = {{"Guitar", "guitar"}, {"Bass", "bass"}};
        if (m_Staves.front().GetSize() == kBass)
            std::swap(m_Names[0], m_Names[1]);
        for (PartStave& stave : m_Staves)
            stave.Parts = stave.GetSize() == m_Staves.front().GetSize() ? 1 : 2;
        return true;
    }

    // A stave's own lines are those below another stave of its system; what stands above a system is of all
    // that it has.
    std::vector<unsigned> LinesOfParts() const {
        const unsigned all = (1U << m_Names.size()) - 1;
        std::vector<unsigned> lines(static_cast<std::size_t>(m_Draft.GetLineCount()), all);
        std::size_t systemFirst = 0;
        unsigned partsOfSystem = 0;
        for (std::size_t at = 0; at < m_Staves.size(); ++at) {
            const PartStave& stave = m_Staves[at];
            if ((stave.Parts & partsOfSystem) != 0) {
                MarkAbove(systemFirst, partsOfSystem, lines);
                systemFirst = at;
                partsOfSystem = 0;
            }
            partsOfSystem |= stave.Parts;
            const int first = at == systemFirst ? stave.First : m_Staves[at - 1].End;
            std::fill(lines.begin() + first, lines.begin() + stave.End, stave.Parts);
        }
        MarkAbove(systemFirst, partsOfSystem, lines);
        return lines;
    }

    std::vector<int> LabelLines() const {
        std::vector<int> lines;
        for (const PartStave& stave : m_Staves)
            if (stave.LabelLine >= 0)
                lines.push_back(stave.LabelLine);
        return lines;
    }

    // The heading of the text is of all parts.
    void MarkAbove(std::size_t systemFirst, unsigned parts, std::vector<unsigned>& lines) const {
        if (systemFirst > 0)
            for (int line = m_Staves[systemFirst - 1].End; line < m_Staves[systemFirst].First; ++line)
                lines[static_cast<std::size_t>(line)] &= parts;
    }

    const Draft& m_Draft;
    DraftReading m_Reading;
    std::vector<PartStave> m_Staves;
    std::vector<PartName> m_Names;
    bool m_HasStavesLabelledTogether = false;
};

} // namespace

TextParts FindParts(const Draft& draft) {
    return PartFinder(draft).Find();
}

void RunParts(Draft& draft) {
    if (draft.GetPart().empty())
        return;
    const TextParts parts = FindParts(draft);
    const auto part = std::find_if(parts.Names.begin(), parts.Names.end(),
                                   [&](const PartName& name) { return name.Key == draft.GetPart(); });
    if (part == parts.Names.end())
        return;
    const auto bit = static_cast<unsigned>(part - parts.Names.begin());
    for (std::size_t line = 0; line < parts.PartsOfLine.size(); ++line)
        if ((parts.PartsOfLine[line] >> bit & 1U) == 0)
            draft.Overwrite(static_cast<int>(line), {});
    // They have said what they had to, and would be read as chords.
    for (const int line : parts.LabelLines)
        draft.Overwrite(line, WithoutPartLabel(draft.GetLine(line)));
}

} // namespace TabText
