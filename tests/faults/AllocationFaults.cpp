#include "tests/faults/AllocationFaults.h"

#include <cstdlib>
#include <new>

namespace {

// The allocations still to succeed before the one that fails, plus that one; 0 when none is to fail.
int s_UntilFailure = 0;
bool s_HasFailed = false;

bool IsFailureDue() {
    if (s_UntilFailure == 0 || --s_UntilFailure != 0)
        return false;
    s_HasFailed = true;
    return true;
}

void* Allocate(std::size_t size) {
    bool fails = IsFailureDue();
    for (;; fails = false) {
        void* const block = fails ? nullptr : std::malloc(size != 0 ? size : 1);
        if (block != nullptr)
            return block;
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr)
            throw std::bad_alloc();
        handler();
    }
}

} // namespace

void AllocationFaults::FailAfter(int count) {
    s_UntilFailure = count;
    s_HasFailed = false;
}

bool AllocationFaults::Stop() {
    s_UntilFailure = 0;
    return s_HasFailed;
}

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
