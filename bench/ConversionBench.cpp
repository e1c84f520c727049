// The whole conversion through the built library, as a host sees it, and the reading of the text alone.
// The counter "peak_kB" is the largest resident memory of the process so far: run one benchmark at a time
// (--benchmark_filter) to read it.

#include "Projects/Fretline/text/TabFile.h"
#include "Shared/Utils/Dynalink.h"
#include "Shared/Utils/ResId.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TabBook.h"

#include <benchmark/benchmark.h>

#include <memory>

#include <sys/resource.h>

namespace {

using TestSupport::TabBookStyle;

constexpr int kSmallTab = 60;
constexpr int kBook = 10000;

double PeakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss);
}

void Convert(benchmark::State& state, const std::string& text) {
    const TestSupport::ScratchFolder folder;
    const std::string tab = folder.Write("book.tab", text);
    TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
    for ([[maybe_unused]] auto _ : state) {
        host.Open(tab);
        if (host.GetScore().empty())
            state.SkipWithError("no score");
    }
    state.counters["peak_kB"] = PeakKilobytes();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void ConvertSmallTab(benchmark::State& state) {
    Convert(state, TestSupport::MakeTabBook(kSmallTab, {}, 1));
}
BENCHMARK(ConvertSmallTab)->Unit(benchmark::kMillisecond);

// What every conversion has to do, and what a small tab is measured by.
void LoadAndSaveTemplate(benchmark::State& state) {
    const TestSupport::ScratchFolder folder;
    const Nvr::String path((folder.Path() / "template.nvf").string().c_str());
    const Nvr::Dynalink self;
    constexpr int kTemplate = 100;
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<Nvr::TreeNodeRoot> score(
            Nvr::ResId(self.GetModule(), kTemplate).LoadFromResource());
        if (score == nullptr || !score->SaveToFile(path, true, true, 0))
            state.SkipWithError("no template");
        Nvr::ClearNodeStringTable();
    }
}
BENCHMARK(LoadAndSaveTemplate)->Unit(benchmark::kMillisecond);

void ConvertBook(benchmark::State& state) {
    Convert(state, TestSupport::MakeTabBook(kBook, {}, 1));
}
BENCHMARK(ConvertBook)->Unit(benchmark::kMillisecond);

// With a chord over each bar and rhythm lines of one kind.
void ConvertRichBook(benchmark::State& state, int rhythmLine) {
    TabBookStyle style;
    style.HasChords = true;
    style.RhythmLine = rhythmLine;
    Convert(state, TestSupport::MakeTabBook(kBook, style, 1));
}
BENCHMARK_CAPTURE(ConvertRichBook, letters, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ConvertRichBook, beats, 2)->Unit(benchmark::kMillisecond);

// The text alone, into its grid of characters.
void ReadText(benchmark::State& state) {
    const std::string text = TestSupport::MakeTabBook(kBook, {}, 1);
    const TestSupport::ScratchFolder folder;
    const std::string tab = folder.Write("book.tab", text);
    for ([[maybe_unused]] auto _ : state) {
        const Fretline::TabFile file(tab.c_str(), nullptr, nullptr);
        benchmark::DoNotOptimize(file.GetMaxLineLength());
    }
    state.counters["peak_kB"] = PeakKilobytes();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ReadText)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
