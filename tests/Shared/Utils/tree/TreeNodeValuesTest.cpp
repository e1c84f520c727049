#include "tests/Shared/Utils/tree/TreeTest.h"

#include <climits>
#include <clocale>
#include <limits>

using Nvr::String;
using Nvr::TreeNode;
using Nvr::TreePoint;
using Nvr::TreeRectangle;

namespace {

class TreeNodeValuesTest : public TreeTest {};

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
    EXPECT_EQ(TreeNode("N", LONG_MAX).GetValueAsLong(), LONG_MAX);
}

TEST_F(TreeNodeValuesTest, ValuesAreSpelled) {
    const float largest = std::numeric_limits<float>::max();
    EXPECT_EQ(TreeNode("N", 0).GetValue(), "0");
    EXPECT_EQ(TreeNode("N", INT_MIN).GetValue(), "-2147483648");
    EXPECT_EQ(TreeNode("N", 123456789L).GetValue(), "123456789");
    EXPECT_EQ(TreeNode("N", 0.1F).GetValue(), "0.100000");
    EXPECT_EQ(TreeNode("N", -2.5F).GetValue(), "-2.500000");
    EXPECT_EQ(TreeNode("N", largest).GetValue(), "340282346638528859811704183484516925440.000000");
    EXPECT_EQ(TreeNode("N", largest).GetValueAsFloat(), largest);
    EXPECT_EQ(TreeNode("N", true).GetValue(), "True");
    EXPECT_EQ(TreeNode("N", false).GetValue(), "False");
    EXPECT_TRUE(TreeNode("N", static_cast<const char*>(nullptr)).GetValue().IsEmpty());
}

TEST_F(TreeNodeValuesTest, SpellingDoesNotDependOnTheLocale) {
    const std::string former = std::setlocale(LC_ALL, nullptr);
    for (const char* const name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "C"}) {
        if (std::setlocale(LC_ALL, name) == nullptr)
            continue;
        EXPECT_EQ(TreeNode("N", 1234.5F).GetValue(), "1234.500000") << name;
        EXPECT_EQ(TreeNode("N", "2.5").GetValueAsFloat(), 2.5F) << name;
    }
    std::setlocale(LC_ALL, former.c_str());
}

TEST_F(TreeNodeValuesTest, BoolIsTrueInAnyCaseOrOne) {
    for (const char* const value : {"True", "true", "TRUE", "tRuE", "1"})
        EXPECT_TRUE(TreeNode("N", value).GetValueAsBool()) << value;
    for (const char* const value : {"", "False", "0", "2", "01", " True", "yes", "Tru", "True "})
        EXPECT_FALSE(TreeNode("N", value).GetValueAsBool()) << value;
}

TEST_F(TreeNodeValuesTest, BoolsShareTheirText) {
    Nvr::ClearNodeStringTable();
    const TreeNode constructed("N", true);
    TreeNode set("N");
    set.SetValue(true);
    EXPECT_TRUE(constructed.GetValue().SharesTextWith(set.GetValue()));
    EXPECT_FALSE(TreeNode("N", "True").GetValue().SharesTextWith(set.GetValue()));
}

TEST_F(TreeNodeValuesTest, PointsAndRectanglesAreChildren) {
    TreeNode node("N", TreeRectangle{{1, 2}, {3, -4}});
    EXPECT_EQ(Outline(&node), "N(TopLeft(X=|1|,Y=|2|),BottomRight(X=|3|,Y=|-4|))");
    node.AddChild(new TreeNode("P", TreePoint{5, 6}));
    EXPECT_EQ(node.GetChildValue("P", TreePoint{}).Y, 6);
    EXPECT_EQ(node.GetValueAsRectangle().BottomRight.Y, -4);
    // Present children take the value where they stand; missing ones are appended.
    node.RemoveChild(node.GetChild(0));
    node.GetChild(0)->RemoveChild(node.GetChild(0)->GetChild(0));
    EXPECT_EQ(node.GetValueAsRectangle().BottomRight.X, 0);
    EXPECT_EQ(node.GetValueAsRectangle().TopLeft.X, 0);
    node.SetValue(TreeRectangle{{7, 8}, {9, 10}});
    EXPECT_EQ(Outline(&node), "N(BottomRight(Y=|10|,X=|9|),P(X=|5|,Y=|6|),TopLeft(X=|7|,Y=|8|))");
}

TEST_F(TreeNodeValuesTest, DefaultsAreForMissingChildrenOnly) {
    TreeNode node("N");
    node.AddChild(new TreeNode("Text", "none"));
    EXPECT_EQ(node.GetChildValue("Missing", 7), 7);
    EXPECT_EQ(node.GetChildValue("Missing", 7L), 7L);
    EXPECT_EQ(node.GetChildValue("Missing", 7.5F), 7.5F);
    EXPECT_TRUE(node.GetChildValue("Missing", true));
    EXPECT_EQ(node.GetChildValue("Missing", String("x")), "x");
    EXPECT_EQ(node.GetChildValue("Missing", TreePoint{1, 2}).Y, 2);
    EXPECT_EQ(node.GetChildValue("Missing", TreeRectangle{{1, 2}, {3, 4}}).BottomRight.X, 3);
    EXPECT_EQ(node.GetChildValue("Text", 7), 0);
    EXPECT_EQ(node.GetChildValue("Text", 7L), 0L);
    EXPECT_EQ(node.GetChildValue("Text", 7.5F), 0.0F);
    EXPECT_FALSE(node.GetChildValue("Text", true));
    EXPECT_EQ(node.GetChildValue("Text", String("x")), "none");
    EXPECT_EQ(node.GetChildValue("Text", TreePoint{1, 2}).Y, 0);
}

TEST_F(TreeNodeValuesTest, SettersReplaceTheValue) {
    TreeNode node("N", "old");
    node.SetValue(12);
    EXPECT_EQ(Outline(&node), "N=|12|");
    node.SetValue(-13L);
    EXPECT_EQ(Outline(&node), "N=|-13|");
    node.SetValue(0.5F);
    EXPECT_EQ(Outline(&node), "N=|0.500000|");
    node.SetValue(false);
    EXPECT_EQ(Outline(&node), "N=|False|");
    node.SetValue("text");
    EXPECT_EQ(Outline(&node), "N=|text|");
    node.SetLabel("M");
    node.SetValue(String());
    EXPECT_EQ(Outline(&node), "M");
}
