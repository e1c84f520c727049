#pragma once

#include "Shared/Utils/AList.h"

namespace Nvr {

/// Deletes with plain `delete`.
template <class T>
struct BasicDeleter {
    void operator()(T* item) const { delete item; }
};

/// A growing array of `T*` that owns its items and deletes them through `Deleter`. See AList for each
/// operation.
template <class T, class Deleter = BasicDeleter<T>>
class TAList : public AList {
public:
    TAList() = default;
    explicit TAList(int capacity, int growBy = static_cast<int>(ListGrowth::kDefaultGrowBy))
        : AList(capacity, growBy) {}
    ~TAList() override { TAList::DeleteAll(); }

    void Add(T* item) { AList::Add(item); }
    void AddFirst(T* item) { AList::AddFirst(item); }
    void Insert(T* item, int index) { AList::Insert(item, index); }
    T* GetAt(int index) const { return static_cast<T*>(AList::GetAt(index)); }
    int IndexOf(const T* item) const { return AList::IndexOf(item); }
    bool Contains(const T* item) const { return AList::Contains(item); }
    void Remove(const T* item) { AList::Remove(item); }
    void Delete(T* item) { AList::Delete(item); }
    void TakeFrom(TAList& other) { AList::TakeFrom(other); }
    void TakeTail(TAList& other, int first) { AList::TakeTail(other, first); }

protected:
    void DeleteItem(void* item) override { Deleter()(static_cast<T*>(item)); }
};

} // namespace Nvr
