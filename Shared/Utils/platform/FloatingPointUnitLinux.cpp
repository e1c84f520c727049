#include "Shared/Utils/platform/FloatingPointUnit.h"

#include <cfenv>

namespace Nvr::Platform {

namespace {

struct MaskBit {
    std::uint32_t Mask;
    int Exception;
};

constexpr MaskBit kStandardBits[] = {
    {kMaskInexact, FE_INEXACT},      {kMaskUnderflow, FE_UNDERFLOW}, {kMaskOverflow, FE_OVERFLOW},
    {kMaskZeroDivide, FE_DIVBYZERO}, {kMaskInvalid, FE_INVALID},
};

// The x87 control word has a mask bit for each exception in the place that fenv gives the exception, and one
// for denormal operands besides. The SSE control word has the same six bits further up.
constexpr unsigned kDenormalException = 0x02;
constexpr unsigned kSseMaskShift = 7;

// What the two control words say besides: digits and rounding; tiny operands as 0, rounding, tiny results as
// 0.
constexpr unsigned kX87ControlBits = 0x0F3F;
constexpr unsigned kSseControlBits = 0xFFC0;

// What the environment of the C library holds tells which units this platform has.
template <class Environment>
concept HasX87 = requires(Environment& environment) {
    environment.__control_word;
    environment.__status_word;
    environment.__eip;
};
template <class Environment>
concept HasSse = requires(Environment& environment) {
    environment.__mxcsr;
};

// The exceptions, with fenv's bits and the denormal one, that each unit would raise.
template <class Environment>
unsigned RaisedExceptions() {
    auto raised = static_cast<unsigned>(fegetexcept());
    Environment environment;
    if constexpr (HasX87<Environment> || HasSse<Environment>) {
        if (fegetenv(&environment) != 0)
            return raised;
    }
    if constexpr (HasX87<Environment>)
        raised |= ~static_cast<unsigned>(environment.__control_word);
    if constexpr (HasSse<Environment>)
        raised |= ~(static_cast<unsigned>(environment.__mxcsr) >> kSseMaskShift);
    return raised & (static_cast<unsigned>(FE_ALL_EXCEPT) |
                     (HasX87<Environment> || HasSse<Environment> ? kDenormalException : 0U));
}

// The x87 control word below, that of SSE above; the mask and the rounding where a processor has neither.
template <class Environment>
std::uint64_t ControlOfUnits() {
    Environment environment;
    if (!(HasX87<Environment> || HasSse<Environment>) || fegetenv(&environment) != 0)
        return GetFloatingPointUnitMask() | static_cast<unsigned>(fegetround());
    std::uint64_t control = 0;
    if constexpr (HasX87<Environment>)
        control |= environment.__control_word & kX87ControlBits;
    if constexpr (HasSse<Environment>)
        control |= std::uint64_t{environment.__mxcsr & kSseControlBits} << 32U;
    return control;
}

// fenv has no word for denormal operands, but its environment carries them.
template <class Environment>
void MaskDenormal(bool masked) {
    if constexpr (HasX87<Environment> || HasSse<Environment>) {
        Environment environment;
        if (fegetenv(&environment) != 0)
            return;
        const auto changed = [masked](auto word, unsigned bit) {
            return static_cast<decltype(word)>(masked ? word | bit : word & ~bit);
        };
        if constexpr (HasX87<Environment>)
            environment.__control_word = changed(environment.__control_word, kDenormalException);
        if constexpr (HasSse<Environment>)
            environment.__mxcsr = changed(environment.__mxcsr, kDenormalException << kSseMaskShift);
        fesetenv(&environment);
    }
}

} // namespace

void ResetFloatingPointUnit() {
    // Forgets what is pending too: it would be raised as soon as it is unmasked.
    std::fesetenv(FE_DFL_ENV);
}

std::uint32_t GetFloatingPointUnitMask() {
    const unsigned raised = RaisedExceptions<std::fenv_t>();
    std::uint32_t mask = kMaskAll;
    for (const auto& bit : kStandardBits) {
        if ((raised & static_cast<unsigned>(bit.Exception)) != 0)
            mask &= ~bit.Mask;
    }
    return (raised & kDenormalException) != 0 ? mask & ~kMaskDenormal : mask;
}

std::uint64_t GetFloatingPointUnitControl() {
    return ControlOfUnits<std::fenv_t>();
}

void SetFloatingPointUnitMask(std::uint32_t mask) {
    int masked = 0;
    for (const auto& bit : kStandardBits) {
        if ((mask & bit.Mask) != 0)
            masked |= bit.Exception;
    }
    MaskDenormal<std::fenv_t>((mask & kMaskDenormal) != 0);
    fedisableexcept(masked);
    feenableexcept(FE_ALL_EXCEPT & ~masked);
}

} // namespace Nvr::Platform
