#pragma once

#include "Projects/Score/ScoreModel.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <memory>
#include <optional>
#include <string>

namespace TabText {
class TabReading;
}

namespace Formats {

/// What came of one file that was opened: everything that a format may be written from. Owns all of it.
struct Conversion {
    /// For people: the name of the file without folder and extension, UTF-8.
    std::string Title;
    /// The finished score, byte for byte as the plug-in wrote it.
    std::string ScoreBytes;
    /// The same score as a tree.
    std::unique_ptr<Nvr::TreeNodeRoot> Tree;
    /// And as music, with what the players wrote between the frets where JoinText has been called.
    Score::ScoreModel Model;

    /// Reads a finished score. Empty when it cannot be read; `why` then says what is wrong with it.
    static std::optional<Conversion> Of(std::string scoreBytes, std::string title, std::string& why);

    /// Adds to the music what the tab that gave the score says beyond it. The reading is of the same text, at
    /// the same rhythm level. A tab without signs of that kind leaves the music as it is.
    void JoinText(const TabText::TabReading& reading);
};

} // namespace Formats
