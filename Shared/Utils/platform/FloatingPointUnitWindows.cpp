#include "Shared/Utils/platform/FloatingPointUnit.h"

#include <float.h>
#include <xmmintrin.h>

namespace Nvr::Platform {

namespace {

// The control word of the newer unit at the start of a program: all masked, rounding to nearest, none
// pending.
constexpr unsigned kSseAtStart = 0x1F80;

// All of it but the flags of past exceptions.
constexpr unsigned kSseControlBits = 0xFFC0;

struct MaskBit {
    std::uint32_t Mask;
    unsigned Sse;
};

// The C library's bits are those of the mask; the newer unit has its own.
constexpr MaskBit kBits[] = {
    {kMaskInvalid, 0x0080},  {kMaskDenormal, 0x0100},  {kMaskZeroDivide, 0x0200},
    {kMaskOverflow, 0x0400}, {kMaskUnderflow, 0x0800}, {kMaskInexact, 0x1000},
};

bool HasSse() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("sse") != 0;
}

[[gnu::target("sse")]] unsigned SseControl() {
    return _mm_getcsr();
}

[[gnu::target("sse")]] void SetSseControl(unsigned control) {
    _mm_setcsr(control);
}

std::uint32_t MaskOfSse(unsigned control) {
    std::uint32_t mask = 0;
    for (const MaskBit& bit : kBits) {
        if ((control & bit.Sse) != 0)
            mask |= bit.Mask;
    }
    return mask;
}

unsigned SseWithMask(unsigned control, std::uint32_t mask) {
    for (const MaskBit& bit : kBits)
        control = (mask & bit.Mask) != 0 ? control | bit.Sse : control & ~bit.Sse;
    return control;
}

} // namespace

void ResetFloatingPointUnit() {
    _fpreset();
    // The compiler's own reset leaves the older unit with the digits of a long double; the system starts a
    // program with those of a double.
    _control87(_PC_53, _MCW_PC);
    if (HasSse())
        SetSseControl(kSseAtStart);
}

std::uint32_t GetFloatingPointUnitMask() {
    const std::uint32_t mask = _control87(0, 0) & kMaskAll;
    return HasSse() ? mask & MaskOfSse(SseControl()) : mask;
}

std::uint64_t GetFloatingPointUnitControl() {
    const std::uint64_t sse = HasSse() ? SseControl() & kSseControlBits : 0U;
    return _control87(0, 0) | sse << 32U;
}

void SetFloatingPointUnitMask(std::uint32_t mask) {
    _control87(mask & kMaskAll, kMaskAll);
    if (HasSse())
        SetSseControl(SseWithMask(SseControl(), mask));
}

} // namespace Nvr::Platform
