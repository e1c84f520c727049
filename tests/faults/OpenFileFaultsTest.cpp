// Memory that fails anywhere between the host's call and its answer.

#include "Projects/Fretline/shell/OpenFile.h"
#include "Projects/Fretline/shell/PluginState.h"
#include "Shared/NotaveraAPI/HostFunctions.h"
#include "Shared/Utils/platform/ResourceTable.h"
#include "tests/faults/AllocationFaults.h"
#include "tests/support/FakeHost.h"
#include "tests/support/ScratchTempFolder.h"

#include <gtest/gtest.h>

namespace {

/// A template of the fewest nodes, so that every single allocation can have its turn.
constexpr std::string_view kTemplate =
    "\r\n{\r\n\tMusic\r\n\t{\r\n\t\tBarSpacings\r\n\t\t{\r\n\t\t}\r\n\t}\r\n}\r\n";
const Nvr::Platform::DataResource kData[] = {
    {"TREENODE", "", 100, std::as_bytes(std::span(kTemplate.data(), kTemplate.size()))}};
constexpr Nvr::Platform::StringResource kStrings[] = {{102, "Importing Tab file"}};
const Nvr::Platform::ResourceTable kResources(kStrings, kData);

const std::string kDashes = "|--------------|\n";

class OpenFileFaults : public testing::Test {
protected:
    OpenFileFaults() {
        m_ConfigPath = m_Config.Path().string();
        Record.ConfigFolder = m_ConfigPath.c_str();
        Record.ProgressContext = Host.Context();
        Tab = m_Config.Write("a.tab",
                             "Intro\n  Am\n" + kDashes + kDashes + kDashes + kDashes + "|--0--12-------|\n");
        Host.Calls.reserve(100);
    }
    ~OpenFileFaults() override { Fretline::TerminatePlugin(); }

    TestSupport::FakeHost Host;
    HostInitRecord Record{};
    PluginInfoRecord Info{};
    std::string Tab;

private:
    TestSupport::ScratchFolder m_Config;
    std::string m_ConfigPath;
};

TEST_F(OpenFileFaults, AConversionClosesWhatItOpened) {
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    const TestSupport::ScratchTempFolder temp;
    int filesLeft = 0;
    const int failures = AllocationFaults::FailEach(
        [&] {
            Host.Calls.clear();
            Fretline::OpenFile(Tab.c_str());
        },
        [&](int count) {
            EXPECT_EQ(Fretline::GetPluginState().ConversionInProgress, 0) << count;
            if (!Host.Calls.empty()) {
                EXPECT_EQ(Host.Calls.back(), "destroy") << count;
            }
            for (const auto& entry : std::filesystem::directory_iterator(temp.Path())) {
                ++filesLeft;
                std::filesystem::remove(entry);
            }
        });
    EXPECT_GT(failures, 200) << "the whole way was gone";
    EXPECT_LE(filesLeft, 20) << "a file stays only when the memory to delete it fails";
    EXPECT_EQ(std::count(Host.Calls.begin(), Host.Calls.end(), "load"), 1) << "and then all is as before";
}

TEST_F(OpenFileFaults, AStartFailsWholeOrNotAtAll) {
    const int failures = AllocationFaults::FailEach(
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
