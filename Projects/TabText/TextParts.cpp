#include "Projects/TabText/TextParts.h"

#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"

#include <algorithm>
#include <map>

namespace TabText {

namespace {

constexpr std::size_t kMostParts = 9;
// A label stands at most so far above its stave.
constexpr int kMostLinesAboveStave = 6;

// A stretch of staves, the second index after the last.
struct StaveRange {
    std::size_t First = 0;
    std::size_t End = 0;

    std::size_t GetCount() const { return End - First; }
};

class PartFinder {
public:
    PartFinder(const Fretline::TabFile& file, const Fretline::TabAnalysis& analysis) : m_File(file) {
        for (const auto& stave : analysis.GetStaves())
            m_Staves.push_back({stave->GetFirstLine(), stave->GetEndLine()});
    }

    TextParts Find() {
        ReadLabels();
        m_HasStavesLabelledTogether = HasStavesLabelledTogether();
        if (m_Names.size() > 1 ? m_Names.size() <= kMostParts && AssignWithoutLabel() : PairBySize())
            return Found();
        return {};
    }

private:
    void ReadLabels() {
        int above = 0;
        for (PartStave& stave : m_Staves) {
            const int top = std::max(above, stave.First - kMostLinesAboveStave);
            for (int line = stave.First - 1; line >= top && stave.LabelLine < 0; --line)
                for (const PartName& name : ReadPartLabel(m_File.GetLine(line))) {
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
        for (std::size_t at = rest.First; at < rest.End; ++at) {
            m_Staves[at].Parts = m_Staves[labelled.First].Parts;
            m_Staves[at].GoesOn = true;
        }
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

    // A system begins where a part has a stave again, and after one that goes on by itself.
    TextParts Found() {
        unsigned partsOfSystem = 0;
        std::size_t system = 0;
        bool isAfterLoneStave = false;
        for (PartStave& stave : m_Staves) {
            if ((stave.Parts & partsOfSystem) != 0 || isAfterLoneStave) {
                ++system;
                partsOfSystem = 0;
            }
            partsOfSystem |= stave.Parts;
            stave.System = system;
            isAfterLoneStave = stave.GoesOn;
        }
        return {std::move(m_Names), std::move(m_Staves)};
    }

    const Fretline::TabFile& m_File;
    std::vector<PartStave> m_Staves;
    std::vector<PartName> m_Names;
    bool m_HasStavesLabelledTogether = false;
};

} // namespace

// A stave's own lines are those below another stave of its system; what stands above a system is of all that
// it has, and the heading of the text of all parts.
std::vector<unsigned> TextParts::PartsOfLines(int lineCount) const {
    std::vector<unsigned> lines(static_cast<std::size_t>(lineCount), (1U << Names.size()) - 1);
    for (std::size_t first = 0; first < Staves.size();) {
        std::size_t end = first;
        unsigned partsOfSystem = 0;
        for (; end < Staves.size() && Staves[end].System == Staves[first].System; ++end)
            partsOfSystem |= Staves[end].Parts;
        if (first > 0)
            std::fill(lines.begin() + Staves[first - 1].End, lines.begin() + Staves[first].First,
                      partsOfSystem);
        for (std::size_t at = first; at < end; ++at)
            std::fill(lines.begin() + (at == first ? Staves[at].First : Staves[at - 1].End),
                      lines.begin() + Staves[at].End, Staves[at].Parts);
        first = end;
    }
    return lines;
}

TextParts FindParts(const Fretline::TabFile& file, const Fretline::TabAnalysis& analysis) {
    return PartFinder(file, analysis).Find();
}

} // namespace TabText
