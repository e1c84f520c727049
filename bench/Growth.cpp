// How the cost of a conversion grows with its text: texts of the sizes 1, 10, 100 and 1,000 in shapes that
// invite squares, each converted through the built library in a process of its own.
//
//     growth [PART OF A NAME]
//
// An exponent is the slope in the double logarithm, least squares over the four sizes: 1 is in proportion.
// What an empty tab costs (the template, mostly) is taken off first, since it would hide the growth.

#include "bench/CostInChild.h"
#include "bench/HostileShapes.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::array<int, 4> kSizes{1, 10, 100, 1000};
// The least of so many runs is what a conversion costs.
constexpr int kRuns = 9;
constexpr int kRunsOfLargest = 3;
// Makes a tab of any text that follows: what a file must show to be taken for one.
constexpr const char* kOpening = "|-1--2--3--4--|\n|-------------|\n|-------------|\n|-------------|\n\n";
// A cost that is less than this part of an empty tab's is lost in the noise of that: no part of the fit.
constexpr double kLeastOfEmpty = 0.3;

Cost ConversionCost(const std::string& text, int runs) {
    const TestSupport::ScratchFolder folder;
    const std::string tab = folder.Write("shape.tab", kOpening + text);
    folder.StoreLevel(2);
    Cost least;
    for (int run = 0; run < runs; ++run) {
        const Cost cost = CostInChild([&] {
            TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
            host.Open(tab);
            if (host.GetScore().empty())
                std::_Exit(EXIT_FAILURE);
        });
        least = run == 0 ? cost
                         : Cost{std::min(least.Time, cost.Time), std::min(least.PeakMemory, cost.PeakMemory)};
    }
    return least;
}

// Least squares in the double logarithm, over the sizes whose net cost is more than noise; no number where
// fewer than two are.
double Exponent(const std::array<double, kSizes.size()>& net, double least) {
    double count = 0;
    double sumX = 0;
    double sumY = 0;
    double sumXX = 0;
    double sumXY = 0;
    for (std::size_t i = 0; i < kSizes.size(); ++i) {
        if (net[i] < least)
            continue;
        const double x = std::log(kSizes[i]);
        const double y = std::log(net[i]);
        count += 1;
        sumX += x;
        sumY += y;
        sumXX += x * x;
        sumXY += x * y;
    }
    return count < 2 ? std::nan("") : (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
}

void Measure(const HostileShape& shape, const Cost& empty) {
    std::array<double, kSizes.size()> time{};
    std::array<double, kSizes.size()> memory{};
    std::printf("%-48s", shape.Name);
    for (std::size_t i = 0; i < kSizes.size(); ++i) {
        const Cost cost =
            ConversionCost(shape.Make(kSizes[i]), i + 1 < kSizes.size() ? kRuns : kRunsOfLargest);
        time[i] = cost.Time - empty.Time;
        memory[i] = cost.PeakMemory - empty.PeakMemory;
        std::printf(" %8.1f ms %6.1f MB", time[i], memory[i]);
        std::fflush(stdout);
    }
    std::printf("   time %.2f   memory %.2f   (%s)\n", Exponent(time, kLeastOfEmpty * empty.Time),
                Exponent(memory, kLeastOfEmpty * empty.PeakMemory), shape.AtThousand);
}

} // namespace

int main(int argc, char** argv) {
    const Cost empty = ConversionCost("", kRuns);
    if (empty.Time < 0) {
        std::puts("the library gives no score");
        return 1;
    }
    std::printf("an empty tab: %.1f ms, %.1f MB; the shapes beyond that, at sizes 1, 10, 100, 1,000:\n",
                empty.Time, empty.PeakMemory);
    for (const HostileShape& shape : HostileShapes()) {
        if (argc < 2 || std::strstr(shape.Name, argv[1]) != nullptr)
            Measure(shape, empty);
    }
    return 0;
}
