#include "Projects/Fretline/score/ScoreTime.h"

#include <bit>

namespace Fretline {

namespace {

constexpr int kCoarseStep = 64;
constexpr int kFineStep = 32;

} // namespace

int AddTime(int time, int more) {
    return more < kLongestTime - time ? time + more : kLongestTime;
}

int RoundToMultipleOf32(int time) {
    // Volatile, because a processor that reckons in wider registers would keep digits that a float has not.
    const volatile float steps = static_cast<float>(time) / static_cast<float>(kFineStep);
    const double half = steps >= 0.0F ? 0.5 : -0.5;
    return static_cast<int>(static_cast<double>(steps) + half) * kFineStep;
}

int RoundToMultipleOf64(int time) {
    return (time + kCoarseStep / 2) / kCoarseStep * kCoarseStep;
}

int FloorLog2(int value) {
    return static_cast<int>(std::bit_width(static_cast<unsigned>(value))) - 1;
}

std::int16_t NarrowTo16Bits(int value) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
}

} // namespace Fretline
