#include "tests/faults/AllocationFaults.h"

#include <algorithm>
#include <cstdlib>
#include <new>

FaultCountdown AllocationFaults;
std::size_t LargestAllocation = 0;

namespace {

template <class GetBlock>
void* Allocate(GetBlock getBlock) {
    bool fails = AllocationFaults.IsDue();
    for (;; fails = false) {
        void* const block = fails ? nullptr : getBlock();
        if (block != nullptr)
            return block;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr)
            throw std::bad_alloc();
        handler();
    }
}

void* Allocate(std::size_t size) {
    LargestAllocation = std::max(LargestAllocation, size);
    return Allocate([size] { return std::malloc(size != 0 ? size : 1); });
}

} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}

void* operator new[](std::size_t size) {
    return Allocate(size);
}

// As the standard library has it: null, whatever the handler throws.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return Allocate(size);
    } catch (...) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
    return operator new(size, nothrow);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return Allocate([=] { return std::aligned_alloc(static_cast<std::size_t>(alignment), size); });
}

void operator delete(void* block, std::align_val_t) noexcept {
    std::free(block);
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete[](void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

// The linker sends all calls of realloc in this program to the first, and those of the second to realloc.
void* FailingRealloc(void* block, std::size_t size) __asm__("__wrap_realloc");
void* RealRealloc(void* block, std::size_t size) __asm__("__real_realloc");

// As realloc does, it gives null; the caller handles that.
void* FailingRealloc(void* block, std::size_t size) {
    LargestAllocation = std::max(LargestAllocation, size);
    return AllocationFaults.IsDue() ? nullptr : RealRealloc(block, size);
}
