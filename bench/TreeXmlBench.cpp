#include "bench/TemplateSizedTree.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <chrono>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

/// A yardstick: the same tree as XML, read, written and released by a fast library for XML.

namespace {

using Clock = std::chrono::steady_clock;

template <class Step>
void Time(benchmark::State& state, Step step) {
    const auto start = Clock::now();
    step();
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
}

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

} // namespace

BENCHMARK(XmlLoad)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(XmlWrite)->UseManualTime()->Unit(benchmark::kMillisecond);
