#pragma once

#include "Shared/Utils/tree/TreeNode.h"

#include <memory>
#include <string>
#include <string_view>

namespace TemplateBuilder {

/// Reads a text tree that a person wrote.
///
/// The general reader of text trees forgives what a program would never write: a list without its closing
/// brace, a text without its closing quote, and anything after the document's one node. Here they are
/// mistakes, named by their line, and so is a character outside all quotes that no label may hold, and a
/// nesting deeper than `kDeepestNesting`. `file` names the document in messages. Throws BuildError.
std::unique_ptr<Nvr::TreeNodeRoot> ReadTextTree(const std::string& file, std::string_view text);

/// Far above any template; it bounds the walks over such a tree.
constexpr int kDeepestNesting = 40;

} // namespace TemplateBuilder
