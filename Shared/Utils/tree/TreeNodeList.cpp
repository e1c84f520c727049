#include "Shared/Utils/tree/TreeNodeList.h"

#include "Shared/Utils/tree/TreeNodePool.h"

#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace Nvr {

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
    void* const cell = TreeNodePool::Shared().Allocate(size);
    return cell != nullptr ? cell : ::operator new(size);
}

void TreeNodeList::operator delete(void* address) noexcept {
    if (!TreeNodePool::Shared().Release(address))
        ::operator delete(address);
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
