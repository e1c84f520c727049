#include "Projects/Fretline/score/ScoreAccess.h"

#include "Shared/Utils/tree/TreeNodeIterator.h"

#include <array>
#include <memory>
#include <vector>

namespace Fretline {

using Nvr::FixedString;
using Nvr::String;
using Nvr::TreeNode;

namespace {

constinit const FixedString kType("Type");

constinit const std::array<FixedString, 9> kSectionLabels{
    {FixedString("Bars"), FixedString("Items"), FixedString("Staves"), FixedString("Barlines"),
     FixedString("Notes"), FixedString("Instruments"), FixedString("BarSpacings"), FixedString("Brackets"),
     FixedString("MidPoints")}};

// Appends and gives back the child; a failed append frees it.
TreeNode* Append(TreeNode& parent, std::unique_ptr<TreeNode> child) {
    TreeNode* const added = child.release();
    parent.AddChild(added);
    return added;
}

template <class Label, class Value>
TreeNode* AddScalarChild(TreeNode* parent, const Label& label, const Value& value) {
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
    return kSectionLabels.at(static_cast<std::size_t>(section)).Interned();
}

TreeNode* GetSection(TreeNode* parent, ScoreSection section) {
    if (parent == nullptr)
        return nullptr;
    const FixedString& label = kSectionLabels.at(static_cast<std::size_t>(section));
    TreeNode* const present = parent->FindChild(label.Interned());
    return present != nullptr ? present : Append(*parent, std::make_unique<TreeNode>(label));
}

TreeNode* AddTypedChild(TreeNode* parent, const String& label, const String& type, bool reuse) {
    if (parent == nullptr)
        return nullptr;
    TreeNode* child = reuse && !label.IsEmpty() ? parent->FindChild(label) : nullptr;
    TreeNode* const present =
        child != nullptr && !type.IsEmpty() ? child->FindChild(kType.Interned()) : nullptr;
    if (child == nullptr)
        child = Append(*parent, std::make_unique<TreeNode>(label));
    if (present != nullptr)
        present->SetValue(type);
    else if (!type.IsEmpty())
        AddStringChild(child, kType, type);
    return child;
}

TreeNode* AddStringChild(TreeNode* parent, const String& label, const char* value) {
    return AddScalarChild(parent, label, value);
}

TreeNode* AddStringChild(TreeNode* parent, const FixedString& label, const String& value) {
    return AddScalarChild(parent, label, value);
}

TreeNode* AddStringChild(TreeNode* parent, const FixedString& label, const FixedString& value) {
    return AddScalarChild(parent, label, value);
}

void AddIntChildren(TreeNode* parent, std::initializer_list<Nvr::TreeNumber> numbers) {
    if (parent != nullptr)
        parent->AddNumbers(numbers);
}

TreeNode* AddBoolChild(TreeNode* parent, const FixedString& label, bool value) {
    return AddScalarChild(parent, label, value);
}

TreeNode* AddTypedChild(TreeNode* parent, const FixedString& label, const FixedString& type, int childCount) {
    if (parent == nullptr)
        return nullptr;
    TreeNode* const child = Append(*parent, std::make_unique<TreeNode>(label));
    child->ReserveChildren(childCount);
    AddStringChild(child, kType, type);
    return child;
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
