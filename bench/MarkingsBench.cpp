// What players wrote between the frets: reading it in a text that has been read, and joining it to the score,
// beside a whole conversion of the same text.

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/TabReading.h"
#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TabBook.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kSmallTab = 60;
constexpr int kBook = 10000;

// A sign after each third note, and one in place of a tempo, of a repeat and of endings.
std::string MarkedTab(int lines) {
    std::string text = "Tempo: 100\n\n" + TestSupport::MakeTabBook(lines, {}, 1);
    constexpr std::string_view kSigns = "hp/b~";
    constexpr std::size_t kNotesToASign = 3;
    std::size_t notes = 0;
    for (std::size_t at = 0; at + 1 < text.size(); ++at)
        if (Nvr::Ascii::IsDigit(text[at]) && text[at + 1] == '-' && ++notes % kNotesToASign == 0)
            text[at + 1] = kSigns[notes / kNotesToASign % kSigns.size()];
    return text;
}

void ReadAndJoin(benchmark::State& state, int lines) {
    const TestSupport::ScratchFolder folder;
    folder.StoreLevel(Fretline::kRhythmsWhenIndicated);
    const std::string tab = folder.Write("book.tab", MarkedTab(lines));
    TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
    host.Open(tab);
    const std::string score = host.GetScore();
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(score.data(), score.size()));
    std::string why;
    const auto model =
        tree == nullptr ? std::optional<Score::ScoreModel>() : Score::ScoreModel::Read(*tree, why);
    if (!model) {
        state.SkipWithError("no score");
        return;
    }
    const TabText::TabReading reading(tab, folder.Path());
    std::size_t marks = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        Score::ScoreModel joined = *model;
        state.ResumeTiming();
        const TabText::Markings markings = TabText::ReadMarkings(reading);
        TabText::JoinMarkings(reading, markings, joined);
        marks = markings.Notes.size();
        state.PauseTiming();
        joined = {};
        state.ResumeTiming();
    }
    state.counters["marks"] = static_cast<double>(marks);
}
BENCHMARK_CAPTURE(ReadAndJoin, small, kSmallTab)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadAndJoin, book, kBook)->Unit(benchmark::kMillisecond);

void ConvertMarkedTab(benchmark::State& state, int lines) {
    const TestSupport::ScratchFolder folder;
    folder.StoreLevel(Fretline::kRhythmsWhenIndicated);
    const std::string tab = folder.Write("book.tab", MarkedTab(lines));
    TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
    for ([[maybe_unused]] auto _ : state) {
        host.Open(tab);
        if (host.GetScore().empty())
            state.SkipWithError("no score");
    }
}
BENCHMARK_CAPTURE(ConvertMarkedTab, small, kSmallTab)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ConvertMarkedTab, book, kBook)->Unit(benchmark::kMillisecond);

} // namespace
