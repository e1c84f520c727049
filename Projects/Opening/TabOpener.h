#pragma once

#include "Projects/Formats/Conversion.h"
#include "Projects/Opening/FileOpening.h"
#include "Projects/Score/LilyPond.h"
#include "Projects/TabText/Preparation.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Opening {

enum class Outcome : char {
    Done,
    /// The file is no tab, or no score came of it.
    Refused,
    Failed,
    Cancelled
};

/// What came of opening one file: a conversion, or why not.
struct Opened {
    Opened() = default;
    Opened(Outcome ended, std::string reason) : Ended(ended), Reason(std::move(reason)) {}

    /// There when it is Done, and only then.
    std::optional<Formats::Conversion> Conversion;
    /// Of the plug-in, with the lines of the text as the user knows it.
    std::vector<std::string> Messages;
    Outcome Ended = Outcome::Done;
    /// The end of a sentence that begins with the file's name; of no meaning when it is Done.
    std::string Reason;
    /// Of a text that was prepared: what was changed.
    std::string Changes;
};

/// Opens files as every host of this project does: a tab through the plug-in, a finished score as it is, both
/// as a conversion from which any format can be written. Borrows everything, which must outlive it. Nothing
/// throws but a failed allocation.
class TabOpener {
public:
    /// The plug-in must be started; the options that it uses lie in `configFolder`. `wanted` is what the
    /// conversions will be asked for.
    TabOpener(const Plugin& plugin, std::filesystem::path configFolder, Score::Layout layout,
              Formats::Wanted wanted, OpeningWatcher& watcher)
        : m_Plugin(plugin), m_ConfigFolder(std::move(configFolder)), m_Layout(layout), m_Wanted(wanted),
          m_Watcher(watcher) {}

    /// `tab` is the absolute path of a text, which must be there as long as the conversion is asked what it
    /// was read from; `source` is what the user calls it.
    Opened OpenTab(const std::filesystem::path& tab, const std::filesystem::path& source) const;

    /// The same of a file that holds a prepared text. What is said of it is said in lines and columns of the
    /// original.
    Opened OpenPrepared(const TabText::PreparedText& prepared, const std::filesystem::path& tab,
                        const std::filesystem::path& source) const;

    /// A finished score.
    static Opened OpenScore(const std::filesystem::path& file, Formats::Wanted wanted);

private:
    const Plugin& m_Plugin;
    std::filesystem::path m_ConfigFolder;
    Score::Layout m_Layout;
    Formats::Wanted m_Wanted;
    OpeningWatcher& m_Watcher;
};

} // namespace Opening
