#pragma once

#include <cstddef>

namespace Nvr {

/// Makes a failed allocation raise OutOfMemoryException instead of what it raised before. The handler is one
/// for the whole process, on most platforms also for the code of the host: so it is taken out again with
/// RemoveAllocationFailureHandler before this module is unloaded. Installing it twice is the same as once.
///
/// OutOfMemoryException is no std::bad_alloc, and that is sound as long as nobody counts on the type:
/// - an ordinary `new` lets it pass, and standard containers keep their guarantees for any exception;
/// - `new (std::nothrow)` gives null all the same, as the standard library catches whatever its handler
/// throws;
/// - streams that format text take any exception as a failure of the stream;
/// - a function that cannot throw ends the process, with this exception as with std::bad_alloc;
/// - a `catch (const std::bad_alloc&)` does not see it, so code of this system catches std::exception.
void InstallAllocationFailureHandler() noexcept;

/// Puts back the handler that was there at installation, unless someone has replaced this one since.
void RemoveAllocationFailureHandler() noexcept;

/// What a failed `new` does: calls the installed handler, which throws or makes room, or throws
/// std::bad_alloc when there is none. For code that allocates in another way; returns when it may try again.
void HandleAllocationFailure();

/// Throws what a failed allocation throws, for a size that no allocation could ever have.
[[noreturn]] void RaiseAllocationFailure();

/// Makes the block of a former call `size` bytes long, or a new one when `block` is null; the bytes that both
/// sizes have stay. A failure is handled as that of `new`, and leaves `block` as it was. Give the result back
/// with FreeBlock. `size` is not 0.
void* ResizeBlock(void* block, std::size_t size);
void FreeBlock(void* block) noexcept;

} // namespace Nvr
