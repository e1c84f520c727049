#pragma once

#include "Shared/Utils/tree/TreeNode.h"

#include <string>

namespace ResourceScript {

/// The dialog of a layout tree (see Shared/Gui/DialogLayout.h) under the number `id`, as a resource script.
/// Throws std::runtime_error, with a sentence for the person who edits the layout, when a kind of control is
/// not known or a part is missing.
std::string DialogScript(const Nvr::TreeNode& layout, int id);

} // namespace ResourceScript
