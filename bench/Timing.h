#pragma once

#include <benchmark/benchmark.h>

#include <ctime>

/// Times `step` alone, whatever else an iteration does: the processor time of this process, which other work
/// on the machine does not lengthen. For benchmarks with UseManualTime.
template <class Step>
void Time(benchmark::State& state, Step step) {
    const std::clock_t start = std::clock();
    step();
    state.SetIterationTime(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
}
