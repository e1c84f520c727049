#pragma once

#include "Shared/Utils/ListGrowth.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

namespace Nvr {

/// A growing array of values.
///
/// Indexes count from 0; an index that is not there does nothing, but for GetAt, which does not look. The
/// capacity grows as that of AList: by the grow-by (4, unless given) whenever it is full, or doubling with a
/// grow-by of 0; its array grows in larger steps, so that a long list costs what its length says.
/// Slots that hold no element hold no object. A failed allocation leaves the list as it was. References to
/// elements last until the next addition or removal.
template <class T>
class TVAList {
    static_assert(!std::is_same_v<T, bool>, "an element must be an object of its own");

public:
    TVAList() = default;
    explicit TVAList(int capacity, int growBy = static_cast<int>(ListGrowth::kDefaultGrowBy))
        : m_GrowBy(static_cast<std::uint32_t>(std::max(growBy, 0))) {
        Reserve(capacity);
    }
    /// Copies capacity, count, grow-by and the elements.
    TVAList(const TVAList& other) : m_GrowBy(other.m_GrowBy) {
        Reserve(other.Capacity());
        m_Items.assign(other.m_Items.begin(), other.m_Items.end());
    }
    TVAList(TVAList&& other) noexcept
        : m_Items(std::move(other.m_Items)), m_Capacity(std::exchange(other.m_Capacity, 0U)),
          m_GrowBy(other.m_GrowBy) {
        other.m_Items.clear();
    }
    TVAList& operator=(const TVAList& other) {
        if (this != &other)
            *this = TVAList(other);
        return *this;
    }
    TVAList& operator=(TVAList&& other) noexcept {
        m_Items.swap(other.m_Items);
        std::swap(m_Capacity, other.m_Capacity);
        std::swap(m_GrowBy, other.m_GrowBy);
        return *this;
    }
    ~TVAList() = default;

    /// Appends. By value, so that an element of this list may be given.
    void Add(T item) {
        GrowWhenFull();
        m_Items.push_back(std::move(item));
    }
    void AddFirst(T item) { Insert(std::move(item), 0); }
    /// Before the element at `index`; at the end when it is the count.
    void Insert(T item, int index) {
        if (index < 0 || index > Count())
            return;
        GrowWhenFull();
        m_Items.insert(m_Items.begin() + index, std::move(item));
    }
    /// Makes sure of the capacity, exactly; never shrinks.
    void Reserve(int capacity) {
        if (capacity <= Capacity())
            return;
        SetCapacity(static_cast<std::uint32_t>(capacity));
    }

    /// Unchecked.
    T& GetAt(int index) { return m_Items[static_cast<std::size_t>(index)]; }
    const T& GetAt(int index) const { return m_Items[static_cast<std::size_t>(index)]; }
    int Count() const { return static_cast<int>(m_Items.size()); }
    int Capacity() const { return static_cast<int>(m_Capacity); }
    int GrowBy() const { return static_cast<int>(m_GrowBy); }
    /// The index of the first element that equals `item`, or -1.
    int IndexOf(const T& item) const {
        const auto found = std::find(m_Items.begin(), m_Items.end(), item);
        return found != m_Items.end() ? static_cast<int>(found - m_Items.begin()) : -1;
    }
    bool Contains(const T& item) const { return IndexOf(item) >= 0; }

    /// Takes the first equal element out; nothing when there is none.
    void Remove(const T& item) { DeleteAt(IndexOf(item)); }
    /// The same: an element held by value is deleted by taking it out.
    void Delete(const T& item) { Remove(item); }
    void DeleteAt(int index) {
        if (index >= 0 && index < Count())
            m_Items.erase(m_Items.begin() + index);
    }
    /// Frees the array: capacity and count are 0.
    void DeleteAll() noexcept {
        std::vector<T>().swap(m_Items);
        m_Capacity = 0;
    }
    /// The same, as there are no elements without the array.
    void Forget() noexcept { DeleteAll(); }
    /// Sets the count to 0 and keeps the array.
    void Truncate() noexcept { m_Items.clear(); }
    /// Takes array, capacity and count of `other`, which is left empty. The grow-by of both stays. Nothing
    /// when `other` is this list.
    void TakeFrom(TVAList& other) noexcept {
        if (this == &other)
            return;
        DeleteAll();
        m_Items.swap(other.m_Items);
        std::swap(m_Capacity, other.m_Capacity);
    }

    auto begin() { return m_Items.begin(); }
    auto end() { return m_Items.end(); }
    auto begin() const { return m_Items.begin(); }
    auto end() const { return m_Items.end(); }

private:
    void GrowWhenFull() {
        if (m_Items.size() == m_Capacity)
            SetCapacity(ListGrowth::NextCapacity(m_Capacity, m_GrowBy));
    }
    void SetCapacity(std::uint32_t capacity) {
        m_Items.reserve(ListGrowth::AllocatedSlots(capacity));
        m_Capacity = capacity;
    }

    std::vector<T> m_Items;
    std::uint32_t m_Capacity = 0;
    std::uint32_t m_GrowBy = ListGrowth::kDefaultGrowBy;
};

} // namespace Nvr
