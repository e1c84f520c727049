#pragma once

#include "Projects/Fretline/shell/OpenFile.h"
#include "Projects/Fretline/shell/PluginState.h"
#include "Projects/Fretline/shell/ShowOptions.h"
#include "Shared/Utils/platform/Modules.h"
#include "tests/support/FakeHost.h"
#include "tests/support/ScratchTempFolder.h"

#include <gtest/gtest.h>

/// What the tests of opening a file share.
namespace OpenFileTesting {

using Calls = std::vector<std::string>;

inline const std::string kDashes = "|----------------|----------------|\n";
inline const std::string kTwoBars =
    kDashes + kDashes + kDashes + kDashes + kDashes + "|--0--2----------|--3-------------|\n";
inline const std::string kNoStave =
    "words --- and a line of hyphens\n\n------------------------\n\nmore words\n";

inline const std::string kCreate = "create Importing Tab file|0|100|30";
inline const Calls kCallsOfTwoBars = {kCreate,     "update 0",   "update 0",  "update 10",
                                      "update 20", "update 20",  "update 50", "update 80",
                                      "load",      "update 100", "destroy"};
inline constexpr std::size_t kLoad = 8;
inline constexpr std::size_t kClosing = 9;

class OpenFileTest : public testing::Test {
protected:
    OpenFileTest() {
        // Nobody is there to answer the dialog.
        Fretline::ShowOptionsDialog = false;
        Record.ProgressContext = Host.Context();
        Record.ResourceModule = Nvr::Platform::ProcessModule();
        m_ConfigPath = Config.Path().string();
        Record.ConfigFolder = m_ConfigPath.c_str();
        EXPECT_TRUE(Fretline::InitialisePlugin(Record, Info));
    }
    ~OpenFileTest() override {
        Fretline::TerminatePlugin();
        EXPECT_TRUE(Temp.IsEmpty()) << "a temporary file was left behind";
        EXPECT_EQ(Fretline::GetPluginState().ConversionInProgress, 0);
    }

    /// The result of the open; the calls are in Host.Calls.
    bool Open(const std::string& path) {
        Host.Calls.clear();
        return Fretline::OpenFile(path.c_str());
    }
    bool IsLastCall(std::size_t index) const { return Host.Calls.size() == index + 1; }

    /// What opening a file calls when call `at` goes straight to the closing sequence, or changes nothing.
    void ExpectEndAfter(std::size_t at, bool isEnd) {
        EXPECT_TRUE(Open(Tabs.Write("a.tab", kTwoBars))) << "the file was still ours";
        Calls expected = kCallsOfTwoBars;
        if (isEnd)
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                           expected.begin() + static_cast<std::ptrdiff_t>(kClosing));
        EXPECT_EQ(Host.Calls, expected) << "ended at call " << at;
        EXPECT_TRUE(Temp.IsEmpty()) << at;
        EXPECT_EQ(Fretline::GetPluginState().ConversionInProgress, 0) << at;
        ExpectTheUsualScore();
    }

    /// An open that nothing disturbs is like the first one of the test, byte for byte.
    void ExpectTheUsualScore() {
        Host.Answer = nullptr;
        Host.LoadedBytes.clear();
        EXPECT_TRUE(Open(Tabs.Write("a.tab", kTwoBars)));
        EXPECT_EQ(Host.Calls, kCallsOfTwoBars);
        if (m_UsualScore.empty())
            m_UsualScore = Host.LoadedBytes;
        EXPECT_FALSE(Host.LoadedBytes.empty());
        EXPECT_TRUE(Host.LoadedBytes == m_UsualScore);
    }

    TestSupport::ScratchFolder Config;
    TestSupport::ScratchFolder Tabs;
    TestSupport::ScratchTempFolder Temp;
    TestSupport::FakeHost Host;
    HostInitRecord Record{};
    PluginInfoRecord Info{};

private:
    std::string m_ConfigPath;
    std::string m_UsualScore;
};

} // namespace OpenFileTesting
