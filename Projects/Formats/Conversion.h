#pragma once

#include "Projects/Score/ScoreModel.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <memory>
#include <optional>
#include <string>

namespace Formats {

/// What came of one file that was opened: everything that a format may be written from. Owns all of it.
struct Conversion {
    /// For people: the name of the file without folder and extension, UTF-8.
    std::string Title;
    /// The finished score, byte for byte as the plug-in wrote it.
    std::string ScoreBytes;
    /// The same score as a tree and as music.
    std::unique_ptr<Nvr::TreeNodeRoot> Tree;
    Score::ScoreModel Model;

    /// Reads a finished score. Empty when it cannot be read; `why` then says what is wrong with it.
    static std::optional<Conversion> Of(std::string scoreBytes, std::string title, std::string& why);
};

} // namespace Formats
