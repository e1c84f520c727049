#include "Shared/Utils/ResId.h"

#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/StringList.h"
#include "Shared/Utils/platform/ResourceTable.h"
#include "Shared/Utils/platform/Resources.h"
#include "tests/Shared/Utils/RecordingSink.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/mman.h>

using Nvr::ResId;
using Nvr::String;
namespace Platform = Nvr::Platform;

namespace {

constexpr int kPlain = 9001;
constexpr int kOneParameter = 9002;
constexpr int kTwoParameters = 9003;
constexpr int kApplication = 9004;
constexpr int kEmpty = 9005;
constexpr int kLong = 9006;
constexpr int kTwelveParameters = 9007;
constexpr int kUnknown = 9099;

const std::string& LongText() {
    static const std::string s_Text(1500, 'x');
    return s_Text;
}

const std::array<Platform::StringResource, 7>& Strings() {
    static const std::array<Platform::StringResource, 7> s_Strings = {{{kPlain, "Plain text"},
                                                                       {kOneParameter, "Line %1 of %app"},
                                                                       {kTwoParameters, "From %1 to %2"},
                                                                       {kApplication, "%app"},
                                                                       {kEmpty, std::string_view()},
                                                                       {kLong, LongText()},
                                                                       {kTwelveParameters, "%1 %2 %12"}}};
    return s_Strings;
}

constexpr std::array<std::byte, 3> kBytes = {std::byte{1}, std::byte{2}, std::byte{3}};
constexpr std::array<std::byte, 1> kNamedBytes = {std::byte{9}};
constexpr std::array<Platform::DataResource, 2> kData = {
    {{"TESTDATA", "", kPlain, kBytes}, {"TESTDATA", "NAMED", 0, kNamedBytes}}};

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

TEST_F(ResIdTest, HoldsNameNumberAndModule) {
    const ResId plain;
    EXPECT_EQ(plain.GetId(), 0);
    EXPECT_EQ(plain.GetModule(), ThisModule());
    const ResId named(&s_NoModule, "TREE");
    ResId copy = ResId(7);
    copy = named;
    EXPECT_STREQ(copy.GetName().CStr(), "TREE");
    EXPECT_EQ(copy.GetId(), 0);
    EXPECT_EQ(copy.GetModule(), &s_NoModule);
    ResId::SetResourceModule(nullptr);
    EXPECT_EQ(plain.GetModule(), ThisModule()) << "the default counts at construction";
    EXPECT_EQ(ResId(3).GetModule(), nullptr);
}

TEST_F(ResIdTest, GivesTheTextOfANumber) {
    RecordingSink sink;
    EXPECT_STREQ(ResId(kPlain).GetString().CStr(), "Plain text");
    EXPECT_EQ(ResId(kLong).GetString().Length(), 999U);
    EXPECT_STREQ(ResId(kEmpty).GetString().CStr(), "");
    EXPECT_TRUE(sink.Messages.empty()) << "an empty text was found all the same";
}

TEST_F(ResIdTest, AsksTheProcessAfterTheModule) {
    RecordingSink sink;
    for (const Platform::ModuleHandle module :
         {Platform::ModuleHandle{nullptr}, Platform::ModuleHandle{&s_NoModule}})
        EXPECT_STREQ(ResId(module, kPlain).GetString().CStr(), "Plain text");
    EXPECT_TRUE(sink.Messages.empty());
}

TEST_F(ResIdTest, ReportsWhatIsNowhere) {
    RecordingSink sink;
    EXPECT_TRUE(ResId(kUnknown).GetString().IsEmpty());
    ASSERT_EQ(sink.Messages.size(), 1U);
    EXPECT_EQ(sink.Messages[0], "ResId::GetString failed to load string with ID 9099");
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
        {String(ResId(kApplication)), "App", "the application's name"},
        {String(ResId(kOneParameter)), "Line %1 of App", "a marker without a parameter stays"},
        {String(ResId(kOneParameter), "7"), "Line 7 of App", "one parameter"},
        {String(ResId(kOneParameter), "%app"), "Line App of App", "the name comes last"},
        {String(ResId(kTwoParameters), "a"), "From a to %2", "the second marker stays"},
        {String(ResId(kTwoParameters), "a", "b"), "From a to b", "two parameters"},
        {String(ResId(kTwoParameters), "%2", "b"), "From b to b", "a parameter that is the next marker"},
        {String(ResId(kTwelveParameters), list), "<1> <2> <1>2",
         "the first marker is also the start of the twelfth"},
        {String(ResId(kTwoParameters), withMarkers), "From %app to %app", "the name is replaced before only"},
        {String(ResId(kTwoParameters), Nvr::StringList()), "From %1 to %2", "an empty list"},
    };
    for (const Row& row : rows)
        EXPECT_STREQ(row.Message.CStr(), row.Expected) << row.Why;
}

TEST(Resources, AreFoundByModuleTypeAndNameOrNumber) {
    const auto find = [](Platform::ModuleHandle module, std::string_view type, std::string_view name,
                         int id) { return Platform::FindDataResource(module, type, name, id).data(); };
    EXPECT_EQ(find(ThisModule(), "TESTDATA", "", kPlain), kBytes.data());
    EXPECT_EQ(find(ThisModule(), "TESTDATA", "NAMED", kPlain), kNamedBytes.data()) << "the name goes first";
    EXPECT_EQ(find(ThisModule(), "TESTDATA", "OTHER", kPlain), nullptr);
    EXPECT_EQ(find(ThisModule(), "TESTDATA", "", 0), nullptr) << "what has a name is not found by number";
    EXPECT_EQ(find(ThisModule(), "OTHER", "", kPlain), nullptr);
    EXPECT_EQ(Platform::FindDataResource(ThisModule(), "TESTDATA", "", kPlain).size(), kBytes.size());
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
