#include "Shared/Utils/FloatingPoint.h"

#include "Shared/Utils/DebugSwitches.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/platform/FloatingPointUnit.h"

#include <utility>

namespace Nvr {

std::uint32_t FloatingPointMask = kAllFloatingPointExceptions;

namespace {

struct MaskSwitch {
    std::uint32_t Bit;
    const char* Name;
};

constexpr MaskSwitch kMaskSwitches[] = {
    {Platform::kMaskInexact, "Win32Inexact"},          {Platform::kMaskUnderflow, "Win32Underflow"},
    {Platform::kMaskOverflow, "Win32Overflow"},        {Platform::kMaskZeroDivide, "Win32ZeroDivide"},
    {Platform::kMaskInvalid, "Win32InvalidOperation"}, {Platform::kMaskDenormal, "Win32Denormal"},
};

bool s_LogChanges = false;
std::uint64_t s_ControlAtLastReset = 0;

void LogReset() {
    ReportError("Reset(): Floating point control word set to " +
                String::FromUnsigned(GetFloatingPointMask()));
}

} // namespace

void InitFloatingPoint() {
    // Reading the switches must not trap on what an earlier call has unmasked.
    Platform::ResetFloatingPointUnit();
    s_ControlAtLastReset = Platform::GetFloatingPointUnitControl();
    const String group("FloatingPoint");
    std::uint32_t mask = kAllFloatingPointExceptions;
    for (const auto& entry : kMaskSwitches) {
        if (GetDebugSwitch(group, entry.Name, false))
            mask &= ~entry.Bit;
    }
    FloatingPointMask = mask;
    s_LogChanges = GetDebugSwitch(group, "Logging", false);
    ResetFloatingPoint();
}

void ResetFloatingPoint() {
    const std::uint64_t found = Platform::GetFloatingPointUnitControl();
    SetFloatingPointMask(FloatingPointMask);
    const std::uint64_t loaded = Platform::GetFloatingPointUnitControl();
    const std::uint64_t former = std::exchange(s_ControlAtLastReset, loaded);
    if (s_LogChanges && (found != former || loaded != former))
        LogReset();
}

std::uint32_t GetFloatingPointMask() {
    return Platform::GetFloatingPointUnitMask();
}

void SetFloatingPointMask(std::uint32_t mask) {
    Platform::ResetFloatingPointUnit();
    Platform::SetFloatingPointUnitMask(mask);
}

} // namespace Nvr
