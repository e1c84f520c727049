#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Nvr {

/// Memory for the many small objects of a tree: nodes, their lists, and the arrays of short ones.
///
/// Sizes of 1 to 199 bytes fall into 50 classes by steps of 4; each class has pages of its own, cut into
/// cells of one size. A page is a block of 32768 bytes that starts at a multiple of its size, so the page of
/// a cell is known from the cell's address. A class keeps its pages in two lists, those with free cells and
/// the full ones; a page without cells in use is given back at once. Memory is aligned to 4 bytes, and to 8
/// when the size is a multiple of 8. What was never a cell in use is not touched.
///
/// Pages come from the system by the stretch, as single ones would leave a hole before each; a stretch
/// without pages in use goes back.
///
/// A pool does not free what is still in use when it goes: every cell must have been released before. Not
/// safe across threads.
class TreeNodePool {
public:
    static constexpr std::size_t kPageSize = 32768;
    static constexpr std::size_t kLargestSize = 199;
    static constexpr std::size_t kClassCount = 50;

    constexpr TreeNodePool() = default;
    TreeNodePool(const TreeNodePool&) = delete;
    TreeNodePool& operator=(const TreeNodePool&) = delete;

    /// The pool of the process, which serves all nodes and lists. Never destroyed, so that nodes may be
    /// destroyed at any time.
    static TreeNodePool& Shared() noexcept { return s_Shared; }

    /// A cell of at least `size` bytes; null for a size that has no class, which is the general allocator's
    /// business. A failed allocation of a page raises the allocation failure and leaves the pool as it was.
    void* Allocate(std::size_t size) {
        if (size == 0 || size > kLargestSize)
            return nullptr;
        Page* page = m_WithFreeCells[ClassOf(size)];
        if (page == nullptr)
            page = NewPage(ClassOf(size));
        return TakeCell(*page);
    }
    /// Takes a cell back. False when no page of this pool holds the address, and then nothing was done. Costs
    /// the same however many pages there are.
    bool Release(void* address) noexcept {
        const auto offset = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(address) % kPageSize);
        char* const base = static_cast<char*>(address) - offset;
        Page* const page = reinterpret_cast<Page*>(base);
        if (page != m_LastReleasedFrom && !m_Pages.Contains(reinterpret_cast<std::uintptr_t>(base)))
            return false;
        m_LastReleasedFrom = page;
        ReleaseFrom(*page, offset);
        return true;
    }
    /// Takes a cell back that is known for one of this pool's.
    void ReleaseCell(void* cell) noexcept {
        const auto offset = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(cell) % kPageSize);
        ReleaseFrom(*reinterpret_cast<Page*>(static_cast<char*>(cell) - offset), offset);
    }

    /// Cells that are not released yet, of all classes.
    std::size_t CellsInUse() const noexcept { return m_CellsInUse; }
    std::size_t PageCount() const noexcept { return m_Pages.Count(); }
    /// The pages of the class that `size` falls in: with free cells, and full.
    std::size_t PagesWithFreeCells(std::size_t size) const noexcept;
    std::size_t FullPages(std::size_t size) const noexcept;

private:
    struct Stretch;

    /// One page less than its size, as nobody knows where in a page it begins.
    static constexpr std::uint32_t kPagesOfStretch = 15;
    static constexpr std::size_t kStretchSize = (kPagesOfStretch + 1) * kPageSize;

    /// The head of a page. Cells are named by their offset in the page; 0, where the head lies, is none.
    struct alignas(8) Page {
        Page* Next;
        Page* Previous;
        Stretch* Owner;
        /// The first of those that were in use before, chained.
        std::uint32_t FirstFree;
        /// From here on no cell has been in use yet.
        std::uint32_t FirstUntouched;
        std::uint32_t CellsInUse;
        std::uint16_t ClassIndex;
        bool IsFull;
    };

    /// Pages side by side. Lies in the first of them, between its head and its cells.
    struct alignas(8) Stretch {
        void* Memory;
        Stretch* Next = nullptr;
        Stretch* Previous = nullptr;
        /// Those that were in use before, chained by Next.
        Page* FreePages = nullptr;
        /// So many of the first ones have been in use.
        std::uint32_t PagesTouched = 0;
        std::uint32_t PagesInUse = 0;
    };

    /// The addresses of all pages, by which a foreign address is told from a cell.
    class PageSet {
    public:
        constexpr PageSet() = default;
        std::size_t Count() const noexcept { return m_Count; }
        bool Contains(std::uintptr_t page) const noexcept;
        /// Makes sure that the next Add cannot fail.
        void MakeRoomForOne();
        void Add(std::uintptr_t page) noexcept;
        void Remove(std::uintptr_t page) noexcept;

    private:
        std::size_t HomeOf(std::uintptr_t page) const noexcept;
        void Place(std::uintptr_t page) noexcept;

        // Open addressing with at most half of the slots in use; 0 is a free slot.
        std::uintptr_t* m_Slots = nullptr;
        std::size_t m_SlotCount = 0;
        std::size_t m_Count = 0;
    };

    void* TakeCell(Page& page) noexcept {
        const std::uint32_t cellSize = CellSizeOf(page.ClassIndex);
        char* cell = reinterpret_cast<char*>(&page);
        if (page.FirstFree != 0) {
            cell += page.FirstFree;
            // A free cell holds the offset of the next free one. Cells may be as small as 4 bytes.
            std::memcpy(&page.FirstFree, cell, sizeof page.FirstFree);
        } else {
            cell += page.FirstUntouched;
            page.FirstUntouched += cellSize;
        }
        ++page.CellsInUse;
        ++m_CellsInUse;
        if (page.FirstFree == 0 && page.FirstUntouched + cellSize > kPageSize)
            MoveToOtherList(&page);
        return cell;
    }
    void ReleaseFrom(Page& page, std::uint32_t cell) noexcept {
        std::memcpy(reinterpret_cast<char*>(&page) + cell, &page.FirstFree, sizeof page.FirstFree);
        page.FirstFree = cell;
        --page.CellsInUse;
        --m_CellsInUse;
        if (page.IsFull || page.CellsInUse == 0)
            Rearrange(&page);
    }
    static constexpr std::size_t ClassOf(std::size_t size) { return (size - 1) / 4; }
    static constexpr std::uint32_t CellSizeOf(std::uint32_t classIndex) { return classIndex * 4 + 4; }
    /// After a release from a full page, or of the last cell of any.
    void Rearrange(Page* page) noexcept;
    Page* NewPage(std::size_t classIndex);
    void DeletePage(Page* page) noexcept;
    /// A stretch with a page that is not in use.
    Stretch& NeedStretch();
    static char* FirstPageOf(Stretch& stretch) noexcept;
    Page*& ListOf(const Page& page) noexcept;
    void MoveToOtherList(Page* page) noexcept;
    static std::size_t CountPages(const Page* page) noexcept;

    static TreeNodePool s_Shared;

    Page* m_WithFreeCells[kClassCount] = {};
    Page* m_Full[kClassCount] = {};
    /// Where the last cell was taken back, as the next one mostly lies there too.
    Page* m_LastReleasedFrom = nullptr;
    PageSet m_Pages;
    /// Those with pages that are not in use; the others are known from their pages.
    Stretch* m_Stretches = nullptr;
    std::size_t m_CellsInUse = 0;
};

} // namespace Nvr
