#include "tests/Shared/Utils/tree/TreeTest.h"

#include "Shared/Utils/ResId.h"
#include "Shared/Utils/platform/ResourceTable.h"

#include <array>

using Nvr::ResId;

namespace {

template <std::size_t Size>
constexpr std::array<std::byte, Size - 1> AsBytes(const char (&text)[Size]) {
    std::array<std::byte, Size - 1> bytes{};
    for (std::size_t i = 0; i + 1 < Size; ++i)
        bytes[i] = static_cast<std::byte>(text[i]);
    return bytes;
}

constexpr auto kGood = AsBytes("\0\1\0\0\0\0\1R\0\0\0\0\1v\0\0\0\0");
constexpr auto kDamaged = AsBytes("\0\1\0\0\0\0\1R");
const Nvr::Platform::DataResource kData[] = {{"TREENODE", "", 4711, kGood},
                                             {"TREENODE", "Named", 0, kGood},
                                             {"TREENODE", "", 4712, kDamaged},
                                             {"OTHER", "", 4713, kGood}};
const Nvr::Platform::ResourceTable kResources({}, kData);

class TreeNodeResourceTest : public TreeTest {};

std::string Load(const ResId& id) {
    const std::unique_ptr<Nvr::TreeNode> tree(id.LoadFromResource());
    return Outline(tree.get());
}

} // namespace

TEST_F(TreeNodeResourceTest, IsFoundByNumberOrName) {
    const Nvr::Platform::ModuleHandle own = kResources.Module();
    EXPECT_EQ(Load(ResId(own, 4711)), "R=|v|");
    EXPECT_EQ(Load(ResId(own, "Named")), "R=|v|");
    EXPECT_EQ(Load(ResId(own, 4713)), "null") << "another type";
    EXPECT_EQ(Load(ResId(own, 4714)), "null");
    EXPECT_TRUE(TakeReports().empty()) << "what is missing is not reported";
}

TEST_F(TreeNodeResourceTest, TheProcessIsAskedAfterTheModule) {
    EXPECT_EQ(Load(ResId(nullptr, 4711)), "R=|v|");
}

TEST_F(TreeNodeResourceTest, DamageIsReported) {
    EXPECT_EQ(Load(ResId(kResources.Module(), 4712)), "null");
    EXPECT_EQ(TakeReports(), (std::vector<std::string>{"Unexpected end of file", "Could not read treenode"}));
}
