#include "Shared/Utils/AllocationFailure.h"

#include "Shared/Utils/Exceptions.h"

#include <cstdlib>
#include <new>

namespace Nvr {

namespace {

std::new_handler s_FormerHandler = nullptr;

[[noreturn]] void ThrowOutOfMemory() {
    throw OutOfMemoryException();
}

} // namespace

void InstallAllocationFailureHandler() noexcept {
    if (std::get_new_handler() != ThrowOutOfMemory)
        s_FormerHandler = std::set_new_handler(ThrowOutOfMemory);
}

void RemoveAllocationFailureHandler() noexcept {
    if (std::get_new_handler() == ThrowOutOfMemory)
        std::set_new_handler(s_FormerHandler);
    s_FormerHandler = nullptr;
}

void HandleAllocationFailure() {
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr)
        throw std::bad_alloc();
    handler();
}

void RaiseAllocationFailure() {
    if (std::get_new_handler() == ThrowOutOfMemory)
        ThrowOutOfMemory();
    throw std::bad_alloc();
}

void* ResizeBlock(void* block, std::size_t size) {
    for (;;) {
        if (void* const resized = std::realloc(block, size))
            return resized;
        HandleAllocationFailure();
    }
}

void FreeBlock(void* block) noexcept {
    std::free(block);
}

} // namespace Nvr
