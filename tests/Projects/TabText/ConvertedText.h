#pragma once

#include "Projects/Fretline/score/TabConverter.h"
#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Score/ScoreModel.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "fuzz/SmallTemplate.h"
#include "tests/support/FakeOutput.h"
#include "tests/support/ScratchFolder.h"

#include <memory>
#include <optional>
#include <string>

namespace TestSupport {

/// The score that the plug-in makes of a text at a rhythm level; nothing where it makes none.
inline std::optional<Score::ScoreModel> ConvertText(const std::string& tab, int level) {
    const ScratchFolder folder;
    folder.StoreLevel(level);
    const Fretline::FretlineOptions options(
        Fretline::FretlineOptions::PathIn(Nvr::String(folder.Path().c_str())));
    FakeOutput output;
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromString(FuzzSupport::kSmallTemplate));
    const std::string target = (folder.Path() / "score").string();
    Fretline::TabConverter converter(&output, &options);
    std::string why;
    const std::string file = folder.Write("text.tab", tab);
    if (!converter.RunConversion(file.c_str(), tree.get(), target.c_str()))
        return std::nullopt;
    return Score::ScoreModel::Read(*tree, why);
}

} // namespace TestSupport
