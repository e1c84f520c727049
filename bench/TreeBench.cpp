#include "bench/CostInChild.h"
#include "bench/TemplateSizedTree.h"
#include "bench/Timing.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Shared/Utils/CStream.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>

using Nvr::TreeNode;
using Nvr::TreeNodeRoot;

namespace {

std::string Stored(bool binary) {
    std::ostringstream target;
    Nvr::COutStream stream(target);
    MakeTemplateSizedTree()->WriteToStream(stream, 0, binary, true, 0);
    Nvr::ClearNodeStringTable();
    return target.str();
}

const std::string& BinaryForm() {
    static const std::string s_Form = Stored(true);
    return s_Form;
}

const std::string& TextForm() {
    static const std::string s_Form = Stored(false);
    return s_Form;
}

std::unique_ptr<TreeNodeRoot> Load(const std::string& stored) {
    return std::unique_ptr<TreeNodeRoot>(TreeNode::LoadFromMemory(stored.data(), stored.size()));
}

// Each load begins with an empty string table, as a conversion does.
void LoadForm(benchmark::State& state, const std::string& stored) {
    while (state.KeepRunning()) {
        Nvr::ClearNodeStringTable();
        std::unique_ptr<TreeNodeRoot> tree;
        Time(state, [&] { tree = Load(stored); });
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(stored.size()) * state.iterations());
}

void LoadBinary(benchmark::State& state) {
    LoadForm(state, BinaryForm());
}

void LoadText(benchmark::State& state) {
    LoadForm(state, TextForm());
}

void Flatten(benchmark::State& state) {
    while (state.KeepRunning()) {
        const auto tree = Load(BinaryForm());
        Time(state, [&] { Fretline::FlattenPartMaps(tree.get()); });
    }
}

void Save(benchmark::State& state, bool binary) {
    const auto tree = Load(BinaryForm());
    const Nvr::String path((std::filesystem::temp_directory_path() / "fretline-tree-bench").string().c_str());
    while (state.KeepRunning()) {
        Time(state, [&] { benchmark::DoNotOptimize(tree->SaveToFile(path, binary, true, 0)); });
    }
    std::remove(path.CStr());
}

void SaveBinary(benchmark::State& state) {
    Save(state, true);
}

void SaveText(benchmark::State& state) {
    Save(state, false);
}

void WriteBinary(benchmark::State& state) {
    const auto tree = Load(BinaryForm());
    while (state.KeepRunning()) {
        std::ostringstream target;
        Nvr::COutStream stream(target);
        Time(state, [&] { tree->WriteToStream(stream, 0, true, true, 0); });
    }
}

void Copy(benchmark::State& state) {
    const auto tree = Load(BinaryForm());
    while (state.KeepRunning()) {
        std::unique_ptr<TreeNode> copy;
        Time(state, [&] { copy = std::make_unique<TreeNode>(*tree); });
    }
}

void Compare(benchmark::State& state) {
    const auto tree = Load(BinaryForm());
    const TreeNode copy(*tree);
    while (state.KeepRunning())
        Time(state, [&] { benchmark::DoNotOptimize(tree->IsSameTree(copy)); });
}

void Release(benchmark::State& state) {
    while (state.KeepRunning()) {
        auto tree = Load(BinaryForm());
        Time(state, [&] { tree.reset(); });
    }
}

void LoadAndSavePeak(benchmark::State& state) {
    static_cast<void>(BinaryForm());
    Nvr::ClearNodeStringTable();
    const Nvr::String path((std::filesystem::temp_directory_path() / "fretline-tree-bench").string().c_str());
    while (state.KeepRunning())
        state.counters["peak_MB"] =
            CostInChild([&] { Load(BinaryForm())->SaveToFile(path, true, true, 0); }).PeakMemory;
    std::remove(path.CStr());
}

} // namespace

BENCHMARK(LoadBinary)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadText)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Flatten)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SaveBinary)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SaveText)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBinary)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Copy)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Compare)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Release)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadAndSavePeak)->Iterations(1);
