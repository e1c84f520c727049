#include "Projects/Opening/TabOpener.h"

#include "Projects/Explain/WhyNot.h"
#include "Projects/Opening/WholeFile.h"

namespace Opening {

namespace fs = std::filesystem;

Opened TabOpener::OpenTab(const fs::path& tab, const fs::path& source) const {
    OpeningResult result = FileOpening(m_Watcher).Open(m_Plugin, tab);
    Opened opened;
    opened.Messages = std::move(result.Messages);
    if (result.Cancelled) {
        opened.Ended = Outcome::Cancelled;
        opened.Reason = "cancelled, no score was kept";
    } else if (!result.Score) {
        opened.Ended = Outcome::Refused;
        opened.Reason = result.Taken ? Explain::WhyNoScore(tab) : Explain::WhyNotTaken(tab);
    } else {
        std::string why;
        opened.Conversion = Formats::Conversion::Of(std::move(*result.Score), source, m_Wanted, why);
        opened.Ended = opened.Conversion ? Outcome::Done : Outcome::Failed;
        opened.Reason = "its score cannot be read: " + why;
    }
    if (opened.Conversion) {
        opened.Conversion->Tab = Formats::TabPlace{tab, m_ConfigFolder, {}};
        opened.Conversion->Layout = m_Layout;
    }
    return opened;
}

Opened TabOpener::OpenPrepared(const TabText::PreparedText& prepared, const fs::path& tab,
                               const fs::path& source) const {
    Opened opened = OpenTab(tab, source);
    opened.Changes = TabText::ChangesText(prepared);
    for (std::string& message : opened.Messages)
        message = TabText::WithOriginalLines(message, prepared.Map);
    if (opened.Conversion)
        opened.Conversion->Tab->Map = prepared.Map;
    return opened;
}

Opened TabOpener::OpenScore(const fs::path& file, Formats::Wanted wanted) {
    std::optional<std::string> bytes = ReadWholeFile(file);
    if (!bytes)
        return {Outcome::Refused, "cannot be read"};
    Opened opened;
    std::string why;
    // Nobody knows whether it is a score at all until it is read.
    wanted.Music = true;
    opened.Conversion = Formats::Conversion::Of(std::move(*bytes), file, wanted, why);
    if (!opened.Conversion) {
        opened.Ended = Outcome::Refused;
        opened.Reason = "the score cannot be read: " + why;
    }
    return opened;
}

} // namespace Opening
