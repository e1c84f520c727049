#include "Shared/NotaveraAPI/PluginOutput.h"

#include "Shared/NotaveraAPI/HostFunctions.h"
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>

namespace {

using Nvr::PluginOutput;
using Nvr::ResId;
using Calls = std::vector<std::string>;

// Of the plug-in's own.
const ResId kText(102);
const ResId kOtherText(100);

class PluginOutputTest : public testing::Test {
protected:
    PluginOutputTest() {
        EXPECT_TRUE(Nvr::BindHostFunctions());
        Nvr::SetProgressContext(Host.Context());
        Output.SetFileName("a.tab");
        Output.SetConverterName("Import");
        Output.SetContext1(-2);
        Output.SetContext2(-2);
    }
    ~PluginOutputTest() override { Nvr::ClearHostFunctions(); }

    TestSupport::FakeHost Host;
    PluginOutput Output{"", ""};
};

TEST_F(PluginOutputTest, ProgressGoesToTheHostWithItsContext) {
    Output.SetProgress(20, "");
    Output.SetProgressText("reading");
    Output.SetProgress(50, "writing");
    EXPECT_EQ(Host.Calls, (Calls{"update 20", "update 20 reading", "update 50 writing"}));
}

TEST_F(PluginOutputTest, ACancelComesBackAfterWhatWasStored) {
    Host.Answer = [] { return 0; };
    EXPECT_THROW(Output.SetProgress(40, "text"), Nvr::ConverterCancelled);
    EXPECT_EQ(Output.GetLastPercent(), 40);
    EXPECT_EQ(PluginOutput::GetLastProgressText(), "text");
    EXPECT_THROW(Output.SetProgressText("more"), Nvr::ConverterCancelled);
    EXPECT_EQ(PluginOutput::GetLastProgressText(), "more");
    Host.Answer = [] { return -1; };
    EXPECT_NO_THROW(Output.SetProgress(41, "")) << "any number but 0 goes on";
}

TEST_F(PluginOutputTest, AMissingHostFunctionReadsAsACancelButNotForMessages) {
    Nvr::ClearHostFunctions();
    EXPECT_THROW(Output.SetProgress(1, ""), Nvr::ConverterCancelled);
    Output.Report(kText, 4, "text", false);
    EXPECT_EQ(Output.GetMessageCount(), 1) << "counted without a host to show it";
    EXPECT_TRUE(Host.Calls.empty());
}

// What happens between two reports of the same id without repeat, and whether the second is sent.
struct RepeatCase {
    const char* Why;
    void (*Between)(PluginOutput& output);
    bool IsSent;
};

TEST_F(PluginOutputTest, AnIdIsReportedOnceUntilFileOrContextChanges) {
    const RepeatCase rows[] = {
        {"the same id", [](PluginOutput&) {}, false},
        {"a new file, also of the same name", [](PluginOutput& o) { o.SetFileName("a.tab"); }, true},
        {"a new first context", [](PluginOutput& o) { o.SetContext1(5); }, true},
        {"the same first context", [](PluginOutput& o) { o.SetContext1(-2); }, false},
        {"a new second context", [](PluginOutput& o) { o.SetContext2(5); }, true},
        {"the same second context", [](PluginOutput& o) { o.SetContext2(-2); }, false},
        {"a new third context", [](PluginOutput& o) { o.SetContext3(5); }, false},
        {"a new converter", [](PluginOutput& o) { o.SetConverterName("Other"); }, false},
        {"the id of another message", [](PluginOutput& o) { o.Report(kOtherText, 4, "x", false); }, false},
    };
    for (const RepeatCase& row : rows) {
        Output.SetFileName("a.tab");
        Output.SetContext1(-2);
        Output.SetContext2(-2);
        Output.Report(kText, 4, "first", false);
        row.Between(Output);
        Host.Calls.clear();
        Output.Report(kText, 4, "second", false);
        EXPECT_EQ(Host.Calls.size(), row.IsSent ? 1U : 0U) << row.Why;
        Host.Calls.clear();
        Output.Report(kText, 4, "third", true);
        EXPECT_EQ(Host.Calls.size(), 1U) << row.Why << ", repeated";
    }
}

TEST_F(PluginOutputTest, AMessageTellsWhoseItIs) {
    Output.Report(kText, 4, "text", true);
    Output.SetContext1(3);
    Output.SetContext2(4);
    Output.SetContext3(5);
    Output.Report(kText, 2, "", true);
    EXPECT_EQ(Host.Calls,
              (Calls{"message Import|a.tab|4|-2|-2|text", "message Import|a.tab|2|3|4|Importing Tab file"}));
    EXPECT_EQ(Output.GetMessageCount(), 2);
    EXPECT_TRUE(Output.GetStatusFlag());
    EXPECT_FALSE(Output.GetReservedFlag());
}

TEST_F(PluginOutputTest, NamesAndContextsOutliveTheObject) {
    Output.SetContext3(9);
    {
        PluginOutput other("b.tab", "Other");
        other.SetContext1(1);
    }
    EXPECT_EQ(Output.GetFileName(), "b.tab");
    EXPECT_EQ(Output.GetConverterName(), "Other");
    EXPECT_EQ(Output.GetContext1(), 1);
    EXPECT_EQ(Output.GetContext2(), -2);
    EXPECT_EQ(Output.GetContext3(), 9);
}

TEST(HostFunctions, AreAllOfTheMainExecutableOrNone) {
    ASSERT_TRUE(Nvr::BindHostFunctions());
    EXPECT_EQ(Nvr::HostFunctions().LoadTempFile,
              reinterpret_cast<NvrLoadTempFile>(
                  Nvr::Platform::FindFunction(Nvr::Platform::ProcessModule(), "NVR_LOADTEMPFILE")));
    EXPECT_NE(Nvr::HostFunctions().ChooseTransposingInstruments, nullptr);
    Nvr::ClearHostFunctions();
    EXPECT_EQ(Nvr::HostFunctions().LoadTempFile, nullptr);
    EXPECT_EQ(Nvr::HostFunctions().ResultsDialogMessage, nullptr);
    EXPECT_EQ(Nvr::HostFunctions().UpdateProgressDialog, nullptr);
    EXPECT_EQ(Nvr::HostFunctions().DestroyProgressDialog, nullptr);
    EXPECT_EQ(Nvr::HostFunctions().CreateProgressDialog2, nullptr);
    EXPECT_EQ(Nvr::HostFunctions().ChooseTransposingInstruments, nullptr);
}

} // namespace
