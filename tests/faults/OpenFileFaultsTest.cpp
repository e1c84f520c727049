// Memory and files that fail anywhere between the host's call and its answer.

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/shell/OpenFile.h"
#include "Projects/Fretline/shell/PluginState.h"
#include "Shared/NotaveraAPI/HostFunctions.h"
#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/platform/ResourceTable.h"
#include "tests/faults/AllocationFaults.h"
#include "tests/faults/FileFaults.h"
#include "tests/support/FakeHost.h"
#include "tests/support/ScratchTempFolder.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {

// A template of few nodes, so that every single allocation can have its turn; yet with a part map to
// dissolve, a lead-in and a row to make a stave type from.
constexpr std::string_view kTemplate =
    "{Music{StaveTypes{{Id\"stafftype.tab.6.rhythms.guitar.standard\" Category\"2\" ShowRhythms\"true\""
    " Pitches{\"80\"}}} BarSpacings{{BarNum{__PartMapDefault\"0\"}}} SystemStave{Bars{{}}} Staves{} "
    "Barlines{}}}";
const Nvr::Platform::DataResource kData[] = {
    {"TREENODE", "", 100, std::as_bytes(std::span(kTemplate.data(), kTemplate.size()))}};
constexpr Nvr::Platform::StringResource kStrings[] = {{102, "Importing Tab file"}};
const Nvr::Platform::ResourceTable kResources(kStrings, kData);

// Everything that is read from a tab, and a line that is reported.
constexpr const char* kTab = "---- a line of hyphens ----\n\n"
                             "Intro\n"
                             "     Am       F#m7/C#\n"
                             "     1 & 2 & 3 & 1 & 2 & 3 &\n"
                             "F|3/4-------------|-------------|\n"
                             "C|---0---2---3----|---10--12----|\n"
                             "G|----------------|-------------|\n"
                             "D|----------------|-------12----|\n"
                             "\n"
                             "Chorus\n"
                             "  q q e e   h\n"
                             "F|0-2-3-5---7---|\n"
                             "C|----------x---|\n"
                             "G|--------------|\n"
                             "D|0---------0---|\n";

constexpr const char* kOldOptions = "{RhythmLevel\"2\" Other\"kept\"}";
constexpr const char* kNewOptions = "\r\n{\r\n\tRhythmLevel \"2\"\r\n\tOther \"kept\"\r\n}\r\n";

// What fails once may fail in the handler of that too, and in the handler's own; or is gone from then on.
constexpr int kInARow[] = {1, 2, 3, FaultCountdown::kAllLater};

class OpenFileFaults : public testing::Test {
protected:
    OpenFileFaults() {
        m_ConfigPath = m_Config.Path().string();
        Record.ConfigFolder = m_ConfigPath.c_str();
        Record.ProgressContext = Host.Context();
        Record.ResourceModule = Nvr::Platform::ProcessModule();
        m_Tab = m_Tabs.Write("a.tab", kTab);
        Host.Calls.reserve(100);
    }
    ~OpenFileFaults() override { Fretline::TerminatePlugin(); }

    void Open() {
        Host.Calls.clear();
        Host.LoadedBytes.clear();
        Fretline::OpenFile(m_Tab.c_str());
    }

