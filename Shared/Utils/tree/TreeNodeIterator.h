#pragma once

#include "Shared/Utils/tree/TreeNode.h"

namespace Nvr {

/// A forward cursor over the children of one node, which it borrows. The count is asked afresh on each step,
/// so children appended during a walk are reached.
class TreeNodeIterator {
public:
    explicit TreeNodeIterator(const TreeNode& node) : m_Node(&node) {}

    /// The next child, or null at the end.
    TreeNode* Next() {
        TreeNode* child = m_Node->GetChild(m_Index);
        if (child != nullptr)
            ++m_Index;
        return child;
    }
    void Reset() { m_Index = 0; }

private:
    const TreeNode* m_Node;
    int m_Index = 0;
};

} // namespace Nvr
