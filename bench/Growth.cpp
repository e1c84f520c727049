// How the cost of a conversion grows with its text: shapes that invite squares, each at size 10 and so on by
// half decades until a conversion takes a second, through the built library in a process of its own. Takes up
// to 3 GB of memory.
//
//     growth [PART OF A NAME]
//
// An exponent is the slope in the double logarithm, least squares over the sizes: 1 is in proportion. What an
// empty tab costs (the template, mostly) is taken off first, since it would hide the growth. A size that
// costs less than an empty tab again is left out: it differs by little more than the runs do, and a part of
// it lies in memory that the template has left.

#include "bench/CostInChild.h"
#include "bench/HostileShapes.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr int kSizes[] = {10, 30, 100, 300, 1000, 3000, 10'000, 30'000};
// No size after one that took so long.
constexpr double kLongMilliseconds = 1000;
// The least of some runs is what a conversion costs: of so many, and of fewer once they took so long.
constexpr int kMostRuns = 40;
constexpr int kFewestRuns = 3;
constexpr double kEnoughMilliseconds = 2000;
// Makes a tab of any text that follows: what a file must show to be taken for one.
constexpr const char* kOpening = "|-1--2--3--4--|\n|-------------|\n|-------------|\n|-------------|\n\n";

Cost Least(const Cost& one, const Cost& other) {
    return {std::min(one.Time, other.Time), std::min(one.PeakMemory, other.PeakMemory)};
}

Cost ConversionCost(const std::string& text) {
    const TestSupport::ScratchFolder folder;
    const std::string tab = folder.Write("shape.tab", kOpening + text);
    folder.StoreLevel(2);
    Cost least;
    double spent = 0;
    for (int run = 0; run < kMostRuns && (run < kFewestRuns || spent < kEnoughMilliseconds); ++run) {
        const Cost cost = CostInChild([&] {
            TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
            host.Open(tab);
            if (host.GetScore().empty())
                std::_Exit(EXIT_FAILURE);
        });
        least = run == 0 ? cost : Least(least, cost);
        spent += cost.Time;
    }
    return least;
}

// What one size cost beyond an empty tab.
struct Point {
    int Size = 0;
    Cost Net;
};

// Least squares in the double logarithm, over the sizes whose net cost is at least so much; no number where
// fewer than two are.
double Exponent(const std::vector<Point>& points, double Cost::*part, double least) {
    double count = 0;
    double sumX = 0;
    double sumY = 0;
    double sumXX = 0;
    double sumXY = 0;
    for (const Point& point : points) {
        if (point.Net.*part < least)
            continue;
        const double x = std::log(point.Size);
        const double y = std::log(point.Net.*part);
        count += 1;
        sumX += x;
        sumY += y;
        sumXX += x * x;
        sumXY += x * y;
    }
    return count < 2 ? std::nan("") : (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
}

void Measure(const HostileShape& shape, const Cost& empty) {
    std::vector<Point> points;
    for (const int size : kSizes) {
        const Cost cost = ConversionCost(shape.Make(size));
        if (cost.Time < 0) {
            std::printf("%s: no score at size %d\n", shape.Name, size);
            return;
        }
        points.push_back({size, {cost.Time - empty.Time, cost.PeakMemory - empty.PeakMemory}});
        if (cost.Time >= kLongMilliseconds)
            break;
    }
    std::printf("%-47s time %.2f   memory %.2f   (at 1,000: %s)\n   ", shape.Name,
                Exponent(points, &Cost::Time, empty.Time),
                Exponent(points, &Cost::PeakMemory, empty.PeakMemory), shape.AtThousand);
    for (const Point& point : points)
        std::printf(" %d: %.1f ms %.1f MB ", point.Size, point.Net.Time, point.Net.PeakMemory);
    std::puts("");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    Cost empty = ConversionCost("");
    if (empty.Time < 0) {
        std::puts("the library gives no score");
        return 1;
    }
    std::printf("an empty tab: %.1f ms, %.1f MB; the shapes beyond that:\n", empty.Time, empty.PeakMemory);
    for (const HostileShape& shape : HostileShapes()) {
        if (argc > 1 && std::strstr(shape.Name, argv[1]) == nullptr)
            continue;
        empty = Least(empty, ConversionCost(""));
        Measure(shape, empty);
    }
    return 0;
}
