#include "Projects/TabText/TabReading.h"

#include "Projects/Fretline/stave/TabBar.h"

namespace TabText {

TabReading::TabReading(const std::filesystem::path& tab, const std::filesystem::path& configFolder)
    : m_OptionsPath(Fretline::FretlineOptions::PathIn(Nvr::String(configFolder.c_str()))),
      m_Options(m_OptionsPath), m_File(Nvr::String(tab.c_str()), &m_Options, &m_Messages),
      m_Analysis(m_File) {
    int scoreBar = 0;
    for (Fretline::TabBar* bar : m_Analysis.GetReadableBars()) {
        bar->ReadBar(nullptr);
        m_Bars.push_back({bar, scoreBar});
        scoreBar += bar->ScoreBarCount();
    }
}

} // namespace TabText
