#pragma once

#include <functional>

/// Walks over whole trees. None of them recurses; each takes memory for the depth of the tree.
namespace Nvr {

class TreeNode;
class TreeNodeVisitor;

/// Enters and leaves every node of the tree in document order; `root` has the depth 0.
void WalkTree(TreeNode& root, TreeNodeVisitor& visitor);

/// Two nodes at the same position of two trees, null on the side that has none there.
struct TreeNodePair {
    const TreeNode* Left = nullptr;
    const TreeNode* Right = nullptr;
    const TreeNode* LeftParent = nullptr;
    const TreeNode* RightParent = nullptr;
    int Depth = 0;
};

/// Where the walk over two child lists of different length ends.
enum class WalkEnd { ShorterList, LongerList };

/// Applies the predicate to each pair of nodes in document order, beginning with `start`. False as soon as
/// the predicate is false, and true when it never is.
bool WalkInParallel(const TreeNodePair& start, const std::function<bool(const TreeNodePair&)>& predicate,
                    WalkEnd end);

} // namespace Nvr
