#include "Shared/Utils/tree/TreeNodeList.h"

#include "Shared/Utils/AllocationFailure.h"
#include "Shared/Utils/tree/TreeNodePool.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace Nvr {

namespace {

constexpr bool IsPooled(std::size_t size) {
    return size <= TreeNodePool::kLargestSize;
}

} // namespace

TreeNodeList::TreeNodeList(const TreeNodeList& other) : TAList() {
    AppendCopiesOf(other);
}

TreeNodeList& TreeNodeList::operator=(const TreeNodeList& other) {
    if (&other != this) {
        TreeNodeList copy(other);
        TakeFrom(copy);
    }
    return *this;
}

TreeNodeList::~TreeNodeList() {
    TreeNodeList* waiting = nullptr;
    DeleteNodes(waiting);
    while (waiting != nullptr) {
        const std::unique_ptr<TreeNodeList> list(std::exchange(waiting, waiting->m_NextWaiting));
        list->DeleteNodes(waiting);
    }
}

void TreeNodeList::DeleteNodes(TreeNodeList*& waiting) noexcept {
    for (int i = 0; i < Count(); ++i) {
        TreeNode* const node = GetAt(i);
        if (TreeNodeList* const below = std::exchange(node->m_Children, nullptr)) {
            below->m_NextWaiting = waiting;
            waiting = below;
        }
        delete node;
    }
    Forget();
}

void TreeNodeList::AppendCopiesOf(const TreeNodeList& other) {
    struct Pending {
        const TreeNodeList* From;
        TreeNodeList* To;
    };
    std::vector<Pending> pending{{&other, this}};
    while (!pending.empty()) {
        const auto [from, to] = pending.back();
        pending.pop_back();
        to->Reserve(to->Count() + from->Count());
        for (int i = 0; i < from->Count(); ++i) {
            const TreeNode& source = *from->GetAt(i);
            auto copy = std::make_unique<TreeNode>(source.m_Label, source.m_Value);
            TreeNode& added = *copy;
            to->Add(copy.get());
            static_cast<void>(copy.release());
            if (source.GetChildCount() == 0)
                continue;
            added.m_Children = new TreeNodeList;
            pending.push_back({source.m_Children, added.m_Children});
        }
    }
}

void* TreeNodeList::operator new(std::size_t size) {
    static_assert(IsPooled(sizeof(TreeNodeList)));
    return TreeNodePool::Shared().Allocate(size);
}

void TreeNodeList::operator delete(void* address) noexcept {
    TreeNodePool::Shared().ReleaseCell(address);
}

void* TreeNodeList::ResizeArray(void* array, std::size_t oldSize, std::size_t newSize) {
    if (!IsPooled(newSize) && (array == nullptr || !IsPooled(oldSize)))
        return ResizeBlock(array, newSize);
    void* const resized =
        IsPooled(newSize) ? TreeNodePool::Shared().Allocate(newSize) : ResizeBlock(nullptr, newSize);
    if (array != nullptr) {
        std::memcpy(resized, array, std::min(oldSize, newSize));
        TreeNodeList::FreeArray(array, oldSize);
    }
    return resized;
}

void TreeNodeList::FreeArray(void* array, std::size_t size) noexcept {
    if (IsPooled(size))
        TreeNodePool::Shared().ReleaseCell(array);
    else
        FreeBlock(array);
}

TreeNode* TreeNodeList::Find(const String& label) const {
    for (int i = 0; i < Count(); ++i) {
        if (GetAt(i)->m_Label == label)
            return GetAt(i);
    }
    return nullptr;
}

TreeNode* TreeNodeList::Find(const String& label, const String& value) const {
    for (int i = 0; i < Count(); ++i) {
        if (GetAt(i)->m_Label == label && GetAt(i)->m_Value == value)
            return GetAt(i);
    }
    return nullptr;
}

} // namespace Nvr
