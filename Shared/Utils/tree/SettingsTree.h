#pragma once

#include "Shared/Utils/NonCopyable.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/ResId.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <memory>

namespace Nvr {

/// A group of settings, read from the system's settings store into a tree.
///
/// The group is the key "Software" \ vendor \ product \ section of the store. A key is a node: its name the
/// label, its default value the value, its sub-keys the children in the store's order. A key whose name holds
/// "Unnamed_Node" gets an empty label, and so does the root. Owns the tree. Nothing stored, or a store that
/// cannot be read, is no failure and gives an empty tree without a report.
class SettingsTree : private NonCopyable {
public:
    /// Reads at once: the user's branch with `perUser`, then the machine's. When neither has the group: the
    /// file at `fallbackFile`, when there is one, then the resource, unless its id is -1.
    SettingsTree(const String& vendor, const String& product, const String& section, bool perUser,
                 const ResId& fallbackResource = ResId(kNoResource), const String& fallbackFile = String());
    ~SettingsTree();

    /// Never null.
    TreeNode* GetTree() const { return m_Tree.get(); }

    static constexpr int kNoResource = -1;

private:
    std::unique_ptr<TreeNodeRoot> ReadStore() const;
    std::unique_ptr<TreeNodeRoot> ReadFallbackFile() const;
    std::unique_ptr<TreeNodeRoot> ReadFallbackResource() const;

    String m_Vendor;
    String m_Product;
    String m_Section;
    bool m_PerUser;
    std::unique_ptr<TreeNodeRoot> m_Tree;
    ResId m_FallbackResource;
    String m_FallbackFile;
};

} // namespace Nvr
