#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <exception>

/// How a tree reader is left as soon as it has met what the caller looks for. Control flow, not failures:
/// thrown by the reader, caught where the search began, and seen by nobody else.
namespace Nvr {

/// The value of the first node with the label that was looked for.
class TreeNodeLabelFoundException : public std::exception {
public:
    explicit TreeNodeLabelFoundException(const String& value) noexcept : m_Value(value) {}

    const String& GetValue() const noexcept { return m_Value; }
    const char* what() const noexcept override { return "TreeNode label found"; }

private:
    String m_Value;
};

/// The first node with the label that was looked for, whole. Whoever catches it owns the node; the exception
/// never deletes it, and neither do copies of the exception.
class TreeNodeSubTreeFoundException : public std::exception {
public:
    explicit TreeNodeSubTreeFoundException(TreeNode* node) noexcept : m_Node(node) {}

    TreeNode* GetNode() const noexcept { return m_Node; }
    const char* what() const noexcept override { return "TreeNode subtree found"; }

private:
    TreeNode* m_Node;
};

} // namespace Nvr
