#include "Shared/Utils/tree/TreeNodeWalk.h"

#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeVisitor.h"

#include <vector>

namespace Nvr {

void WalkTree(TreeNode& root, TreeNodeVisitor& visitor) {
    struct Entered {
        TreeNode* Node;
        int NextChild;
    };
    std::vector<Entered> path;
    if (visitor.EnterNode(root, 0))
        path.push_back({&root, 0});
    else
        visitor.LeaveNode(root, 0);
    while (!path.empty()) {
        const int depth = static_cast<int>(path.size());
        TreeNode* const child = path.back().Node->GetChild(path.back().NextChild++);
        if (child == nullptr) {
            visitor.LeaveNode(*path.back().Node, depth - 1);
            path.pop_back();
        } else if (visitor.EnterNode(*child, depth)) {
            path.push_back({child, 0});
        } else {
            visitor.LeaveNode(*child, depth);
        }
    }
}

namespace {

TreeNode* ChildOf(const TreeNode* node, int index) {
    return node != nullptr ? node->GetChild(index) : nullptr;
}

} // namespace

bool WalkInParallel(const TreeNodePair& start, const std::function<bool(const TreeNodePair&)>& predicate,
                    WalkEnd end) {
    struct Entered {
        const TreeNode* Left;
        const TreeNode* Right;
        int NextChild;
    };
    if (!predicate(start))
        return false;
    std::vector<Entered> path{{start.Left, start.Right, 0}};
    while (!path.empty()) {
        const Entered parents = path.back();
        const TreeNodePair pair{.Left = ChildOf(parents.Left, parents.NextChild),
                                .Right = ChildOf(parents.Right, parents.NextChild),
                                .LeftParent = parents.Left,
                                .RightParent = parents.Right,
                                .Depth = start.Depth + static_cast<int>(path.size())};
        const bool someIsMissing = pair.Left == nullptr || pair.Right == nullptr;
        const bool bothAreMissing = pair.Left == nullptr && pair.Right == nullptr;
        if (end == WalkEnd::ShorterList ? someIsMissing : bothAreMissing) {
            path.pop_back();
            continue;
        }
        if (!predicate(pair))
            return false;
        ++path.back().NextChild;
        path.push_back({pair.Left, pair.Right, 0});
    }
    return true;
}

} // namespace Nvr
