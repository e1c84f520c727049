#pragma once

#include "Projects/Fretline/score/ScoreHolder.h"
#include "Shared/NotaveraAPI/ConverterOutput.h"

#include <memory>

namespace Fretline {

class FretlineOptions;
class TabAnalysis;

/// One conversion: from the text of a tab file to a finished score. Lives for one call of ConvertFile.
/// Owns the analysis while it runs; borrows output and options.
class TabConverter {
public:
    TabConverter(Nvr::ConverterOutput* output, const FretlineOptions* options);
    ~TabConverter();
    TabConverter(const TabConverter&) = delete;
    TabConverter& operator=(const TabConverter&) = delete;

    /// Reads the text, builds the score in `scoreTemplate` (flattened; borrowed) and writes it to `tempPath`.
    /// True when the score has at least one bar. Throws ConverterCancelled, and std::out_of_range when the
    /// text holds no readable bar; nothing is written then.
    bool RunConversion(const Nvr::String& sourcePath, Nvr::TreeNode* scoreTemplate,
                       const Nvr::String& tempPath);

private:
    bool BuildScore();

    std::unique_ptr<TabAnalysis> m_Analysis;
    ScoreHolder m_Score;
    Nvr::ConverterOutput* m_Output;
    const FretlineOptions* m_Options;
};

} // namespace Fretline
