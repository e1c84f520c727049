#include "Projects/Fretline/text/TabAnalysis.h"

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/Labels.h"
#include "Projects/Fretline/text/StaveDetection.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/Fretline/text/TimeSignatures.h"

#include <algorithm>
#include <cassert>

namespace Fretline {

namespace {

// A signature takes effect also at a bar that starts this many columns to the right of it.
constexpr int kColumnsInFrontOfBar = 2;

} // namespace

TabAnalysis::TabAnalysis(TabFile& file) : m_File(file) {
    m_File.SetAnalysis(this);
    FindStaves();
    CollectReadableBars();
    FindTimeSignatures();
    AssignTimeSignatures();
    FindLabels();
    AttachLabels();
}

TabAnalysis::~TabAnalysis() = default;

bool TabAnalysis::HasRhythms() const {
    return std::any_of(m_ReadableBars.begin(), m_ReadableBars.end(),
                       [](const TabBar* bar) { return bar->HasRhythms(); });
}

int TabAnalysis::ScoreBarCount() {
    assert(std::all_of(m_ReadableBars.begin(), m_ReadableBars.end(),
                       [](const TabBar* bar) { return bar->HasBeenRead(); }));
    m_BarOfScoreBar.clear();
    for (const TabBar* bar : m_ReadableBars)
        m_BarOfScoreBar.insert(m_BarOfScoreBar.end(), static_cast<std::size_t>(bar->ScoreBarCount()), bar);
    return static_cast<int>(m_BarOfScoreBar.size());
}

const TabBar& TabAnalysis::BarOf(int scoreBar) const {
    return *m_BarOfScoreBar.at(static_cast<std::size_t>(scoreBar) - 1);
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

void TabAnalysis::FindStaves() {
    const int lineCount = m_File.GetLineCount();
    m_IsStaveLine.resize(static_cast<std::size_t>(lineCount));
    for (int line = 0; line < lineCount; ++line) {
        const int first = line;
        while (line < lineCount && IsStaveLineCandidate(m_File.GetLine(line)))
            ++line;
        if (line > first)
            ProcessRun({first, line - 1});
    }
}

void TabAnalysis::ProcessRun(LineRun run) {
    if (TrimToStave(m_File, run))
        CutIntoStaves(run);
}

void TabAnalysis::CutIntoStaves(const LineRun& run) {
    for (int line = run.m_First; line <= run.m_Last; ++line)
        m_IsStaveLine[static_cast<std::size_t>(line)] = true;
    for (int first = run.m_First; first <= run.m_Last; first += kMostLinesOfAStave) {
        const int lineCount = std::min(run.m_Last - first + 1, kMostLinesOfAStave);
        m_Staves.push_back(std::make_unique<TabStave>(m_File, first, lineCount));
    }
}

void TabAnalysis::CollectReadableBars() {
    for (const std::unique_ptr<TabStave>& stave : m_Staves)
        for (const std::unique_ptr<TabBar>& bar : stave->GetBars())
            if (bar->HasDash())
                m_ReadableBars.push_back(bar.get());
}

void TabAnalysis::FindTimeSignatures() {
    int line = 0;
    for (const std::unique_ptr<TabStave>& stave : m_Staves) {
        for (; line < stave->GetFirstLine(); ++line)
            FindTimeSignaturesIn(m_File, line, m_TimeSignatures);
        line = stave->GetEndLine();
    }
}

void TabAnalysis::AssignTimeSignatures() {
    const TabTimeSignature* current = m_TimeSignatures.empty() ? nullptr : m_TimeSignatures.front().get();
    // One length for the whole file: a later signature changes what is written, not how bars are read.
    const int length = current == nullptr ? kUnitsPerWholeNote : current->GetLength();
    int topLine = 0;
    for (const std::unique_ptr<TabStave>& stave : m_Staves) {
        AssignTimeSignaturesOf(*stave, topLine, current, length);
        topLine = stave->GetEndLine();
    }
}

void TabAnalysis::AssignTimeSignaturesOf(const TabStave& stave, int topLine, const TabTimeSignature*& current,
                                         int length) {
    const SignaturesAboveStave above(m_TimeSignatures, topLine, stave.GetFirstLine());
    for (const std::unique_ptr<TabBar>& bar : stave.GetBars()) {
        if (!bar->HasDash())
            continue;
        const int left = std::max(bar->GetStartColumn() - kColumnsInFrontOfBar, 0);
        // The only one of a file is current from the start, and finding it again changes nothing.
        if (const TabTimeSignature* found = above.FirstWithin(left, left + bar->GetWidth()))
            current = found;
        bar->SetTimeSignature(current);
        bar->SetBarLength(length);
    }
}

bool TabAnalysis::IsTimeSignatureAt(int line, int column) const {
    return FindTimeSignatureAt(m_TimeSignatures, line, column) != nullptr;
}

void TabAnalysis::FindLabels() {
    for (int line = 0; line < m_File.GetLineCount(); ++line)
        FindLabelsIn(m_File, line, m_Labels);
}

void TabAnalysis::AttachLabels() {
    auto nextLabel = m_Labels.begin();
    int topLine = 0;
    for (const std::unique_ptr<TabStave>& stave : m_Staves) {
        nextLabel =
            std::find_if(nextLabel, m_Labels.end(), [&stave](const std::unique_ptr<RiffLabel>& label) {
                return label->m_Line >= stave->GetFirstLine();
            });
        AttachNearestLabels(*stave, topLine, static_cast<std::size_t>(nextLabel - m_Labels.begin()));
        topLine = stave->GetEndLine();
    }
}

void TabAnalysis::AttachNearestLabels(TabStave& stave, int topLine, std::size_t labelsAbove) {
    if (labelsAbove == 0 || m_Labels[labelsAbove - 1]->m_Line < topLine)
        return;
    // The list is in the order of lines, so the labels of the nearest labelled line are the last ones above.
    const int line = m_Labels[labelsAbove - 1]->m_Line;
    std::size_t first = labelsAbove;
    while (first > 0 && m_Labels[first - 1]->m_Line == line)
        --first;
    for (std::size_t i = first; i < labelsAbove; ++i)
        stave.AttachLabel(m_Labels[i].get());
}

} // namespace Fretline
