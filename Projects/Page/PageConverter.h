#pragma once

#include "Projects/Opening/FileOpening.h"
#include "Projects/Opening/Plugin.h"
#include "Projects/Opening/TabOpener.h"
#include "Projects/Page/Answer.h"
#include "Projects/Page/Request.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace Page {

/// Converts texts one by one in a program that has no files but those in memory. Owns the plug-in and the
/// folder in which a text lies while it is converted. Nothing throws but a failed allocation.
class PageConverter {
public:
    /// The folder is made when it is missing.
    PageConverter(const Opening::PluginFunctions& functions, std::filesystem::path folder);

    /// All that is asked for of the text, and what an editor shows beside it. `watcher` hears how far it is
    /// and may cancel.
    Answer Convert(const Request& request, std::string_view text, Opening::OpeningWatcher& watcher) const;

private:
    Opening::Opened Open(const Request& request, const std::optional<TabText::PreparedText>& prepared,
                         const std::filesystem::path& tab, Opening::OpeningWatcher& watcher) const;

    std::filesystem::path m_Folder;
    Opening::Plugin m_Plugin;
    // Empty when the plug-in has started.
    std::string m_WhyNotStarted;
};

/// What there is to choose from: the formats, the steps of a preparation, and what a stretch of a text can be
/// taken for.
Answer Describe();

} // namespace Page
