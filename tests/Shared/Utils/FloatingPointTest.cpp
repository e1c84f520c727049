#include "Shared/Utils/FloatingPoint.h"

#include "Shared/Utils/platform/FloatingPointUnit.h"
#include "tests/Shared/Utils/RecordingSink.h"
#include "tests/support/StoredSettings.h"

#include <cfenv>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace Nvr;

// Puts everything back, so that a test that fails does not trap in the next.
class FloatingPointTest : public ::testing::Test {
protected:
    ~FloatingPointTest() override {
        FloatingPointMask = kAllFloatingPointExceptions;
        ResetFloatingPoint();
    }

    void InitWith(const TestSupport::StoredSettings::Values& switches) {
        TestSupport::StoredSettings store;
        store.Store("Software\\Notavera Software\\NotaveraDiagnostics\\FloatingPoint", switches);
        InitFloatingPoint();
    }
};

TEST_F(FloatingPointTest, SwitchesClearTheirBits) {
    const struct {
        TestSupport::StoredSettings::Values Switches;
        std::uint32_t Expected;
    } rows[] = {
        {{}, 0x8001F},
        {{{"Win32Inexact", "1"}}, 0x8001E},
        {{{"Win32Underflow", "True"}}, 0x8001D},
        {{{"Win32Overflow", "true"}}, 0x8001B},
        {{{"Win32ZeroDivide", "1"}}, 0x80017},
        {{{"Win32InvalidOperation", "1"}}, 0x8000F},
        {{{"Win32Denormal", "1"}}, 0x0001F},
        {{{"Win32ZeroDivide", "False"}, {"Win32Overflow", "0"}}, 0x8001F},
    };
    for (const auto& row : rows) {
        InitWith(row.Switches);
        const std::uint32_t loaded = GetFloatingPointMask();
        SetFloatingPointMask(kAllFloatingPointExceptions);
        EXPECT_EQ(FloatingPointMask, row.Expected);
        EXPECT_EQ(loaded, row.Expected) << std::hex << row.Expected;
    }
}

TEST_F(FloatingPointTest, ResetUndoesWhatOthersDid) {
    ResetFloatingPoint();
    std::fesetround(FE_UPWARD);
    Platform::SetFloatingPointUnitMask(0x80017);
    EXPECT_EQ(GetFloatingPointMask(), 0x80017U) << "the processor's mask, whoever set it";
    ResetFloatingPoint();
    EXPECT_EQ(GetFloatingPointMask(), 0x8001FU);
    EXPECT_EQ(std::fegetround(), FE_TONEAREST);
    SetFloatingPointMask(0x80017);
    EXPECT_EQ(GetFloatingPointMask(), 0x80017U);
    EXPECT_EQ(FloatingPointMask, 0x8001FU);
}

// Lets the newer unit alone raise a division by zero; false where there is none.
template <class Environment>
bool UnmaskZeroDivideInSse() {
    if constexpr (requires(Environment e) { e.__mxcsr; }) {
        constexpr unsigned kZeroDivideMask = 0x200;
        Environment environment{};
        std::fegetenv(&environment);
        const bool wasMasked = (environment.__mxcsr & kZeroDivideMask) != 0;
        environment.__mxcsr &= ~kZeroDivideMask;
        std::fesetenv(&environment);
        // Some libraries have the field and leave the control word alone.
        std::fegetenv(&environment);
        return wasMasked && (environment.__mxcsr & kZeroDivideMask) == 0;
    }
    return false;
}

TEST_F(FloatingPointTest, ExceptionOfOnePartCounts) {
    ResetFloatingPoint();
    if (!UnmaskZeroDivideInSse<std::fenv_t>())
        GTEST_SKIP() << "one part only";
    EXPECT_EQ(GetFloatingPointMask(), 0x80017U);
}

TEST_F(FloatingPointTest, LoggingTellsOfEveryChangedControlWord) {
    const struct {
        std::function<void()> Change;
        std::size_t Reports;
        const char* Why;
    } rows[] = {
        {[] {}, 0, "nothing changed"},
        {[] { std::fesetround(FE_UPWARD); }, 1, "the rounding"},
        {[] { Platform::SetFloatingPointUnitMask(0x80017); }, 1, "a mask"},
        {[] { FloatingPointMask = 0x80017; }, 1, "another mask to load"},
        {[] { std::feraiseexcept(FE_DIVBYZERO); }, 0, "a flag is no control"},
        {[] { UnmaskZeroDivideInSse<std::fenv_t>() || std::fesetround(FE_DOWNWARD); }, 1, "of one part"},
    };
    for (const bool isLogging : {true, false}) {
        InitWith({{"Logging", isLogging ? "1" : "0"}});
        for (const auto& row : rows) {
            FloatingPointMask = kAllFloatingPointExceptions;
            ResetFloatingPoint();
            RecordingSink sink;
            row.Change();
            ResetFloatingPoint();
            ResetFloatingPoint();
            EXPECT_EQ(sink.Messages.size(), isLogging ? row.Reports : 0U) << row.Why;
            const std::string told = "Reset(): Floating point control word set to ";
            for (const std::string& message : sink.Messages)
                EXPECT_EQ(message, told + std::to_string(FloatingPointMask)) << row.Why;
        }
    }
}

// Divides when the test runs, and not when it is compiled.
template <class Number>
void Divide(Number dividend, Number divisor) {
    volatile Number left = dividend;
    volatile Number right = divisor;
    volatile Number quotient = left / right;
    static_cast<void>(quotient);
}

TEST_F(FloatingPointTest, OnlyUnmaskedExceptionsAreRaised) {
    constexpr double tiny = std::numeric_limits<double>::denorm_min();
    const struct {
        std::uint32_t Bit;
        std::function<void()> Compute;
        const char* Why;
    } rows[] = {
        {0x00001, [] { Divide(1.0, 3.0); }, "inexact"},
        {0x00004, [] { Divide(1e300, 1e-300); }, "overflow"},
        {0x00008, [] { Divide(1.0, 0.0); }, "zero divide"},
        {0x00008, [] { Divide(1.0L, 0.0L); }, "zero divide of the older unit"},
        {0x00010, [] { Divide(0.0, 0.0); }, "invalid operation"},
        {0x80000, [] { Divide(tiny, 1.0); }, "denormal"},
    };
    for (const auto& row : rows) {
        SetFloatingPointMask(0x8001F & ~row.Bit);
        EXPECT_DEATH(row.Compute(), "") << row.Why;
        SetFloatingPointMask(row.Bit & 0x1 ? 0x8001F : 0x1 | row.Bit);
        ResetFloatingPoint();
        row.Compute();
    }
}

TEST_F(FloatingPointTest, PendingExceptionIsNotRaisedLater) {
    ResetFloatingPoint();
    Divide(1.0L, 0.0L);
    Divide(1.0, 0.0);
    Divide(std::numeric_limits<double>::denorm_min(), 1.0);
    Divide(std::numeric_limits<long double>::denorm_min(), 1.0L);
    SetFloatingPointMask(0);
    SetFloatingPointMask(kAllFloatingPointExceptions);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

} // namespace
