#include "Shared/Utils/ResId.h"

#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/StringList.h"
#include "Shared/Utils/platform/ResourceTable.h"
#include "Shared/Utils/platform/Resources.h"
#include "tests/Shared/Utils/RecordingSink.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/mman.h>
#include <vector>

using Nvr::ResId;
using Nvr::String;
namespace Platform = Nvr::Platform;

namespace {

constexpr int kPlain = 9001;
constexpr int kOneParameter = 9002;
constexpr int kTwoParameters = 9003;
constexpr int kEmpty = 9005;
constexpr int kLong = 9006;
constexpr int kTwelveParameters = 9007;
constexpr int kUnknown = 9099;

const std::string& LongText() {
    static const std::string s_Text(1500, 'x');
    return s_Text;
}

const std::vector<Platform::StringResource>& Strings() {
    static const std::vector<Platform::StringResource> s_Strings = {{kPlain, "Plain text"},
                                                                    {kOneParameter, "Line %1 of %app"},
                                                                    {kTwoParameters, "From %1 to %2"},
                                                                    {kEmpty, std::string_view()},
                                                                    {kLong, LongText()},
                                                                    {kTwelveParameters, "%1 %2 %12"}};
    return s_Strings;
}

constexpr std::array<std::byte, 3> kBytes = {std::byte{1}, std::byte{2}, std::byte{3}};
constexpr std::array<Platform::DataResource, 1> kData = {{{"TESTDATA", "", kPlain, kBytes}}};

const Platform::ResourceTable s_Table(Strings(), kData);

// Names no module, and may lie anywhere.
int s_NoModule = 0;

Platform::ModuleHandle ThisModule() {
    return Platform::ModuleOfAddress(&s_Table);
}

class ResIdTest : public testing::Test {
protected:
    void SetUp() override { ResId::SetResourceModule(ThisModule()); }
    void TearDown() override {
        ResId::SetResourceModule(nullptr);
        String::SetApplicationName(String());
    }
};

} // namespace

TEST_F(ResIdTest, GivesTheTextOfANumber) {
    RecordingSink sink;
    EXPECT_EQ(ResId(kLong).GetString().Length(), 999U);
    EXPECT_STREQ(ResId(kEmpty).GetString().CStr(), "");
    EXPECT_STREQ(ResId(&s_NoModule, kPlain).GetString().CStr(), "Plain text") << "the process is asked too";
    EXPECT_TRUE(sink.Messages.empty()) << "an empty text was found all the same";
    EXPECT_TRUE(ResId(kUnknown).GetString().IsEmpty());
    EXPECT_EQ(sink.Messages, std::vector<std::string>{"ResId::GetString failed to load string with ID 9099"});
}

TEST_F(ResIdTest, BuildsMessages) {
    String::SetApplicationName("App");
    Nvr::StringList list;
    for (int i = 1; i <= 12; ++i)
        list.Add("<" + String::FromInt(i) + ">");
    Nvr::StringList withMarkers;
    withMarkers.Add("%2");
    withMarkers.Add("%app");
    struct Row {
        String Message;
        const char* Expected;
        const char* Why;
    };
    const Row rows[] = {
        {String(ResId(kOneParameter)), "Line %1 of App", "a marker without a parameter stays"},
        {String(ResId(kOneParameter), "%app"), "Line App of App", "the name comes last"},
        {String(ResId(kTwoParameters), "a", "b"), "From a to b", "two parameters"},
        {String(ResId(kTwoParameters), "%2", "b"), "From b to b", "a parameter that is the next marker"},
        {String(ResId(kTwelveParameters), list), "<1> <2> <1>2",
         "the first marker is also the start of the twelfth"},
        {String(ResId(kTwoParameters), withMarkers), "From %app to %app", "the name is replaced before only"},
    };
    for (const Row& row : rows)
        EXPECT_STREQ(row.Message.CStr(), row.Expected) << row.Why;
}

TEST(Resources, AForeignModuleHasNothing) {
    constexpr std::size_t kPage = 4096;
    // Whoever looks into this one crashes.
    void* const unreadable = mmap(nullptr, kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(unreadable, MAP_FAILED);
    for (const Platform::ModuleHandle module :
         {Platform::ModuleHandle{nullptr}, Platform::ModuleHandle{&s_NoModule}, unreadable}) {
        EXPECT_EQ(Platform::FindStringResource(module, kPlain).data(), nullptr);
        EXPECT_EQ(Platform::FindDataResource(module, "TESTDATA", "", kPlain).data(), nullptr);
    }
    munmap(unreadable, kPage);
}

TEST(Resources, ATableLastsAsLongAsItsObject) {
    static constexpr std::array<Platform::StringResource, 1> kStrings = {{{kUnknown, "for a while"}}};
    static std::optional<Platform::ResourceTable> s_First, s_Second;
    s_First.emplace(kStrings, std::span<const Platform::DataResource>());
    s_Second.emplace(std::span<const Platform::StringResource>(), kData);
    EXPECT_EQ(Platform::FindStringResource(ThisModule(), kUnknown), "for a while");
    s_First.reset();
    EXPECT_EQ(Platform::FindStringResource(ThisModule(), kUnknown).data(), nullptr);
    s_Second.reset();
    EXPECT_EQ(Platform::FindStringResource(ThisModule(), kPlain), "Plain text");
}
