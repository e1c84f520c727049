#pragma once

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/TabText/ReadingMessages.h"

#include <filesystem>
#include <vector>

namespace Fretline {
class TabBar;
}

namespace TabText {

/// One bar of the text with what was read in it, and its place in the score.
struct BarReading {
    const Fretline::TabBar* Bar = nullptr;
    /// Index of the first bar of the score that it gave, counted from 0; further ones follow it
    /// (TabBar::ScoreBarCount).
    int FirstScoreBar = 0;
};

/// One tab as the plug-in reads it, for whoever wants to know more than the score tells: what was taken for
/// what, and where in the text each bar, column and symbol of the score stands. The plug-in's own reading
/// makes it; nothing is read twice and nothing is written.
///
/// Owns all of it; pointers live as long as the object. Lines, columns and times are those of TabFile and
/// TabBar. Nothing fails: a file that cannot be read has no lines. Costs what a conversion costs without its
/// score.
class TabReading {
public:
    /// `tab` is absolute; the rhythm level comes from the options stored in `configFolder`.
    TabReading(const std::filesystem::path& tab, const std::filesystem::path& configFolder);
    TabReading(const TabReading&) = delete;
    TabReading& operator=(const TabReading&) = delete;

    const Fretline::TabFile& GetFile() const { return m_File; }
    const Fretline::TabAnalysis& GetAnalysis() const { return m_Analysis; }
    /// All bars with a dash, in the order of the score: stave by stave, left to right. All have been read.
    const std::vector<BarReading>& GetBars() const { return m_Bars; }
    /// Lines that the stave detection left out.
    const std::vector<IgnoredLines>& GetIgnoredLines() const { return m_Messages.GetIgnoredLines(); }

private:
    Nvr::String m_OptionsPath;
    Fretline::FretlineOptions m_Options;
    ReadingMessages m_Messages;
    Fretline::TabFile m_File;
    Fretline::TabAnalysis m_Analysis;
    std::vector<BarReading> m_Bars;
};

} // namespace TabText
