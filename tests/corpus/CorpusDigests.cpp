// Converts every example and a made-up corpus of odd tabs through the built library, at each rhythm level,
// and prints a digest of each: of the score's bytes, or with --music of the imported music alone, which does
// not change with the template. Two builds that print the same lines give the same scores.

#include "Shared/Utils/tree/TreeNode.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScoreText.h"
#include "tests/support/TabBook.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>

namespace {

namespace fs = std::filesystem;

constexpr int kTabs = 1000;

/// FNV-1a with 64 bits.
std::uint64_t Digest(const std::string& bytes) {
    std::uint64_t digest = 14695981039346656037U;
    for (const char byte : bytes)
        digest = (digest ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    return digest;
}

std::string Music(const std::string& score) {
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(score.data(), score.size()));
    return tree == nullptr ? std::string() : TestSupport::ScoreText(*tree);
}

void WriteFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// The calls and the score of one tab as one text.
std::string Outcome(TestSupport::RecordingHost& host, const fs::path& tab, bool musicOnly) {
    std::string outcome = std::to_string(host.Open(tab)) + "\n";
    for (const std::string& call : host.GetCalls())
        outcome += call + "\n";
    return outcome + (musicOnly ? Music(host.GetScore()) : host.GetScore());
}

} // namespace

int main(int argc, char** argv) {
    const bool musicOnly = argc > 1 && std::strcmp(argv[1], "--music") == 0;
    std::string pattern = (fs::temp_directory_path() / "fretline-corpus-XXXXXX").string();
    const fs::path folder = mkdtemp(pattern.data());
    std::vector<fs::path> tabs;
    for (const auto& entry : fs::directory_iterator(FRETLINE_SOURCE_DIR "/examples"))
        if (entry.path().extension() != ".nvf")
            tabs.push_back(entry.path());
    std::sort(tabs.begin(), tabs.end());
    for (int seed = 0; seed < kTabs; ++seed) {
        tabs.push_back(folder / (std::to_string(seed) + ".tab"));
        WriteFile(tabs.back(), TestSupport::MakeOddTab(static_cast<std::uint32_t>(seed)));
    }
    int failures = 0;
    for (int level = 0; level < 3; ++level) {
        WriteFile(folder / "FretlineOptions.txt",
                  "\r\n{\r\n\tRhythmLevel \"" + std::to_string(level) + "\"\r\n}\r\n");
        TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder);
        failures += host.IsReady() ? 0 : 1;
        for (const fs::path& tab : tabs)
            std::printf("%s %d %016llx\n", tab.filename().c_str(), level,
                        static_cast<unsigned long long>(Digest(Outcome(host, tab, musicOnly))));
    }
    fs::remove_all(folder);
    return failures == 0 ? 0 : 1;
}
