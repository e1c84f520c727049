#include "Shared/Utils/AList.h"

#include "Shared/Utils/AllocationFailure.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace Nvr {

namespace {

// Indexes are ints.
constexpr std::uint32_t kLargestCapacity = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t kLargestBlock = std::numeric_limits<std::ptrdiff_t>::max();

// In bytes.
constexpr std::uint64_t ArraySize(std::uint32_t capacity) {
    return std::uint64_t{ListGrowth::AllocatedSlots(capacity)} * sizeof(void*);
}

} // namespace

std::uint32_t ListGrowth::NextCapacity(std::uint32_t capacity, std::uint32_t growBy) {
    const std::uint32_t more = growBy != 0 ? growBy : std::max(capacity, 1U);
    if (more > kLargestCapacity - capacity)
        RaiseAllocationFailure();
    return capacity + more;
}

AList::AList(int capacity, int growBy) : m_GrowBy(static_cast<std::uint32_t>(std::max(growBy, 0))) {
    Reserve(capacity);
}

AList::~AList() {
    AList::FreeArray(m_Items, 0);
}

void* AList::ResizeArray(void* array, std::size_t /*oldSize*/, std::size_t newSize) {
    return ResizeBlock(array, newSize);
}

void AList::FreeArray(void* array, std::size_t /*size*/) noexcept {
    FreeBlock(array);
}

void AList::Insert(void* item, int index) {
    if (index < 0 || index > Count())
        return;
    Add(item);
    std::rotate(m_Items + index, m_Items + m_Count - 1, m_Items + m_Count);
}

void AList::Reserve(int capacity) {
    if (capacity > Capacity())
        SetCapacity(static_cast<std::uint32_t>(capacity));
}

int AList::IndexOf(const void* item) const {
    void** const end = m_Items + m_Count;
    void** const found = std::find(m_Items, end, item);
    return found != end ? static_cast<int>(found - m_Items) : -1;
}

void AList::Remove(const void* item) {
    const int index = IndexOf(item);
    if (index >= 0)
        TakeOutAt(static_cast<std::uint32_t>(index));
}

void AList::Delete(void* item) {
    Remove(item);
    if (item != nullptr)
        DeleteItem(item);
}

void AList::DeleteAt(int index) {
    if (index < 0 || index >= Count())
        return;
    void* const item = m_Items[index];
    TakeOutAt(static_cast<std::uint32_t>(index));
    if (item != nullptr)
        DeleteItem(item);
}

void AList::DeleteAll() {
    // Taken out first, so that an item that looks at its list on its way out finds an empty one.
    void** const items = std::exchange(m_Items, nullptr);
    const std::uint32_t count = std::exchange(m_Count, 0U);
    const std::uint32_t capacity = std::exchange(m_Capacity, 0U);
    for (std::uint32_t i = 0; i < count; ++i) {
        if (items[i] != nullptr)
            DeleteItem(items[i]);
    }
    Free(items, capacity);
}

void AList::Forget() noexcept {
    Free(std::exchange(m_Items, nullptr), std::exchange(m_Capacity, 0U));
    m_Count = 0;
}

void AList::TakeFrom(AList& other) {
    if (&other == this)
        return;
    DeleteAll();
    m_Items = std::exchange(other.m_Items, nullptr);
    m_Capacity = std::exchange(other.m_Capacity, 0U);
    m_Count = std::exchange(other.m_Count, 0U);
}

void AList::TakeTail(AList& other, int first) {
    const int taken = other.Count() - first;
    if (&other == this || first < 0 || taken <= 0)
        return;
    const std::uint32_t count = m_Count + static_cast<std::uint32_t>(taken);
    std::uint32_t capacity = m_Capacity;
    while (capacity < count)
        capacity = ListGrowth::NextCapacity(capacity, m_GrowBy);
    Reserve(static_cast<int>(capacity));
    std::copy(other.m_Items + first, other.m_Items + other.m_Count, m_Items + m_Count);
    m_Count = count;
    other.m_Count = static_cast<std::uint32_t>(first);
}

void AList::Grow() {
    SetCapacity(ListGrowth::NextCapacity(m_Capacity, m_GrowBy));
}

void AList::SetCapacity(std::uint32_t capacity) {
    const std::uint64_t size = ArraySize(capacity);
    const std::uint64_t present = ArraySize(m_Capacity);
    if (m_Items == nullptr || size != present) {
        if (size > kLargestBlock)
            RaiseAllocationFailure();
        m_Items = static_cast<void**>(
            ResizeArray(m_Items, static_cast<std::size_t>(present), static_cast<std::size_t>(size)));
    }
    m_Capacity = capacity;
}

void AList::Free(void** items, std::uint32_t capacity) noexcept {
    if (items != nullptr)
        FreeArray(items, static_cast<std::size_t>(ArraySize(capacity)));
}

void AList::TakeOutAt(std::uint32_t index) noexcept {
    std::copy(m_Items + index + 1, m_Items + m_Count, m_Items + index);
    --m_Count;
}

} // namespace Nvr
