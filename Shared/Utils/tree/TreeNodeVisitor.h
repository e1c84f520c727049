#pragma once

namespace Nvr {

class TreeNode;

/// What a walk over a tree calls for each node; see WalkTree in TreeNodeWalk.h.
class TreeNodeVisitor {
public:
    virtual ~TreeNodeVisitor() = default;
    /// Before the node's children, which may still be changed here. False passes over them.
    virtual bool EnterNode(TreeNode& node, int depth) = 0;
    /// After the node's children, or in their place.
    virtual void LeaveNode(TreeNode& node, int depth) = 0;
};

} // namespace Nvr
