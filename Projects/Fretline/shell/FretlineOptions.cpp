#include "Projects/Fretline/shell/FretlineOptions.h"

#include "Shared/Utils/FileName.h"
#include "Shared/Utils/PathText.h"

namespace Fretline {

using Nvr::String;

namespace {

constexpr const char* kRhythmLevelLabel = "RhythmLevel";

std::unique_ptr<Nvr::TreeNodeRoot> LoadOrMakeTree(const String& path) {
    std::unique_ptr<Nvr::TreeNodeRoot> tree;
    if (Nvr::FileName(path).IsFile())
        tree.reset(Nvr::TreeNode::LoadFromFile(path));
    return tree != nullptr ? std::move(tree) : std::make_unique<Nvr::TreeNodeRoot>();
}

} // namespace

FretlineOptions::FretlineOptions(const String& path)
    : m_Path(path), m_Tree(LoadOrMakeTree(path)),
      m_RhythmLevel(m_Tree->GetChildValue(kRhythmLevelLabel, static_cast<int>(kRhythmsWhenIndicated))) {}

void FretlineOptions::Save() {
    m_Tree->MergeChild(std::make_unique<Nvr::TreeNode>(kRhythmLevelLabel, m_RhythmLevel).release());
    m_Tree->SaveToFile(m_Path);
}

String FretlineOptions::PathIn(const String& configFolder) {
    return Nvr::JoinPath(String(), configFolder, "FretlineOptions", "txt");
}

} // namespace Fretline
