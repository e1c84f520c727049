#include "Projects/Opening/TabOpener.h"

#include "Projects/Explain/WhyNot.h"
#include "Projects/Opening/WholeFile.h"
#include "Shared/Utils/AsciiChars.h"

namespace Opening {

namespace fs = std::filesystem;

namespace {

// The numbers of lines in a message of the plug-in, as the user counts them.
std::string WithOriginalLines(const std::string& message, const TabText::LineMap& map) {
    std::string text;
    for (std::size_t at = 0; at < message.size();) {
        std::size_t end = at;
        while (end < message.size() && Nvr::Ascii::IsDigit(message[end]))
            ++end;
        if (end == at) {
            text += message[at++];
            continue;
        }
        const int line = std::stoi(message.substr(at, end - at)) - 1;
        text += line >= 0 && line < map.GetLineCount() ? std::to_string(map.ToOriginal(line, 0).Line + 1)
                                                       : message.substr(at, end - at);
        at = end;
    }
    return text;
}

} // namespace

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
        opened.Conversion = Formats::Conversion::Of(std::move(*result.Score), source, why);
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
        message = WithOriginalLines(message, prepared.Map);
    if (opened.Conversion)
        opened.Conversion->Tab->Map = prepared.Map;
    return opened;
}

Opened TabOpener::OpenScore(const fs::path& file) {
    const std::optional<std::string> bytes = ReadWholeFile(file);
    if (!bytes)
        return {Outcome::Refused, "cannot be read"};
    Opened opened;
    std::string why;
    opened.Conversion = Formats::Conversion::Of(*bytes, file, why);
    if (!opened.Conversion) {
        opened.Ended = Outcome::Refused;
        opened.Reason = "the score cannot be read: " + why;
    }
    return opened;
}

} // namespace Opening
