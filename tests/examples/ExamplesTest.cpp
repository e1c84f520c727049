// Every tab in examples/ goes through the built library as a host would open it, at each rhythm level; the
// calls that the host gets and the score it loads are compared with tests/examples/NAME.LEVEL.txt, which a
// person has checked. With FRETLINE_RECORD set, a missing or different recording is written anew (and the
// test still fails).

#include "Shared/Utils/tree/TreeNode.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScoreText.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cstdlib>
#include <memory>

namespace {

namespace fs = std::filesystem;

std::string ReadText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> Examples() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(FRETLINE_SOURCE_DIR "/examples"))
        if (entry.is_regular_file() && entry.path().extension() != ".nvf")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

class ExamplesAtLevel : public testing::TestWithParam<int> {};

TEST_P(ExamplesAtLevel, GiveTheRecordedCallsAndScores) {
    const TestSupport::ScratchFolder config;
    config.StoreLevel(GetParam());
    TestSupport::RecordingHost host(FRETLINE_LIBRARY, config.Path());
    ASSERT_TRUE(host.IsReady());
    ASSERT_GE(Examples().size(), 12U);
    for (const fs::path& example : Examples()) {
        std::string text = "result " + std::to_string(host.Open(example)) + "\n";
        for (const std::string& call : host.GetCalls())
            text += call + "\n";
        const std::unique_ptr<Nvr::TreeNodeRoot> score(
            Nvr::TreeNode::LoadFromMemory(host.GetScore().data(), host.GetScore().size()));
        text += score == nullptr ? "no score\n" : TestSupport::ScoreText(*score);
        const fs::path recording = fs::path(FRETLINE_SOURCE_DIR "/tests/examples") /
                                   (example.filename().string() + "." + std::to_string(GetParam()) + ".txt");
        const std::string recorded = ReadText(recording);
        EXPECT_EQ(recorded, text) << example;
        if (recorded != text && std::getenv("FRETLINE_RECORD") != nullptr)
            std::ofstream(recording, std::ios::binary) << text;
    }
}

TEST(Conversion, DoesNotMindWhatTheHostDoesToTheFloatingPointUnit) {
    const TestSupport::ScratchFolder config;
    config.StoreLevel(2);
    TestSupport::RecordingHost host(FRETLINE_LIBRARY, config.Path());
    const fs::path tab = FRETLINE_SOURCE_DIR "/examples/when-the-saints.tab";
    host.Open(tab);
    const std::string score = host.GetScore();
    ASSERT_FALSE(score.empty());
    host.GetHost().Answer = [] {
        std::fesetround(FE_UPWARD);
        feenableexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW | FE_INEXACT);
        return 1;
    };
    host.Open(tab);
    const int roundingAfter = std::fegetround();
    const int exceptionsAfter = fegetexcept();
    host.GetHost().Answer = nullptr;
    EXPECT_TRUE(host.GetScore() == score) << "the same bytes";
    EXPECT_EQ(FE_TONEAREST, roundingAfter);
    EXPECT_EQ(0, exceptionsAfter) << "all exceptions are masked";
}

INSTANTIATE_TEST_SUITE_P(AllLevels, ExamplesAtLevel, testing::Values(0, 1, 2));

} // namespace
