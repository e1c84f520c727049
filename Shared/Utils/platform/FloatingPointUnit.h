#pragma once

#include <cstdint>

/// The floating-point unit of the calling thread: which of its exceptions are silenced. One source a
/// platform.
///
/// A mask is a word in which a set bit silences an exception. Bits that the processor has no exception for
/// read as set and cannot be cleared.
namespace Nvr::Platform {

inline constexpr std::uint32_t kMaskInexact = 0x00001;
inline constexpr std::uint32_t kMaskUnderflow = 0x00002;
inline constexpr std::uint32_t kMaskOverflow = 0x00004;
inline constexpr std::uint32_t kMaskZeroDivide = 0x00008;
inline constexpr std::uint32_t kMaskInvalid = 0x00010;
inline constexpr std::uint32_t kMaskDenormal = 0x80000;
inline constexpr std::uint32_t kMaskAll = 0x8001F;

/// Back to the state in which the platform starts a program: everything masked, rounding to nearest, no
/// exception pending.
void ResetFloatingPointUnit();

/// The present mask. An exception counts as masked when no part of the processor would raise it.
std::uint32_t GetFloatingPointUnitMask();

/// All that the control words of the processor say, flags of past exceptions left out: the masks of each part
/// of it that does arithmetic, rounding, digits, and whether tiny numbers count as 0. To be compared with an
/// earlier answer, not taken apart.
std::uint64_t GetFloatingPointUnitControl();

/// Loads a mask, in all parts of the processor that do arithmetic. Bits outside kMaskAll are ignored. To be
/// called after a reset: an exception that is pending is raised once it is unmasked.
void SetFloatingPointUnitMask(std::uint32_t mask);

} // namespace Nvr::Platform
