// A host for the built library that answers every call and prints what became of each file: a digest of its
// calls and its score. Two libraries with the same lines behave the same, also on different platforms.
//
//   stand_in_host [options]            the examples and a made-up corpus of odd tabs, at each rhythm level
//   stand_in_host [options] FILE...    these files, one after the other in one process
//   stand_in_host --write FOLDER N     opens nothing: leaves the first N tabs of that corpus in a folder
//
//   --library PATH       another one than that of this build
//   --config FOLDER      where the options file lies; without it, a new folder with a level 1 in it
//   --calls              prints the result, the calls and a line on the score above each digest
//   --music              digests the imported music alone, which does not change with the template
//   --parent NUMBER      the window that owns the dialog
//   --resources PATH     the module with the resources: "none", "host", or a library to load

#include "Shared/Utils/tree/TreeNode.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScoreText.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TabBook.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>

namespace {

namespace fs = std::filesystem;
using TestSupport::RecordingHost;

constexpr int kTabs = 1000;

struct Options {
    std::string Library = FRETLINE_LIBRARY;
    std::string Config;
    std::string Resources;
    void* Parent = nullptr;
    bool PrintsCalls = false;
    bool MusicOnly = false;
    std::vector<std::string> Files;
};

// False when the line cannot be understood.
bool ReadOptions(int count, char** words, Options& options) {
    const struct {
        const char* Word;
        std::string* Value;
    } texts[] = {
        {"--library", &options.Library}, {"--config", &options.Config}, {"--resources", &options.Resources}};
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const auto text = std::find_if(std::begin(texts), std::end(texts),
                                       [&](const auto& entry) { return word == entry.Word; });
        if (text != std::end(texts) && i + 1 < count)
            *text->Value = words[++i];
        else if (word == "--parent" && i + 1 < count)
            // The handle of a window comes as a number.
            options.Parent =
                reinterpret_cast<void*>(std::stoul(words[++i])); // NOLINT(performance-no-int-to-ptr)
        else if (word == "--calls")
            options.PrintsCalls = true;
        else if (word == "--music")
            options.MusicOnly = true;
        else if (word.rfind("--", 0) == 0)
            return false;
        else
            options.Files.push_back(word);
    }
    return true;
}

// FNV-1a with 64 bits, as hexadecimal digits.
std::string Digest(const std::string& bytes) {
    std::uint64_t digest = 14695981039346656037U;
    for (const char byte : bytes)
        digest = (digest ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(digest));
    return text.data();
}

std::string ScoreLine(const std::string& score) {
    return score.empty() ? "no score\n" : std::to_string(score.size()) + " bytes, " + Digest(score) + "\n";
}

std::string Music(const std::string& score) {
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(score.data(), score.size()));
    return tree == nullptr ? std::string() : TestSupport::ScoreText(*tree);
}

std::string NameOf(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

// A host of its own with the library loaded anew, which shows its dialog again; false if it does not start.
bool OpenAll(const std::vector<std::string>& files, const std::string& config, int level,
             const Options& options) {
    const bool hasLibrary =
        !options.Resources.empty() && options.Resources != "none" && options.Resources != "host";
    const Nvr::Dynalink resourceLibrary{Nvr::String(hasLibrary ? options.Resources.c_str() : "")};
    std::optional<Nvr::Platform::ModuleHandle> resources;
    if (!options.Resources.empty())
        resources =
            options.Resources == "host" ? Nvr::Platform::ProcessModule() : resourceLibrary.GetModule();
    RecordingHost host(options.Library, config, options.Parent, resources);
    if (!host.IsReady()) {
        std::puts("not started");
        return false;
    }
    for (const std::string& file : files) {
        std::string outcome = std::to_string(host.Open(file)) + "\n";
        for (const std::string& call : host.GetCalls())
            outcome += call + "\n";
        if (options.PrintsCalls)
            std::fputs((outcome + ScoreLine(host.GetScore())).c_str(), stdout);
        outcome += options.MusicOnly ? Music(host.GetScore()) : host.GetScore();
        std::printf("%s %d %s\n", NameOf(file).c_str(), level, Digest(outcome).c_str());
        std::fflush(stdout);
    }
    return true;
}

std::string OddTab(int seed) {
    return TestSupport::MakeOddTab(static_cast<std::uint32_t>(seed));
}

// False when there is no such folder.
bool WriteOddTabs(const fs::path& folder, int count) {
    for (int seed = 0; seed < count; ++seed) {
        std::ofstream file(folder / (std::to_string(seed) + ".tab"), std::ios::binary);
        if (!(file << OddTab(seed)).flush())
            return false;
    }
    return count > 0;
}

std::vector<std::string> ExamplesAndOddTabs(const TestSupport::ScratchFolder& folder) {
    std::vector<std::string> tabs;
    for (const auto& entry : fs::directory_iterator(FRETLINE_SOURCE_DIR "/examples"))
        if (entry.path().extension() != ".nvf")
            tabs.push_back(entry.path().string());
    std::sort(tabs.begin(), tabs.end());
    for (int seed = 0; seed < kTabs; ++seed)
        tabs.push_back(folder.Write(std::to_string(seed) + ".tab", OddTab(seed)));
    return tabs;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 4 && std::string_view(argv[1]) == "--write")
        return WriteOddTabs(argv[2], std::atoi(argv[3])) ? 0 : 1;
    Options options;
    if (!ReadOptions(argc, argv, options)) {
        std::fputs("stand_in_host: see the top of StandInHost.cpp\n", stderr);
        return 2;
    }
    const TestSupport::ScratchFolder folder;
    if (!options.Files.empty()) {
        folder.StoreLevel(1);
        return OpenAll(options.Files, options.Config.empty() ? folder.Path().string() : options.Config, 1,
                       options)
                   ? 0
                   : 1;
    }
    const std::vector<std::string> tabs = ExamplesAndOddTabs(folder);
    bool isStarted = true;
    for (int level = 0; level < 3 && isStarted; ++level) {
        folder.StoreLevel(level);
        isStarted = OpenAll(tabs, folder.Path().string(), level, options);
    }
    return isStarted ? 0 : 1;
}
