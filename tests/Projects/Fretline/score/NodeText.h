#pragma once

#include "Shared/Utils/VAList.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeIterator.h"

#include <initializer_list>
#include <string>

namespace ScoreTest {

/// The children of a node on one line, in order: label=value, and the children of a child in brackets. An
/// item, whose label is empty, shows as its brackets alone.
///
///     Type=Barline Staves(StaveIndex0=0)
inline std::string ChildrenText(const Nvr::TreeNode& node) {
    std::string text;
    Nvr::TreeNodeIterator children(node);
    while (const Nvr::TreeNode* const child = children.Next()) {
        if (!text.empty())
            text += ' ';
        text += child->GetLabel().View();
        const bool isScalar = child->GetChildCount() == 0;
        if (isScalar || !child->GetValue().IsEmpty())
            text.append("=").append(child->GetValue().View());
        if (!isScalar)
            text.append("(").append(ChildrenText(*child)).append(")");
    }
    return text;
}

/// The value of the first child with that label.
inline std::string Value(const Nvr::TreeNode& node, const char* label,
                         const char* missing = "no such child") {
    const Nvr::TreeNode* const child = node.FindChild(label);
    return child != nullptr ? std::string(child->GetValue().View()) : std::string(missing);
}

/// A node to hang things on, owned by the test.
inline Nvr::TreeNode* Child(Nvr::TreeNode& parent, const char* label, const char* value = "") {
    auto* const child = new Nvr::TreeNode(label, value);
    parent.AddChild(child);
    return child;
}

inline Nvr::TVAList<int> Ints(std::initializer_list<int> values) {
    Nvr::TVAList<int> list;
    for (const int value : values)
        list.Add(value);
    return list;
}

} // namespace ScoreTest
