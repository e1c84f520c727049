#include "Shared/Utils/ResId.h"

#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/StringList.h"
#include "Shared/Utils/platform/Resources.h"
#include "tests/Shared/Utils/RecordingSink.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using Nvr::ResId;
using Nvr::String;
namespace Platform = Nvr::Platform;

namespace {

constexpr int kPlain = 9001;
constexpr int kOneParameter = 9002;
constexpr int kTwoParameters = 9003;
constexpr int kLong = 9006;
constexpr int kTwelveParameters = 9007;
constexpr int kUnknown = 9099;

// Names no module, and may lie anywhere.
int s_NoModule = 0;

Platform::ModuleHandle ThisModule() {
    return Platform::ModuleOfAddress(&s_NoModule);
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
    EXPECT_STREQ(ResId(&s_NoModule, kPlain).GetString().CStr(), "Plain text") << "the process is asked too";
    EXPECT_TRUE(sink.Messages.empty());
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
        const char *Expected, *Why;
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
    constexpr std::array kBytes = {std::byte{1}, std::byte{2}, std::byte{3}};
    const auto own = Platform::FindDataResource(ThisModule(), "TESTDATA", "", kPlain);
    EXPECT_TRUE(std::equal(own.begin(), own.end(), kBytes.begin(), kBytes.end()));
    // Whoever looks into this one crashes.
    auto* const unreadable = reinterpret_cast<Platform::ModuleHandle>(std::uintptr_t{0x40});
    for (const Platform::ModuleHandle module :
         {Platform::ModuleHandle{nullptr}, Platform::ModuleHandle{&s_NoModule}, unreadable}) {
        EXPECT_EQ(Platform::FindStringResource(module, kPlain).data(), nullptr);
        EXPECT_EQ(Platform::FindDataResource(module, "TESTDATA", "", kPlain).data(), nullptr);
    }
    for (const int id : {-1, 0, kPlain + 0x10000}) {
        EXPECT_EQ(Platform::FindStringResource(ThisModule(), id).data(), nullptr) << id;
        EXPECT_EQ(Platform::FindDataResource(ThisModule(), "TESTDATA", "", id).data(), nullptr) << id;
    }
}
