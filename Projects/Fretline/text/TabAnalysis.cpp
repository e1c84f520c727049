#include "Projects/Fretline/text/TabAnalysis.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"

#include <algorithm>

namespace Fretline {

TabAnalysis::TabAnalysis(TabFile& file) : m_File(file) {
    m_File.SetAnalysis(this);
    FindStaveLines();
    GroupStaveLines();
    FindTimeSignatures();
    AssignTimeSignatures();
    FindLabels();
    AttachLabels();
}

TabAnalysis::~TabAnalysis() = default;

bool TabAnalysis::IsStaveLine(int line) const {
    const auto behind = std::upper_bound(
        m_Staves.begin(), m_Staves.end(), line,
        [](int wanted, const std::unique_ptr<TabStave>& stave) { return wanted < stave->GetFirstLine(); });
    return behind != m_Staves.begin() && line < (*(behind - 1))->GetEndLine();
}

bool TabAnalysis::HasRhythms() const {
    return std::any_of(m_ReadableBars.begin(), m_ReadableBars.end(),
                       [](const TabBar* bar) { return bar->HasRhythms(); });
}

int TabAnalysis::ScoreBarCount() {
    int count = 0;
    m_BarOfScoreBar.clear();
    for (std::size_t index = 0; index < m_ReadableBars.size(); ++index)
        for (int left = m_ReadableBars[index]->ScoreBarCount(); left > 0; --left)
            m_BarOfScoreBar.emplace_hint(m_BarOfScoreBar.end(), ++count, static_cast<int>(index));
    return count;
}

const TabBar& TabAnalysis::BarOf(int scoreBar) const {
    return *m_ReadableBars[static_cast<std::size_t>(m_BarOfScoreBar.at(scoreBar))];
}

int TabAnalysis::BarLengthOf(int scoreBar) const {
    return BarOf(scoreBar).GetBarLength();
}

const TabTimeSignature* TabAnalysis::TimeSignatureOf(int scoreBar) const {
    return BarOf(scoreBar).GetTimeSignature();
}

const RiffLabel* TabAnalysis::LabelOf(int scoreBar) const {
    const TabBar& bar = BarOf(scoreBar);
    const bool goesOn = scoreBar > 1 && &BarOf(scoreBar - 1) == &bar;
    return goesOn ? nullptr : bar.GetLabel();
}

bool TabAnalysis::BarHasChords(int scoreBar) const {
    return BarOf(scoreBar).HasChords();
}

} // namespace Fretline
