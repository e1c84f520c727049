#include "bench/CostInChild.h"
#include "bench/TemplateSizedTree.h"
#include "bench/Timing.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

// A yardstick: the same tree as XML, read, written and released by a fast library for XML.

namespace {

struct StringWriter : pugi::xml_writer {
    void write(const void* data, std::size_t size) override {
        Text.append(static_cast<const char*>(data), size);
    }
    std::string Text;
};

void FillIn(pugi::xml_document& document) {
    const auto tree = MakeTemplateSizedTree();
    std::vector<std::pair<const Nvr::TreeNode*, pugi::xml_node>> pending{
        {tree.get(), document.append_child("n")}};
    while (!pending.empty()) {
        const auto [node, element] = pending.back();
        pending.pop_back();
        pugi::xml_node target = element;
        if (!node->GetLabel().IsEmpty())
            target.append_attribute("l") = node->GetLabel().CStr();
        if (!node->GetValue().IsEmpty())
            target.append_attribute("v") = node->GetValue().CStr();
        for (int i = 0; i < node->GetChildCount(); ++i)
            pending.emplace_back(node->GetChild(i), target.append_child("n"));
    }
}

std::string WriteXml(const pugi::xml_document& document) {
    StringWriter writer;
    document.save(writer, "", pugi::format_raw);
    return std::move(writer.Text);
}

const std::string& Xml() {
    static const std::string s_Xml = [] {
        pugi::xml_document document;
        FillIn(document);
        return WriteXml(document);
    }();
    return s_Xml;
}

void XmlLoad(benchmark::State& state) {
    while (state.KeepRunning()) {
        pugi::xml_document document;
        Time(state, [&] { document.load_buffer(Xml().data(), Xml().size()); });
    }
}

void XmlWrite(benchmark::State& state) {
    pugi::xml_document document;
    document.load_buffer(Xml().data(), Xml().size());
    while (state.KeepRunning())
        Time(state, [&] { benchmark::DoNotOptimize(WriteXml(document)); });
}

void XmlSave(benchmark::State& state) {
    pugi::xml_document document;
    document.load_buffer(Xml().data(), Xml().size());
    const std::string path = (std::filesystem::temp_directory_path() / "fretline-xml-bench").string();
    while (state.KeepRunning())
        Time(state,
             [&] { benchmark::DoNotOptimize(document.save_file(path.c_str(), "", pugi::format_raw)); });
    std::remove(path.c_str());
}

void XmlRelease(benchmark::State& state) {
    while (state.KeepRunning()) {
        pugi::xml_document document;
        document.load_buffer(Xml().data(), Xml().size());
        Time(state, [&] { document.reset(); });
    }
}

void XmlLoadAndSavePeak(benchmark::State& state) {
    static_cast<void>(Xml());
    const std::string path = (std::filesystem::temp_directory_path() / "fretline-xml-bench").string();
    while (state.KeepRunning())
        state.counters["peak_MB"] = CostInChild([&] {
                                        pugi::xml_document document;
                                        document.load_buffer(Xml().data(), Xml().size());
                                        document.save_file(path.c_str(), "", pugi::format_raw);
                                    }).PeakMemory;
    std::remove(path.c_str());
}

} // namespace

BENCHMARK(XmlLoad)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(XmlWrite)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(XmlSave)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(XmlRelease)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(XmlLoadAndSavePeak)->Iterations(1);
