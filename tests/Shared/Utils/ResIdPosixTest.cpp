#include "Shared/Utils/ResId.h"

#include "Shared/Utils/platform/ResourceTable.h"
#include "Shared/Utils/platform/Resources.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace Platform = Nvr::Platform;

namespace {

constexpr int kPlain = 9001;
constexpr int kEmpty = 9005;
constexpr int kUnknown = 9099;

const std::string& LongText() {
    static const std::string s_Text(1500, 'x');
    return s_Text;
}

const std::vector<Platform::StringResource>& Strings() {
    static const std::vector<Platform::StringResource> s_Strings = {
        {kPlain, "Plain text"},       {9002, "Line %1 of %app"}, {9003, "From %1 to %2"},
        {kEmpty, std::string_view()}, {9006, LongText()},        {9007, "%1 %2 %12"}};
    return s_Strings;
}

constexpr std::array<std::byte, 3> kBytes = {std::byte{1}, std::byte{2}, std::byte{3}};
constexpr std::array<Platform::DataResource, 1> kData = {{{"TESTDATA", "", kPlain, kBytes}}};

const Platform::ResourceTable s_Table(Strings(), kData);

Platform::ModuleHandle ThisModule() {
    return Platform::ModuleOfAddress(&s_Table);
}

} // namespace

TEST(Resources, AnEmptyTextIsFoundAllTheSame) {
    EXPECT_NE(Platform::FindStringResource(ThisModule(), kEmpty).data(), nullptr);
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
