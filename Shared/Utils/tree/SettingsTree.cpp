#include "Shared/Utils/tree/SettingsTree.h"

#include "Shared/Utils/FileName.h"
#include "Shared/Utils/platform/SettingsStore.h"

#include <string>
#include <utility>
#include <vector>

namespace Nvr {

namespace {

constexpr const char* kTopKey = "Software";
constexpr std::string_view kUnnamed = "Unnamed_Node";

String LabelOfKey(const std::string& name) {
    return name.find(kUnnamed) == std::string::npos ? String(name) : String();
}

// Null when there are no keys. The first key is the root.
std::unique_ptr<TreeNodeRoot> TreeOfKeys(const std::vector<Platform::SettingsKey>& keys) {
    if (keys.empty())
        return nullptr;
    auto root = std::make_unique<TreeNodeRoot>();
    // The nodes from the root down to the one made last.
    std::vector<TreeNode*> line;
    for (const auto& key : keys) {
        line.resize(key.Depth);
        TreeNode* node = root.get();
        if (!line.empty()) {
            auto made = std::make_unique<TreeNode>(LabelOfKey(key.Name));
            node = made.get();
            line.back()->AddChild(made.release());
        }
        node->SetValue(String(key.Value));
        line.push_back(node);
    }
    return root;
}

} // namespace

SettingsTree::SettingsTree(const String& vendor, const String& product, const String& section, bool perUser,
                           const ResId& fallbackResource, const String& fallbackFile)
    : m_Vendor(vendor), m_Product(product), m_Section(section), m_PerUser(perUser),
      m_FallbackResource(fallbackResource), m_FallbackFile(fallbackFile) {
    m_Tree = ReadStore();
    if (m_Tree == nullptr)
        m_Tree = ReadFallbackFile();
    if (m_Tree == nullptr)
        m_Tree = ReadFallbackResource();
    if (m_Tree == nullptr)
        m_Tree = std::make_unique<TreeNodeRoot>();
}

SettingsTree::~SettingsTree() = default;

std::unique_ptr<TreeNodeRoot> SettingsTree::ReadStore() const {
    const std::vector<std::string> path = {kTopKey, std::string(m_Vendor.View()),
                                           std::string(m_Product.View()), std::string(m_Section.View())};
    auto tree = m_PerUser ? TreeOfKeys(ReadSettingsKey(Platform::SettingsBranch::User, path)) : nullptr;
    if (tree == nullptr)
        tree = TreeOfKeys(ReadSettingsKey(Platform::SettingsBranch::Machine, path));
    return tree;
}

std::unique_ptr<TreeNodeRoot> SettingsTree::ReadFallbackFile() const {
    if (m_FallbackFile.IsEmpty() || !FileName(m_FallbackFile).IsFile())
        return nullptr;
    return std::unique_ptr<TreeNodeRoot>(TreeNode::LoadFromFile(m_FallbackFile));
}

std::unique_ptr<TreeNodeRoot> SettingsTree::ReadFallbackResource() const {
    if (m_FallbackResource.GetId() == kNoResource)
        return nullptr;
    return std::unique_ptr<TreeNodeRoot>(m_FallbackResource.LoadFromResource());
}

} // namespace Nvr
