#include "Shared/Utils/tree/TreeNodePool.h"

#include <cstring>
#include <memory>
#include <new>

namespace Nvr {

namespace {

// Both pages and stretches lie in lists of this kind.
template <class Item>
void Link(Item*& list, Item& item) {
    item.Previous = nullptr;
    item.Next = list;
    if (list != nullptr)
        list->Previous = &item;
    list = &item;
}

template <class Item>
void Unlink(Item*& list, Item& item) {
    if (item.Previous != nullptr)
        item.Previous->Next = item.Next;
    else
        list = item.Next;
    if (item.Next != nullptr)
        item.Next->Previous = item.Previous;
}

} // namespace

constinit TreeNodePool TreeNodePool::s_Shared;

void TreeNodePool::Rearrange(Page* page) noexcept {
    if (page->CellsInUse == 0) {
        Unlink(ListOf(*page), *page);
        DeletePage(page);
    } else {
        MoveToOtherList(page);
    }
}

std::size_t TreeNodePool::PagesWithFreeCells(std::size_t size) const noexcept {
    return CountPages(m_WithFreeCells[ClassOf(size)]);
}

std::size_t TreeNodePool::FullPages(std::size_t size) const noexcept {
    return CountPages(m_Full[ClassOf(size)]);
}

TreeNodePool::Page* TreeNodePool::NewPage(std::size_t classIndex) {
    m_Pages.MakeRoomForOne();
    Stretch& stretch = NeedStretch();
    char* const first = FirstPageOf(stretch);
    char* place = reinterpret_cast<char*>(stretch.FreePages);
    if (place != nullptr)
        stretch.FreePages = stretch.FreePages->Next;
    else
        place = first + kPageSize * stretch.PagesTouched++;
    if (++stretch.PagesInUse == kPagesOfStretch)
        Unlink(m_Stretches, stretch);

    const std::size_t head = place == first ? sizeof(Page) + sizeof(Stretch) : sizeof(Page);
    Page* const page = new (place) Page{.Next = nullptr,
                                        .Previous = nullptr,
                                        .Owner = &stretch,
                                        .FirstFree = 0,
                                        .FirstUntouched = static_cast<std::uint32_t>(head),
                                        .CellsInUse = 0,
                                        .ClassIndex = static_cast<std::uint16_t>(classIndex),
                                        .IsFull = false};
    m_Pages.Add(reinterpret_cast<std::uintptr_t>(page));
    Link(ListOf(*page), *page);
    return page;
}

void TreeNodePool::DeletePage(Page* page) noexcept {
    m_LastReleasedFrom = nullptr;
    m_Pages.Remove(reinterpret_cast<std::uintptr_t>(page));
    Stretch& stretch = *page->Owner;
    page->Next = stretch.FreePages;
    stretch.FreePages = page;
    if (stretch.PagesInUse-- == kPagesOfStretch)
        Link(m_Stretches, stretch);
    if (stretch.PagesInUse != 0)
        return;
    Unlink(m_Stretches, stretch);
    ::operator delete(stretch.Memory);
}

TreeNodePool::Stretch& TreeNodePool::NeedStretch() {
    if (m_Stretches == nullptr) {
        // Not asked for as aligned memory: an allocator that cuts that out of more cannot use it for the next
        // one once it is given back.
        void* const memory = ::operator new(kStretchSize);
        void* firstPage = memory;
        std::size_t room = kStretchSize;
        std::align(kPageSize, kPagesOfStretch * kPageSize, firstPage, room);
        Link(m_Stretches, *new (static_cast<char*>(firstPage) + sizeof(Page)) Stretch{.Memory = memory});
    }
    return *m_Stretches;
}

char* TreeNodePool::FirstPageOf(Stretch& stretch) noexcept {
    return reinterpret_cast<char*>(&stretch) - sizeof(Page);
}

TreeNodePool::Page*& TreeNodePool::ListOf(const Page& page) noexcept {
    return page.IsFull ? m_Full[page.ClassIndex] : m_WithFreeCells[page.ClassIndex];
}

void TreeNodePool::MoveToOtherList(Page* page) noexcept {
    Unlink(ListOf(*page), *page);
    page->IsFull = !page->IsFull;
    Link(ListOf(*page), *page);
}

std::size_t TreeNodePool::CountPages(const Page* page) noexcept {
    std::size_t count = 0;
    for (; page != nullptr; page = page->Next)
        ++count;
    return count;
}

std::size_t TreeNodePool::PageSet::HomeOf(std::uintptr_t page) const noexcept {
    // Neighbouring pages take neighbouring slots.
    return (page / kPageSize) & (m_SlotCount - 1);
}

bool TreeNodePool::PageSet::Contains(std::uintptr_t page) const noexcept {
    if (m_SlotCount == 0)
        return false;
    for (std::size_t slot = HomeOf(page); m_Slots[slot] != 0; slot = (slot + 1) & (m_SlotCount - 1)) {
        if (m_Slots[slot] == page)
            return true;
    }
    return false;
}

void TreeNodePool::PageSet::MakeRoomForOne() {
    constexpr std::size_t kFewestSlots = 64;
    if ((m_Count + 1) * 2 <= m_SlotCount)
        return;
    const std::size_t slotCount = m_SlotCount == 0 ? kFewestSlots : m_SlotCount * 2;
    std::uintptr_t* const slots = new std::uintptr_t[slotCount]();
    std::uintptr_t* const oldSlots = m_Slots;
    const std::size_t oldSlotCount = m_SlotCount;
    m_Slots = slots;
    m_SlotCount = slotCount;
    for (std::size_t i = 0; i < oldSlotCount; ++i) {
        if (oldSlots[i] != 0)
            Place(oldSlots[i]);
    }
    delete[] oldSlots;
}

void TreeNodePool::PageSet::Place(std::uintptr_t page) noexcept {
    std::size_t slot = HomeOf(page);
    while (m_Slots[slot] != 0)
        slot = (slot + 1) & (m_SlotCount - 1);
    m_Slots[slot] = page;
}

void TreeNodePool::PageSet::Add(std::uintptr_t page) noexcept {
    Place(page);
    ++m_Count;
}

void TreeNodePool::PageSet::Remove(std::uintptr_t page) noexcept {
    const std::size_t mask = m_SlotCount - 1;
    std::size_t hole = HomeOf(page);
    while (m_Slots[hole] != page)
        hole = (hole + 1) & mask;
    // What stands after the hole moves into it, unless its home lies after the hole itself.
    for (std::size_t slot = (hole + 1) & mask; m_Slots[slot] != 0; slot = (slot + 1) & mask) {
        const std::size_t wayFromHome = (slot - HomeOf(m_Slots[slot])) & mask;
        if (wayFromHome >= ((slot - hole) & mask)) {
            m_Slots[hole] = m_Slots[slot];
            hole = slot;
        }
    }
    m_Slots[hole] = 0;
    if (--m_Count == 0) {
        delete[] m_Slots;
        m_Slots = nullptr;
        m_SlotCount = 0;
    }
}

} // namespace Nvr
