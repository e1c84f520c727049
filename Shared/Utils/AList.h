#pragma once

#include "Shared/Utils/ListGrowth.h"

#include <cstddef>
#include <cstdint>

namespace Nvr {

/// A growing array of untyped pointers that owns what they point to, through one virtual operation. TAList
/// gives it a type; nothing else need be derived from it.
///
/// Indexes count from 0; an index that is not there does nothing, but for GetAt, which does not look. Nothing
/// is allocated until the first item arrives or a capacity is asked for. When it is full, the capacity goes
/// up by the grow-by (4, unless given), or doubles with a grow-by of 0. A failed allocation raises the
/// allocation failure and leaves the list as it was; the item is then still the caller's.
class AList {
public:
    AList() = default;
    AList(const AList&) = delete;
    AList& operator=(const AList&) = delete;
    explicit AList(int capacity, int growBy = static_cast<int>(ListGrowth::kDefaultGrowBy));
    /// Frees the array. A derived class deletes the items before, as only it still can.
    virtual ~AList();

    /// Appends; the list owns the item from here on.
    void Add(void* item) {
        if (m_Count == m_Capacity)
            Grow();
        m_Items[m_Count++] = item;
    }
    void AddFirst(void* item) { Insert(item, 0); }
    /// Before the item at `index`; at the end when it is the count.
    void Insert(void* item, int index);
    /// Makes sure of the capacity, exactly; never shrinks.
    void Reserve(int capacity);

    /// Unchecked.
    void* GetAt(int index) const { return m_Items[index]; }
    int Count() const { return static_cast<int>(m_Count); }
    int Capacity() const { return static_cast<int>(m_Capacity); }
    int GrowBy() const { return static_cast<int>(m_GrowBy); }
    /// The index of the first item that is this very pointer, or -1.
    int IndexOf(const void* item) const;
    bool Contains(const void* item) const { return IndexOf(item) >= 0; }

    /// Takes the first match out; the item is the caller's again. Nothing when it is not there.
    void Remove(const void* item);
    /// Takes the first match out, and deletes the item whether it was there or not; null does nothing.
    void Delete(void* item);
    void DeleteAt(int index);
    /// Deletes all items in their order and frees the array: capacity and count are 0.
    void DeleteAll();
    /// Frees the array; the items are the caller's.
    void Forget() noexcept;
    /// Sets the count to 0 and keeps the array; the items are the caller's.
    void Truncate() noexcept { m_Count = 0; }
    /// Deletes the present items and takes array, capacity and count of `other`, which is left empty. The
    /// grow-by of both stays. Nothing when `other` is this list.
    /// REQUIRES: both have their arrays from the same place, as lists of the same class do.
    void TakeFrom(AList& other);
    /// Appends the items of `other` from the index `first` on, which it no longer has then. The capacity is
    /// the one that adding them one by one leaves. Nothing when there are none. A failed allocation leaves
    /// both as they were.
    void TakeTail(AList& other, int first);

protected:
    virtual void DeleteItem(void* item) = 0;
    /// Makes an array `newSize` bytes long that was `oldSize`, or a new one when `array` is null, as
    /// ResizeBlock does. A class that has its arrays elsewhere than in general memory overrides both of
    /// these, and empties the list in its own destructor.
    virtual void* ResizeArray(void* array, std::size_t oldSize, std::size_t newSize);
    virtual void FreeArray(void* array, std::size_t size) noexcept;
    /// The array, null when nothing is allocated; for fast walks in derived lists.
    void* const* Items() const { return m_Items; }

private:
    void Grow();
    void SetCapacity(std::uint32_t capacity);
    void Free(void** items, std::uint32_t capacity) noexcept;
    void TakeOutAt(std::uint32_t index) noexcept;

    void** m_Items = nullptr;
    std::uint32_t m_Capacity = 0;
    std::uint32_t m_Count = 0;
    std::uint32_t m_GrowBy = ListGrowth::kDefaultGrowBy;
};

/// Walks a list, which it borrows, from the front. The count is asked afresh on each step.
class AListIterator {
public:
    explicit AListIterator(const AList& list) : m_List(&list) {}

    /// The next item, or null at the end.
    void* Next() { return m_Index < m_List->Count() ? m_List->GetAt(m_Index++) : nullptr; }
    void Reset() { m_Index = 0; }

private:
    const AList* m_List;
    int m_Index = 0;
};

} // namespace Nvr
