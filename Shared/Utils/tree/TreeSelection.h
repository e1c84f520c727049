#pragma once

#include <functional>
#include <span>
#include <string_view>

namespace Nvr {

class TreeNode;

/// Which nodes of a stored tree are wanted: those of one label below a node, and what is wanted below these,
/// or everything there when that is empty. Made to be written down as nested tables that live as long as the
/// program. Borrows both.
struct TreeSelection {
    std::string_view Label;
    std::span<const TreeSelection> Below = {};
    /// Each such node is shown to a NodeViewer as soon as it is whole, and stays in the tree without its
    /// children: a long list of them never lies in memory as a whole.
    bool IsShown = false;
};

/// What shown nodes are shown to. The node has no parent yet; it is of no use after the call.
using NodeViewer = std::function<void(const TreeNode& node)>;

} // namespace Nvr
