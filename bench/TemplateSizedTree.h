#pragma once

#include "Shared/Utils/tree/TreeNode.h"

#include <memory>

/// A tree of the size and the habits of the stored template: 81,393 nodes at up to 9 levels, some 7,800
/// distinct strings, lists of records without labels, part maps. The same one every time.
std::unique_ptr<Nvr::TreeNode> MakeTemplateSizedTree();
