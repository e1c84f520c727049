#pragma once

#include <cstdint>

/// The floating-point state that the plug-in works in: set up once, and put back before and after code that
/// may have changed it. A word with a set bit silences an exception; the bits are named in
/// Shared/Utils/platform/FloatingPointUnit.h. For the calling thread only. Nothing here fails.
namespace Nvr {

/// Six exceptions, all of them masked.
inline constexpr std::uint32_t kAllFloatingPointExceptions = 0x8001F;

/// What `ResetFloatingPoint` loads; process-wide. All six masked until a debug switch says otherwise.
extern std::uint32_t FloatingPointMask;

/// Reads the debug switches of the group "FloatingPoint" ("Win32Inexact", "Win32Underflow", "Win32Overflow",
/// "Win32ZeroDivide", "Win32InvalidOperation", "Win32Denormal", all off by default), clears the bit of each
/// that is on, and resets the unit. The switch "Logging" of the group is read too.
void InitFloatingPoint();

/// Resets the floating-point unit and loads `FloatingPointMask` into it. With the switch "Logging" on, the
/// mask is reported when it is not that of the last reset, or when other code has changed a control word
/// since then.
void ResetFloatingPoint();

/// The processor's present mask.
std::uint32_t GetFloatingPointMask();

/// Resets the unit, then loads `mask`; `FloatingPointMask` stays.
void SetFloatingPointMask(std::uint32_t mask);

} // namespace Nvr
