#include "Shared/Utils/FloatingPoint.h"

#include "Shared/Utils/DebugSwitches.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/platform/FloatingPoint.h"

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
std::uint32_t s_MaskAtLastReset = kAllFloatingPointExceptions;

void LogChange(std::uint32_t mask) {
    if (s_LogChanges && mask != s_MaskAtLastReset)
        ReportError("Reset(): Floating point control word set to " + String::FromUnsigned(mask));
}

} // namespace

void InitFloatingPoint() {
    // Reading the switches must not trap on what an earlier call has unmasked.
    Platform::ResetFloatingPointUnit();
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
    SetFloatingPointMask(FloatingPointMask);
    const std::uint32_t mask = GetFloatingPointMask();
    LogChange(mask);
    s_MaskAtLastReset = mask;
}

std::uint32_t GetFloatingPointMask() {
    return Platform::GetFloatingPointUnitMask();
}

void SetFloatingPointMask(std::uint32_t mask) {
    Platform::ResetFloatingPointUnit();
    Platform::SetFloatingPointUnitMask(mask);
}

} // namespace Nvr
