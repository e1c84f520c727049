// What bench/page.mjs compares the module with: the same request to the same code, in a native program with
// the library loaded.
//
//     bench_page FILE REQUEST COUNT
//
// Prints the processor time of one conversion in milliseconds, the least of COUNT. The request is JSON
// (Page::Request).

#include "Projects/Opening/WholeFile.h"
#include "Projects/Page/PageConverter.h"
#include "Shared/Utils/Dynalink.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>

namespace {

class NobodyWatches : public Opening::OpeningWatcher {
public:
    void OnBegin(const std::string& /*title*/) override {}
    bool OnPercent(int /*percent*/) override { return true; }
    void OnEnd() override {}
};

Opening::PluginFunctions FunctionsOf(const Nvr::Dynalink& library) {
    return {library.GetFunctionAs<decltype(NVR_INIT)>("NVR_INIT"),
            library.GetFunctionAs<decltype(NVR_OPENFILE)>("NVR_OPENFILE"),
            library.GetFunctionAs<decltype(NVR_TERM)>("NVR_TERM"), library.GetModule()};
}

// Of the least costly conversion; less than 0 when one gave no score.
double LeastMilliseconds(const Page::Request& request, const std::string& text, int count) {
    const Nvr::Dynalink library{Nvr::String(FRETLINE_LIBRARY)};
    const TestSupport::ScratchFolder folder;
    const Page::PageConverter converter(FunctionsOf(library), folder.Path());
    NobodyWatches watcher;
    double least = std::numeric_limits<double>::max();
    for (int run = 0; run < count; ++run) {
        const std::clock_t start = std::clock();
        const Page::Answer answer = converter.Convert(request, text, watcher);
        const std::string bytes = answer.ToBytes();
        const double took = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        if (!answer.Object["taken"].get<bool>() || bytes.empty())
            return -1;
        least = std::min(least, took);
    }
    return least;
}

} // namespace

int main(int argc, char** argv) {
    std::string why;
    const auto text = argc == 4 ? Opening::ReadWholeFile(argv[1]) : std::nullopt;
    const auto request = text ? Page::Request::Parse(argv[2], why) : std::nullopt;
    if (!request) {
        std::fprintf(stderr, "bench_page FILE REQUEST COUNT: %s\n", why.c_str());
        return 2;
    }
    const double least = LeastMilliseconds(*request, *text, std::atoi(argv[3]));
    std::printf("%.3f\n", least);
    return least < 0 ? 1 : 0;
}
