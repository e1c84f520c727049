#pragma once

#include "Shared/Utils/ResId.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The template that is linked into this program, as a conversion gets it; raises when there is none.
inline Nvr::TreeNodeRoot* LoadTemplate() {
    constexpr int kTemplateId = 100;
    static const std::unique_ptr<Nvr::TreeNodeRoot> kLoaded(Nvr::ResId(kTemplateId).LoadFromResource());
    return kLoaded != nullptr ? kLoaded.get() : throw std::runtime_error("no template");
}

/// The node reached from `node` by the labels, or null.
inline const Nvr::TreeNode* FindPath(const Nvr::TreeNode& node, std::initializer_list<const char*> labels) {
    const Nvr::TreeNode* found = &node;
    for (const char* label : labels) {
        if (found != nullptr)
            found = found->FindChild(label);
    }
    return found;
}

/// The value of a child; "(none)" when there is no such child.
inline std::string ValueOf(const Nvr::TreeNode& node, const char* label) {
    const Nvr::TreeNode* child = node.FindChild(label);
    return child == nullptr ? "(none)" : std::string(child->GetValue().View());
}

/// The row of a list whose child has that value, or null.
inline const Nvr::TreeNode* FindRow(const Nvr::TreeNode& list, const char* label, const char* value) {
    for (int i = 0; i < list.GetChildCount(); ++i) {
        if (ValueOf(*list.GetChild(i), label) == value)
            return list.GetChild(i);
    }
    return nullptr;
}

/// The children in order; none of null.
inline std::vector<const Nvr::TreeNode*> ChildrenOf(const Nvr::TreeNode* node) {
    std::vector<const Nvr::TreeNode*> children;
    for (int i = 0; node != nullptr && i < node->GetChildCount(); ++i)
        children.push_back(node->GetChild(i));
    return children;
}

/// The value of a child as a whole number; without such a child it is 0 and the test fails.
inline int IntOf(const Nvr::TreeNode& node, const char* label) {
    const Nvr::TreeNode* const child = node.FindChild(label);
    EXPECT_NE(child, nullptr) << label;
    return child == nullptr ? 0 : child->GetValueAsInt();
}

/// The labels of all children, each with a comma after it.
inline std::string LabelsOf(const Nvr::TreeNode& node) {
    std::string labels;
    for (int i = 0; i < node.GetChildCount(); ++i)
        labels.append(node.GetChild(i)->GetLabel().View()).append(",");
    return labels;
}

/// The values of all children, separated by commas.
inline std::string ValuesOf(const Nvr::TreeNode& node) {
    std::string values;
    for (int i = 0; i < node.GetChildCount(); ++i) {
        if (i > 0)
            values += ',';
        values += node.GetChild(i)->GetValue().View();
    }
    return values;
}

/// A node of a walk, and its depth below the node that the walk began at.
struct VisitedNode {
    const Nvr::TreeNode* Node;
    int Depth;
};

/// The node itself and everything below it, in document order.
inline std::vector<VisitedNode> AllNodes(const Nvr::TreeNode& root) {
    std::vector<VisitedNode> open = {{&root, 0}};
    std::vector<VisitedNode> nodes;
    while (!open.empty()) {
        const VisitedNode visited = open.back();
        open.pop_back();
        nodes.push_back(visited);
        for (int i = visited.Node->GetChildCount() - 1; i >= 0; --i)
            open.push_back({visited.Node->GetChild(i), visited.Depth + 1});
    }
    return nodes;
}

inline int CountNodes(const Nvr::TreeNode& root) {
    return static_cast<int>(AllNodes(root).size());
}
