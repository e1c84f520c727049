#include "tests/Shared/Utils/tree/TreeTest.h"

#include <climits>
#include <limits>

using Nvr::String;
using Nvr::TreeNode;

namespace {

class TreeNodeValuesTest : public TreeTest {};

// Whether a default of this type can be given at all.
template <class Default>
concept IsDefault = requires(const TreeNode& node, Default value) {
    node.GetChildValue("Label", value);
};

static_assert(IsDefault<bool> && IsDefault<int> && IsDefault<long> && IsDefault<float>);
static_assert(IsDefault<const Nvr::String&> && IsDefault<Nvr::TreePoint> && IsDefault<Nvr::TreeRectangle>);
static_assert(!IsDefault<const char*> && !IsDefault<char (&)[5]> && !IsDefault<const char (&)[5]>,
              "a text would be taken for true");

} // namespace

TEST_F(TreeNodeValuesTest, NumbersAreReadFromTheStartOfTheText) {
    struct Case {
        const char* Value;
        int AsInt;
        float AsFloat;
    };
    for (const Case& c : {Case{"", 0, 0}, Case{"none", 0, 0}, Case{"12", 12, 12}, Case{" -7 x", -7, -7},
                          Case{"+5", 5, 5}, Case{"3.75", 3, 3.75F}, Case{"1e3", 1, 1000}, Case{"0x10", 0, 16},
                          Case{"99999999999", INT_MAX, 99999999999.0F},
                          Case{"-99999999999", INT_MIN, -99999999999.0F}, Case{"1,5", 1, 1}}) {
        const TreeNode node("N", c.Value);
        EXPECT_EQ(node.GetValueAsInt(), c.AsInt) << c.Value;
        EXPECT_EQ(node.GetValueAsFloat(), c.AsFloat) << c.Value;
    }
    EXPECT_EQ(TreeNode("N", LONG_MIN).GetValueAsLong(), LONG_MIN);
}

TEST_F(TreeNodeValuesTest, ValuesAreSpelled) {
    const float largest = std::numeric_limits<float>::max();
    EXPECT_EQ(TreeNode("N", INT_MIN).GetValue(), "-2147483648");
    EXPECT_EQ(TreeNode("N", -2.5F).GetValue(), "-2.500000");
    EXPECT_EQ(TreeNode("N", largest).GetValue(), "340282346638528859811704183484516925440.000000");
    EXPECT_EQ(TreeNode("N", largest).GetValueAsFloat(), largest);
    EXPECT_EQ(TreeNode("N", true).GetValue(), "True");
    EXPECT_EQ(TreeNode("N", false).GetValue(), "False");
    EXPECT_TRUE(TreeNode("N", static_cast<const char*>(nullptr)).GetValue().IsEmpty());
}

TEST_F(TreeNodeValuesTest, BoolIsTrueInAnyCaseOrOne) {
    for (const char* const value : {"True", "true", "TRUE", "tRuE", "1"})
        EXPECT_TRUE(TreeNode("N", value).GetValueAsBool()) << value;
    for (const char* const value : {"", "False", "0", "2", "01", " True", "yes", "Tru", "True "})
        EXPECT_FALSE(TreeNode("N", value).GetValueAsBool()) << value;
}

TEST_F(TreeNodeValuesTest, DefaultsAreForMissingChildrenOnly) {
    TreeNode node("N");
    node.AddChild(new TreeNode("Text", "none"));
    EXPECT_EQ(node.GetChildValue("Missing", 7), 7);
    EXPECT_TRUE(node.GetChildValue("Missing", true));
    EXPECT_EQ(node.GetChildValue("Missing", String("x")), "x");
    EXPECT_EQ(node.GetChildValue("Text", 7), 0);
    EXPECT_EQ(node.GetChildValue("Text", 7.5F), 0.0F);
    EXPECT_FALSE(node.GetChildValue("Text", true));
    EXPECT_EQ(node.GetChildValue("Text", String("x")), "none");
}
