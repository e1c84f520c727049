#pragma once

#include "Shared/Utils/TAList.h"
#include "Shared/Utils/tree/TreeNode.h"

namespace Nvr {

/// The children of a node, which it owns: an array of node pointers that grows by 4 slots at a time. See
/// AList for the operations that it inherits. Deleting and copying need no recursion, and deleting no memory,
/// however deep the trees below. Lists lie in the TreeNodePool, and so do their arrays while they are short.
class TreeNodeList final : public TAList<TreeNode, BasicDeleter<TreeNode>> {
public:
    TreeNodeList() = default;
    /// Deep copies of all children, in order. A failed allocation frees what was copied until then.
    TreeNodeList(const TreeNodeList& other);
    /// Deletes the present children and takes deep copies of the others, which may lie below the present
    /// ones. A failed allocation leaves the list as it was.
    TreeNodeList& operator=(const TreeNodeList& other);
    ~TreeNodeList() override;

    static void* operator new(std::size_t size);
    static void operator delete(void* address) noexcept;

    /// The first child with that label, or with that label and that value; null when there is none.
    TreeNode* Find(const String& label) const;
    TreeNode* Find(const String& label, const String& value) const;

protected:
    void* ResizeArray(void* array, std::size_t oldSize, std::size_t newSize) override;
    void FreeArray(void* array, std::size_t size) noexcept override;

private:
    /// Deletes the nodes and frees the array. The nodes' own lists are put before `waiting`.
    void DeleteNodes(TreeNodeList*& waiting) noexcept;
    void AppendCopiesOf(const TreeNodeList& other);

    // Chains the lists that wait for their destruction, so that it takes neither recursion nor memory.
    TreeNodeList* m_NextWaiting = nullptr;
};

} // namespace Nvr
