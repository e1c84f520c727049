#include "Shared/Utils/tree/TreeNodePool.h"

#include <cstring>
#include <new>

namespace Nvr {

namespace {

constexpr std::align_val_t kPageAlignment{TreeNodePool::kPageSize};

void WriteLink(char* page, std::uint32_t cell, std::uint32_t next) {
    std::memcpy(page + cell, &next, sizeof next);
}

} // namespace

constinit TreeNodePool TreeNodePool::s_Shared;

void TreeNodePool::Rearrange(Page* page) noexcept {
    if (page->CellsInUse == 0) {
        Unlink(page);
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
    void* const block = ::operator new(kPageSize, kPageAlignment);
    const auto cellSize = static_cast<std::uint32_t>(CellSizeOf(classIndex));
    const auto firstCell = static_cast<std::uint32_t>(sizeof(Page));
    Page* const page =
        new (block) Page{nullptr, firstCell, 0, nullptr, static_cast<std::uint32_t>(classIndex), false};

    char* const base = static_cast<char*>(block);
    std::uint32_t cell = firstCell;
    for (; cell + 2 * cellSize <= kPageSize; cell += cellSize)
        WriteLink(base, cell, cell + cellSize);
    WriteLink(base, cell, 0);

    m_Pages.Add(reinterpret_cast<std::uintptr_t>(block));
    Link(page);
    return page;
}

void TreeNodePool::DeletePage(Page* page) noexcept {
    m_LastReleasedFrom = nullptr;
    m_Pages.Remove(reinterpret_cast<std::uintptr_t>(page));
    ::operator delete(page, kPageAlignment);
}

TreeNodePool::Page*& TreeNodePool::ListOf(const Page& page) noexcept {
    return page.IsFull ? m_Full[page.ClassIndex] : m_WithFreeCells[page.ClassIndex];
}

void TreeNodePool::Link(Page* page) noexcept {
    Page*& list = ListOf(*page);
    page->Previous = nullptr;
    page->Next = list;
    if (list != nullptr)
        list->Previous = page;
    list = page;
}

void TreeNodePool::Unlink(Page* page) noexcept {
    if (page->Previous != nullptr)
        page->Previous->Next = page->Next;
    else
        ListOf(*page) = page->Next;
    if (page->Next != nullptr)
        page->Next->Previous = page->Previous;
}

void TreeNodePool::MoveToOtherList(Page* page) noexcept {
    Unlink(page);
    page->IsFull = !page->IsFull;
    Link(page);
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
