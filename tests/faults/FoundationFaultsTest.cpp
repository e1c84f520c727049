#include "Shared/Utils/AllocationFailure.h"
#include "Shared/Utils/ByteBuffer.h"
#include "Shared/Utils/Exceptions.h"
#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/SafeFileWriter.h"
#include "Shared/Utils/StringList.h"
#include "Shared/Utils/VHashTable.h"
#include "tests/faults/AllocationFaults.h"
#include "tests/faults/FileFaults.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StoredSettings.h"

#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

using Nvr::String;

namespace {

class FoundationFaults : public testing::Test {
protected:
    void SetUp() override { Nvr::InstallAllocationFailureHandler(); }
    void TearDown() override { Nvr::RemoveAllocationFailureHandler(); }
};

void IgnoreRun(int) {}

struct CopyingSink : Nvr::LogSink {
    void Write(const String& message, std::intptr_t, std::intptr_t) override { Last = "seen: " + message; }
    String Last;
};

} // namespace

TEST(AllocationFailure, HandlerIsPutInAndTakenOut) {
    const std::new_handler before = std::get_new_handler();
    Nvr::InstallAllocationFailureHandler();
    Nvr::InstallAllocationFailureHandler();
    AllocationFaults.FailAfter(1);
    EXPECT_THROW(String("no room"), Nvr::OutOfMemoryException);
    AllocationFaults.Stop();
    EXPECT_THROW(Nvr::RaiseAllocationFailure(), Nvr::OutOfMemoryException);
    Nvr::RemoveAllocationFailureHandler();
    EXPECT_EQ(std::get_new_handler(), before);
    Nvr::RemoveAllocationFailureHandler();
    EXPECT_EQ(std::get_new_handler(), before);
    EXPECT_THROW(Nvr::RaiseAllocationFailure(), std::bad_alloc);
    EXPECT_THROW(Nvr::HandleAllocationFailure(), std::bad_alloc);
}

TEST(AllocationFailure, LeavesAloneWhatOthersInstalled) {
    static int s_Calls = 0;
    const std::new_handler before = std::get_new_handler();
    Nvr::InstallAllocationFailureHandler();
    const std::new_handler foreign = [] { ++s_Calls; };
    std::set_new_handler(foreign);
    Nvr::HandleAllocationFailure();
    EXPECT_EQ(s_Calls, 1);
    Nvr::RemoveAllocationFailureHandler();
    EXPECT_EQ(std::get_new_handler(), foreign);
    std::set_new_handler(before);
}

TEST_F(FoundationFaults, StandardContainersKeepTheirGuarantees) {
    std::vector<std::string> texts(4, "a text too long to lie in the string object itself");
    const auto former = texts;
    const int failures = AllocationFaults.FailEach([&texts] { texts.push_back(texts.front()); },
                                                   [&](int) { EXPECT_EQ(texts, former); });
    EXPECT_EQ(failures, 2);
    EXPECT_EQ(texts.size(), 5U);
}

TEST_F(FoundationFaults, StringsStayAsTheyWere) {
    String text("unchanged");
    const auto check = [&text](int) { EXPECT_STREQ(text.CStr(), "unchanged"); };
    EXPECT_EQ(AllocationFaults.FailEach([&text] { (void)(text + "x"); }, check), 1);
    EXPECT_EQ(AllocationFaults.FailEach([&text] { (void)text.ReplaceAll("n", "mm"); }, check), 3)
        << "one allocation for each text";
    EXPECT_EQ(AllocationFaults.FailEach([&text] { text += "!"; }, check), 1);
    EXPECT_EQ(AllocationFaults.FailEach([] { String::Adopt(new char[2]{'a', '\0'}); }, IgnoreRun), 2);
    EXPECT_EQ(AllocationFaults.FailEach([&text] { (void)String(text); }, IgnoreRun), 0)
        << "a copy needs none";
}

TEST_F(FoundationFaults, ListsAndTablesStayAsTheyWere) {
    Nvr::StringList list;
    for (const char* text : {"a", "b", "c", "d"})
        list.Add(text);
    EXPECT_EQ(AllocationFaults.FailEach([&list] { list.Insert("e", 0); },
                                        [&list](int) {
                                            EXPECT_EQ(list.Count(), 4);
                                            EXPECT_EQ(list.Capacity(), 4);
                                        }),
              2)
        << "the text and the array";
    Nvr::StringStringTable table(3);
    EXPECT_EQ(AllocationFaults.FailEach([&table] { table.Add("key", "value"); },
                                        [&table](int) {
                                            EXPECT_EQ(table.EntryCount(), 0);
                                            EXPECT_TRUE(table.CheckHealth());
                                        }),
              3)
        << "two texts and an entry";
    EXPECT_EQ(table.EntryCount(), 1);
    Nvr::ByteBuffer buffer("abcd", 4);
    EXPECT_EQ(AllocationFaults.FailEach([&buffer] { buffer.AppendByte('e'); },
                                        [&buffer](int) { EXPECT_EQ(buffer.View(), "abcd"); }),
              1);
}

TEST_F(FoundationFaults, ReportsAndMessagesDoNotThrow) {
    const Nvr::Exception exception("a message");
    AllocationFaults.FailAfter(1);
    EXPECT_EQ(exception.what(), exception.GetMessage().CStr()) << "the message itself, as there is no copy";
    AllocationFaults.Stop();
    CopyingSink sink;
    Nvr::LogSink* const former = Nvr::SetLogSink(&sink);
    EXPECT_GE(AllocationFaults.FailEach([] { Nvr::ReportError("report"); }, IgnoreRun), 2);
    EXPECT_STREQ(sink.Last.CStr(), "seen: report");
    TestSupport::StoredSettings store;
    store.Store("Software\\Notavera Software\\NotaveraDiagnostics\\Miscellaneous", {{"DumpErrorCalls", "1"}});
    const auto isStackDumped = [&sink] {
        Nvr::ReportError("last");
        return sink.Last != String("seen: last");
    };
    const int failures = AllocationFaults.FailEach(
        [] {
            Nvr::ForgetReportSwitches();
            Nvr::ReportError("report");
        },
        [&](int count) {
            EXPECT_TRUE(isStackDumped()) << "the switch is read again after failure " << count;
        });
    EXPECT_GE(failures, 10);
    Nvr::SetLogSink(former);
    Nvr::ForgetReportSwitches();
}

TEST_F(FoundationFaults, SizesThatCannotBeAreFailures) {
    EXPECT_THROW(Nvr::ListGrowth::NextCapacity(4, 2147483647), Nvr::OutOfMemoryException);
    EXPECT_THROW(Nvr::ListGrowth::NextCapacity(0x40000000, 0), Nvr::OutOfMemoryException);
    EXPECT_EQ(Nvr::ListGrowth::NextCapacity(0, 0), 1U);
    Nvr::ByteBuffer buffer("abc", 3);
    EXPECT_THROW(buffer.Append(buffer.Data(), 2147483647), Nvr::OutOfMemoryException);
    EXPECT_EQ(buffer.View(), "abc");
}

TEST_F(FoundationFaults, NoFileIsWrittenInPlaceWhenThereIsNoRoomBesideIt) {
    const TestSupport::ScratchFolder folder;
    const String path(folder.Write("a", "old"));
    FileFaults.FailAfter(1);
    Nvr::SafeFileWriter writer(path);
    EXPECT_TRUE(FileFaults.Stop());
    writer.Stream() << "new";
    EXPECT_FALSE(writer.Commit());
    EXPECT_EQ(folder.Read("a"), "old");
}
