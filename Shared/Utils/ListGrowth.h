#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

/// How the array lists grow; shared by AList and TVAList.
namespace Nvr::ListGrowth {

constexpr std::uint32_t kDefaultGrowBy = 4;

/// The capacity after `capacity` is found full: `growBy` more, or twice as much when `growBy` is 0. Raises
/// the allocation failure when no such number exists.
std::uint32_t NextCapacity(std::uint32_t capacity, std::uint32_t growBy);

/// The slots to allocate for `capacity`. A long list that grows by a few slots would be copied each time, at
/// a cost that is the square of its length; so a long array is allocated in steps of an eighth of its size,
/// while the capacity goes up as it should. A short array is allocated exactly.
constexpr std::uint32_t AllocatedSlots(std::uint32_t capacity) noexcept {
    constexpr std::uint32_t kLongestExactArray = 64;
    constexpr std::uint32_t kStepsPerDoubling = 8;
    if (capacity <= kLongestExactArray)
        return capacity;
    const std::uint32_t step = std::bit_floor(capacity) / kStepsPerDoubling;
    // The step is a power of two.
    const std::uint64_t rounded = (std::uint64_t{capacity} + step - 1) & ~(std::uint64_t{step} - 1);
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(rounded, UINT32_MAX));
}

} // namespace Nvr::ListGrowth
