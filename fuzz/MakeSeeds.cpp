// make_seeds FOLDER TAB...: the trees from which the fuzz targets start. Each tab becomes a score at each
// rhythm level, in a small template, and is left in both versions of the binary form and as text in all kinds
// of source.

#include "Projects/Fretline/score/TabConverter.h"
#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "fuzz/SmallTemplate.h"
#include "tests/support/FakeOutput.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;
using Nvr::TreeNode;

constexpr int kLevels = 3;

// The kinds of source and of characters that FuzzTextTree tells by its first byte.
constexpr int kTextKinds = 12;

fs::path InFolder(const fs::path& folder, const char* target, const std::string& name) {
    fs::create_directories(folder / target);
    return folder / target / name;
}

void Leave(const TreeNode& score, const fs::path& folder, const std::string& name, int kind) {
    for (const char* target : {"FuzzScore", "FuzzBinaryTree"}) {
        score.SaveToFile(InFolder(folder, target, name + "-8").c_str(), true, false, 0);
        score.SaveToFile(InFolder(folder, target, name + "-16").c_str(), true, true, 0);
    }
    std::ofstream(InFolder(folder, "FuzzTextTree", name), std::ios::binary)
        << static_cast<char>(kind) << score.ToText().View();
}

bool Convert(const fs::path& tab, int level, const fs::path& folder, int number) {
    const fs::path target = folder / "score.nvf";
    const Nvr::String noOptions((folder / "no-options").c_str());
    Fretline::FretlineOptions options(noOptions);
    options.SetRhythmLevel(level);
    TestSupport::FakeOutput output;
    const std::unique_ptr<Nvr::TreeNodeRoot> score(TreeNode::LoadFromString(FuzzSupport::kSmallTemplate));
    try {
        Fretline::TabConverter converter(&output, &options);
        if (!converter.RunConversion(tab.c_str(), score.get(), target.c_str()))
            return false;
    } catch (const std::out_of_range&) {
        // A text without a bar that can be read.
        return false;
    }
    fs::remove(target);
    Leave(*score, folder, tab.stem().string() + "-" + std::to_string(level), number % kTextKinds);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    int scores = 0;
    for (int i = 2; i < argc; ++i) {
        for (int level = 0; level < kLevels; ++level)
            scores += Convert(argv[i], level, argv[1], scores) ? 1 : 0;
    }
    std::printf("seeds of %d scores\n", scores);
    return scores > 0 ? 0 : 1;
}
