#include "Shared/Utils/tree/TreeNode.h"

#include "Shared/Utils/tree/TreeNodeList.h"
#include "Shared/Utils/tree/TreeNodePool.h"
#include "Shared/Utils/tree/TreeNodeWalk.h"

#include <memory>
#include <utility>

namespace Nvr {

TreeNode::TreeNode(const String& label) : m_Label(label) {
    InternString(m_Label);
}

TreeNode::TreeNode(const String& label, const String& value) : m_Label(label), m_Value(value) {
    InternString(m_Label);
    InternString(m_Value);
}

TreeNode::TreeNode(const TreeNode& other) : TreeNode(other.m_Label, other.m_Value) {
    CopyChildrenFrom(other);
}

TreeNode& TreeNode::operator=(const TreeNode& other) {
    if (&other == this)
        return *this;
    // The label and value of a node below this one would go with its present children.
    String label = other.m_Label;
    String value = other.m_Value;
    InternString(label);
    InternString(value);
    CopyChildrenFrom(other);
    m_Label = std::move(label);
    m_Value = std::move(value);
    return *this;
}

TreeNode::~TreeNode() {
    delete m_Children;
}

int TreeNode::GetChildCount() const {
    return m_Children != nullptr ? m_Children->Count() : 0;
}

TreeNode* TreeNode::GetChild(int index) const {
    return index >= 0 && index < GetChildCount() ? m_Children->GetAt(index) : nullptr;
}

TreeNode* TreeNode::FindChild(const String& label) const {
    return m_Children != nullptr ? m_Children->Find(label) : nullptr;
}

TreeNode* TreeNode::FindChild(const String& label, const String& value) const {
    return m_Children != nullptr ? m_Children->Find(label, value) : nullptr;
}

bool TreeNode::IsSameTree(const TreeNode& other) const {
    const auto isSamePair = [](const TreeNodePair& pair) {
        return pair.Left != nullptr && pair.Right != nullptr &&
               pair.Left->GetLabel() == pair.Right->GetLabel() &&
               pair.Left->GetValue() == pair.Right->GetValue();
    };
    return this == &other || WalkInParallel({.Left = this, .Right = &other}, isSamePair, WalkEnd::LongerList);
}

void TreeNode::ReserveChildren(int count) {
    NeedChildren().Reserve(count);
}

void TreeNode::AddChild(TreeNode* node) {
    if (node == nullptr || node == this)
        return;
    std::unique_ptr<TreeNode> held(node);
    NeedChildren().Add(node);
    static_cast<void>(held.release());
}

void TreeNode::AddChildFirst(TreeNode* node) {
    if (node == nullptr || node == this)
        return;
    std::unique_ptr<TreeNode> held(node);
    NeedChildren().AddFirst(node);
    static_cast<void>(held.release());
}

void TreeNode::InsertChild(TreeNode* node, int index) {
    if (index < 1) {
        AddChildFirst(node);
        return;
    }
    if (index >= GetChildCount()) {
        AddChild(node);
        return;
    }
    if (node == nullptr || node == this)
        return;
    std::unique_ptr<TreeNode> held(node);
    m_Children->Insert(node, index);
    static_cast<void>(held.release());
}

void TreeNode::MergeChild(TreeNode* node) {
    if (node == nullptr || node == this)
        return;
    TreeNode* const present = FindChild(node->m_Label);
    if (present == nullptr) {
        AddChild(node);
        return;
    }
    if (present == node)
        return;
    const std::unique_ptr<TreeNode> merged(node);
    present->CopyChildrenFrom(*merged);
    present->SetValue(merged->m_Value);
}

void TreeNode::RemoveChild(TreeNode* node) {
    const std::unique_ptr<TreeNode> removed(node);
    if (m_Children != nullptr)
        m_Children->Remove(node);
}

void TreeNode::ClearChildren() {
    if (m_Children != nullptr)
        m_Children->DeleteAll();
}

void TreeNode::ForgetChildren() {
    if (m_Children != nullptr)
        m_Children->Forget();
}

void TreeNode::CopyChildrenFrom(const TreeNode& other) {
    if (&other == this)
        return;
    std::unique_ptr<TreeNodeList> copies;
    if (other.m_Children != nullptr)
        copies = std::make_unique<TreeNodeList>(*other.m_Children);
    // Only now, as the other may be one of them.
    delete std::exchange(m_Children, copies.release());
}

TreeNodeList& TreeNode::NeedChildren() {
    if (m_Children == nullptr)
        m_Children = new TreeNodeList;
    return *m_Children;
}

} // namespace Nvr