    // Opens the tab with each call of a kind failing in turn. Whatever became of it: what was opened is
    // closed, no file is left, the options are whole, and the next open is as if nothing had been.
    int FailEachOf(FaultCountdown& faults, int inARow) {
        m_Config.Write("FretlineOptions.txt", kOldOptions);
        Open();
        const std::vector<std::string> calls = Host.Calls;
        const std::string score = Host.LoadedBytes;
        EXPECT_FALSE(score.empty()) << testing::PrintToString(calls);
        m_Config.Write("FretlineOptions.txt", kOldOptions);
        const auto open = [this] { Open(); };
        const auto check = [&](int count) {
            EXPECT_EQ(Fretline::GetPluginState().ConversionInProgress, 0) << count;
            const std::size_t made = Host.Calls.size();
            if (made != 0) {
                EXPECT_EQ(Host.Calls.back(), "destroy") << count;
                EXPECT_EQ(Host.Calls[made - 2], "update 100") << count;
            }
            EXPECT_TRUE(Temp.IsEmpty()) << count;
            const std::string options = m_Config.Read("FretlineOptions.txt");
            EXPECT_TRUE(options == kOldOptions || options == kNewOptions) << count << options;
            EXPECT_EQ(m_Config.CountEntries(), 1U) << count;
            Open();
            EXPECT_EQ(Host.Calls, calls) << count;
            EXPECT_TRUE(Host.LoadedBytes == score) << count;
            m_Config.Write("FretlineOptions.txt", kOldOptions);
        };
        const int runs = faults.FailEach(open, check, inARow);
        RecordProperty("runs_failing_" + std::to_string(inARow), runs);
        return runs;
    }

private:
    TestSupport::ScratchFolder m_Config;
    TestSupport::ScratchFolder m_Tabs;

protected:
    const TestSupport::ScratchTempFolder Temp;
    TestSupport::FakeHost Host;
    HostInitRecord Record{};
    PluginInfoRecord Info{};

private:
    std::string m_ConfigPath;
    std::string m_Tab;
};

TEST_F(OpenFileFaults, AnAllocationThatFailsLeavesNoTrace) {
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    for (const int inARow : kInARow)
        EXPECT_GT(FailEachOf(AllocationFaults, inARow), 900) << inARow << ": the whole way was gone";
}

TEST_F(OpenFileFaults, AFileThatFailsLeavesNoTrace) {
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    for (const int inARow : kInARow)
        EXPECT_GT(FailEachOf(FileFaults, inARow), 20) << inARow;
}

TEST_F(OpenFileFaults, ANameThatSomebodyElseTookIsNotUsed) {
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    const std::string victim = Temp.Path() / "victim";
    int planted = 0;
    BeforeNewFile = [&](const char* path) {
        if (std::string_view(path).ends_with(".nvf") && planted < 3) {
            ++planted;
            std::filesystem::create_symlink(victim, path);
        }
    };
    Open();
    BeforeNewFile = nullptr;
    EXPECT_EQ(std::count(Host.Calls.begin(), Host.Calls.end(), "load"), 1);
    EXPECT_FALSE(Host.LoadedBytes.empty());
    EXPECT_FALSE(std::filesystem::exists(victim));
    EXPECT_EQ(planted, 3);
    EXPECT_EQ(Temp.CountEntries(), 3U) << "the links are not ours to remove";
}

TEST(OptionsFaults, WhatCouldNotBeReadIsNotWrittenOverAndToldSo) {
    struct : Nvr::LogSink {
        void Write(const Nvr::String& message, std::intptr_t, std::intptr_t) override { Last = message; }
        Nvr::String Last;
    } sink;
    const TestSupport::ScratchFolder folder;
    const Nvr::String path(folder.Write("options.txt", kOldOptions));
    FileFaults.FailAfter(1);
    Fretline::FretlineOptions options(path);
    EXPECT_TRUE(FileFaults.Stop());
    Nvr::LogSink* const former = Nvr::SetLogSink(&sink);
    options.Save();
    Nvr::SetLogSink(former);
    EXPECT_EQ(sink.Last, "Could not write configuration file " + path);
    EXPECT_EQ(folder.Read("options.txt"), kOldOptions);
}

TEST_F(OpenFileFaults, AStartFailsWholeOrNotAtAll) {
    const int failures = AllocationFaults.FailEach(
        [&] {
            Fretline::TerminatePlugin();
            const bool isStarted = Fretline::InitialisePlugin(Record, Info);
            EXPECT_EQ(isStarted, Nvr::HostFunctions().ChooseTransposingInstruments != nullptr);
            EXPECT_EQ(isStarted, Fretline::GetPluginState().Output != nullptr);
        },
        [&](int count) { EXPECT_EQ(Info.FileTypeCount, 3) << count; });
    EXPECT_GT(failures, 0);
}

} // namespace
