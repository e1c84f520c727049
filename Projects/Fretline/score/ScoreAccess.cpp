#include "Projects/Fretline/score/ScoreAccess.h"

#include "Shared/Utils/tree/TreeNodeIterator.h"

#include <array>
#include <memory>
#include <vector>

namespace Fretline {

using Nvr::String;
using Nvr::TreeNode;

namespace {

constexpr std::array kSectionLabels = {"Bars",        "Items",       "Staves",   "Barlines", "Notes",
                                       "Instruments", "BarSpacings", "Brackets", "MidPoints"};

// Appends and gives back the child; a failed append frees it.
TreeNode* Append(TreeNode& parent, std::unique_ptr<TreeNode> child) {
    TreeNode* const added = child.release();
    parent.AddChild(added);
    return added;
}

template <class Value>
TreeNode* AddScalarChild(TreeNode* parent, const String& label, Value value) {
    return parent == nullptr ? nullptr : Append(*parent, std::make_unique<TreeNode>(label, value));
}

template <class Value>
TreeNode* SetScalarChild(TreeNode* parent, const String& label, Value value) {
    if (parent == nullptr)
        return nullptr;
    TreeNode* const child = parent->FindChild(label);
    if (child == nullptr)
        return AddScalarChild(parent, label, value);
    child->SetValue(value);
    return child;
}

using NodeList = std::vector<std::unique_ptr<TreeNode>>;

// Leaves `node` without children.
NodeList TakeChildren(TreeNode& node) {
    NodeList children;
    children.reserve(static_cast<std::size_t>(node.GetChildCount()));
    for (int index = 0; index < node.GetChildCount(); ++index)
        children.emplace_back(node.GetChild(index));
    node.ForgetChildren();
    return children;
}

// A part map becomes the value, or the record, of the full score.
bool FlattenPartMap(TreeNode* node, TreeNode* /*parent*/, int /*depth*/) {
    static const String kDefault("__PartMapDefault");
    if (node == nullptr)
        return true;
    TreeNode* const mapDefault = node->FindChild(kDefault);
    if (mapDefault == nullptr)
        return true;
    const NodeList map = TakeChildren(*node);
    if (mapDefault->GetChildCount() == 0) {
        node->SetValue(mapDefault->GetValue());
        return true;
    }
    for (std::unique_ptr<TreeNode>& child : TakeChildren(*mapDefault))
        Append(*node, std::move(child));
    return true;
}

} // namespace

String SectionLabel(int section) {
    if (section < 0 || section >= static_cast<int>(kSectionLabels.size()))
        return {};
    return kSectionLabels.at(static_cast<std::size_t>(section));
}

TreeNode* GetSection(TreeNode* parent, ScoreSection section) {
    return AddTypedChild(parent, SectionLabel(section), String(), true);
}

TreeNode* AddTypedChild(TreeNode* parent, const String& label, const String& type, bool reuse) {
    if (parent == nullptr)
        return nullptr;
    TreeNode* child = reuse && !label.IsEmpty() ? parent->FindChild(label) : nullptr;
    if (child != nullptr && !type.IsEmpty()) {
        SetStringChild(child, "Type", type.CStr());
        return child;
    }
    if (child == nullptr)
        child = Append(*parent, std::make_unique<TreeNode>(label));
    if (!type.IsEmpty())
        AddStringChild(child, "Type", type.CStr());
    return child;
}

TreeNode* AddStringChild(TreeNode* parent, const String& label, const char* value) {
    return AddScalarChild(parent, label, value);
}

TreeNode* AddIntChild(TreeNode* parent, const String& label, int value) {
    return AddScalarChild(parent, label, value);
}

TreeNode* AddBoolChild(TreeNode* parent, const String& label, bool value) {
    return AddScalarChild(parent, label, value);
}

TreeNode* SetStringChild(TreeNode* parent, const String& label, const char* value) {
    return SetScalarChild(parent, label, value);
}

TreeNode* SetIntChild(TreeNode* parent, const String& label, int value) {
    return SetScalarChild(parent, label, value);
}

TreeNode* SetBoolChild(TreeNode* parent, const String& label, bool value) {
    return SetScalarChild(parent, label, value);
}

bool VisitTree(TreeNode* node, TreeVisitor visitor, TreeNode* parent, int depth) {
    struct Level {
        TreeNode* Node;
        Nvr::TreeNodeIterator Children;
    };
    if (!visitor(node, parent, depth))
        return false;
    if (node == nullptr)
        return true;
    std::vector<Level> path = {{node, Nvr::TreeNodeIterator(*node)}};
    while (!path.empty()) {
        TreeNode* const child = path.back().Children.Next();
        if (child == nullptr) {
            path.pop_back();
            continue;
        }
        if (!visitor(child, path.back().Node, depth + static_cast<int>(path.size())))
            return false;
        if (child->GetChildCount() != 0)
            path.push_back({child, Nvr::TreeNodeIterator(*child)});
    }
    return true;
}

void FlattenPartMaps(TreeNode* root) {
    VisitTree(root, FlattenPartMap, nullptr, 0);
}

} // namespace Fretline
