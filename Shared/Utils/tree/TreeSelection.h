#pragma once

#include <span>
#include <string_view>

namespace Nvr {

/// Which nodes of a stored tree are wanted: those of one label below a node, and what is wanted below these,
/// or everything there when that is empty. Made to be written down as nested tables that live as long as the
/// program. Borrows both.
struct TreeSelection {
    std::string_view Label;
    std::span<const TreeSelection> Below = {};
};

} // namespace Nvr
