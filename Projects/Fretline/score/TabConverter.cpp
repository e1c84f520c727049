#include "Projects/Fretline/score/TabConverter.h"

#include "Projects/Fretline/score/BuildScore.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"

namespace Fretline {

namespace {

// Percent of the progress bar at which a stage of the work is done.
constexpr int kTextIsRead = 0;
constexpr int kAnalysisIsComplete = 10;
constexpr int kTemplateIsInPlace = 20;
constexpr int kScoreIsComplete = 80;

constexpr int kSystemCodePage = 0;

// Frees the analysis before the file that it borrows, also when an exception passes.
class AnalysisRelease {
public:
    explicit AnalysisRelease(std::unique_ptr<TabAnalysis>& analysis) : m_Analysis(analysis) {}
    ~AnalysisRelease() { m_Analysis.reset(); }
    AnalysisRelease(const AnalysisRelease&) = delete;
    AnalysisRelease& operator=(const AnalysisRelease&) = delete;

private:
    std::unique_ptr<TabAnalysis>& m_Analysis;
};

} // namespace

TabConverter::TabConverter(Nvr::ConverterOutput* output, const FretlineOptions* options)
    : m_Output(output), m_Options(options) {}

TabConverter::~TabConverter() = default;

bool TabConverter::RunConversion(const Nvr::String& sourcePath, Nvr::TreeNode* scoreTemplate,
                                 const Nvr::String& tempPath) {
    TabFile file(sourcePath, m_Options, m_Output);
    const AnalysisRelease release(m_Analysis);
    m_Output->SetProgress(kTextIsRead, Nvr::String());
    m_Analysis = std::make_unique<TabAnalysis>(file);
    m_Output->SetProgress(kAnalysisIsComplete, Nvr::String());
    if (!m_Score.SetRoot(scoreTemplate))
        return false;
    m_Output->SetProgress(kTemplateIsInPlace, Nvr::String());
    const bool hasBars = BuildScore();
    m_Output->SetProgress(kScoreIsComplete, Nvr::String());
    // A failed write is reported where it happens; the host then finds no file.
    m_Score.Save(tempPath, kSystemCodePage);
    return hasBars;
}

bool TabConverter::BuildScore() {
    return Fretline::BuildScore(*m_Analysis, m_Score, *m_Output);
}

} // namespace Fretline
