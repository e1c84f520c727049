#include "Shared/Utils/tree/TreeNodePool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

using Nvr::TreeNodePool;

namespace {

std::uintptr_t PageOf(const void* cell) {
    return reinterpret_cast<std::uintptr_t>(cell) / TreeNodePool::kPageSize;
}

} // namespace

TEST(TreeNodePool, TakesSizesOfItsClassesOnly) {
    TreeNodePool pool;
    EXPECT_EQ(pool.Allocate(0), nullptr);
    EXPECT_EQ(pool.Allocate(200), nullptr);
    for (std::size_t size = 1; size <= TreeNodePool::kLargestSize; ++size) {
        char* const first = static_cast<char*>(pool.Allocate(size));
        char* const second = static_cast<char*>(pool.Allocate(size));
        const auto cellSize = static_cast<std::ptrdiff_t>((size - 1) / 4 * 4 + 4);
        EXPECT_EQ(second - first, cellSize) << size;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(second) % (size % 8 == 0 ? 8 : 4), 0U) << size;
        std::memset(first, 0xAA, size);
        std::memset(second, 0x55, size);
        EXPECT_TRUE(pool.Release(first));
        EXPECT_TRUE(pool.Release(second));
    }
    EXPECT_EQ(pool.PageCount(), 0U);
}

TEST(TreeNodePool, KnowsForeignAddresses) {
    TreeNodePool pool;
    int outside = 0;
    EXPECT_FALSE(pool.Release(&outside));
    void* const cell = pool.Allocate(24);
    EXPECT_FALSE(pool.Release(&outside));
    EXPECT_FALSE(pool.Release(static_cast<char*>(cell) + TreeNodePool::kPageSize));
    EXPECT_EQ(pool.CellsInUse(), 1U);
    EXPECT_TRUE(pool.Release(cell));
    EXPECT_FALSE(pool.Release(cell));
}

TEST(TreeNodePool, PagesMoveBetweenTheLists) {
    TreeNodePool pool;
    std::vector<void*> cells;
    while (pool.PageCount() < 4)
        cells.push_back(pool.Allocate(100));
    EXPECT_EQ(pool.FullPages(100), 3U);
    EXPECT_EQ(pool.PagesWithFreeCells(100), 1U);
    EXPECT_EQ(pool.FullPages(96), 0U) << "another class";

    // A full page that gets a free cell is the first one to be taken from.
    void* const released = cells.front();
    EXPECT_TRUE(pool.Release(released));
    EXPECT_EQ(pool.FullPages(100), 2U);
    EXPECT_EQ(pool.Allocate(100), released);
    EXPECT_EQ(pool.FullPages(100), 3U);

    // A page without cells in use goes, from the middle of its list too.
    const std::uintptr_t emptied = PageOf(cells[cells.size() / 2]);
    for (const bool isOfThatPage : {true, false}) {
        for (void* const cell : cells)
            EXPECT_TRUE((PageOf(cell) == emptied) != isOfThatPage || pool.Release(cell));
        EXPECT_EQ(pool.PageCount(), isOfThatPage ? 3U : 0U);
    }
    EXPECT_EQ(pool.CellsInUse(), 0U);
}

TEST(TreeNodePool, NoTwoCellsOverlapInAnyOrderOfUse) {
    // Each cell is filled with its own number, and must still hold it when it is released.
    struct Cell {
        unsigned char* Memory;
        std::size_t Size;
        unsigned char Fill;
    };
    TreeNodePool pool;
    std::mt19937 random(7);
    std::vector<Cell> cells;
    for (int step = 0; step < 60000; ++step) {
        const unsigned allocationsOfThree = step < 30000 ? 2 : 1;
        if (cells.empty() || random() % 3 < allocationsOfThree) {
            const std::size_t size = random() % 8 == 0 ? 1 + random() % 199 : 24;
            const Cell cell{static_cast<unsigned char*>(pool.Allocate(size)), size,
                            static_cast<unsigned char>(random())};
            std::fill_n(cell.Memory, size, cell.Fill);
            cells.push_back(cell);
        } else {
            std::swap(cells[random() % cells.size()], cells.back());
            const Cell cell = cells.back();
            cells.pop_back();
            ASSERT_EQ(std::count(cell.Memory, cell.Memory + cell.Size, cell.Fill),
                      static_cast<std::ptrdiff_t>(cell.Size));
            ASSERT_TRUE(pool.Release(cell.Memory));
        }
        ASSERT_EQ(pool.CellsInUse(), cells.size());
    }
    for (const Cell& cell : cells)
        ASSERT_TRUE(pool.Release(cell.Memory));
    EXPECT_EQ(pool.PageCount(), 0U);
}
