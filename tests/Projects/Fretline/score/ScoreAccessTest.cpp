#include "Projects/Fretline/score/ScoreAccess.h"

#include "tests/Projects/Fretline/score/NodeText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace Fretline;
using Nvr::TreeNode;
using ScoreTest::Child;
using ScoreTest::ChildrenText;

TEST(ScoreAccess, TypedChildrenAreReusedOnlyByLabel) {
    const struct {
        const char *Why, *Label, *Type;
        bool Reuse;
        const char* Expected;
    } rows[] = {
        {"an item is always new", "", "Bar", true, "A(X=1) B(Type=Old Y=2) (Type=Bar)"},
        {"a record is new unless reuse is asked for", "B", "New", false,
         "A(X=1) B(Type=Old Y=2) B(Type=New)"},
        {"its type changes in place", "B", "New", true, "A(X=1) B(Type=New Y=2)"},
        {"a missing type goes after the other children", "A", "New", true, "A(X=1 Type=New) B(Type=Old Y=2)"},
    };
    for (const auto& row : rows) {
        TreeNode parent;
        Child(*Child(parent, "A"), "X", "1");
        TreeNode* const b = Child(parent, "B");
        Child(*b, "Type", "Old");
        Child(*b, "Y", "2");
        AddTypedChild(&parent, row.Label, row.Type, row.Reuse);
        EXPECT_EQ(ChildrenText(parent), row.Expected) << row.Why;
    }
}

TEST(ScoreAccess, PartMapsAreFoundHoweverDeep) {
    TreeNode root;
    TreeNode* node = &root;
    for (int depth = 0; depth < 300000; ++depth)
        node = Child(*node, "x");
    Child(*node, "__PartMapDefault", "5");
    FlattenPartMaps(&root);
    EXPECT_EQ(node->GetValue(), "5");
}

TEST(ScoreAccess, PartMapsBecomeTheValueOfTheFullScore) {
    const struct {
        const char* Why;
        void (*Fill)(TreeNode& node);
        const char* Expected;
    } rows[] = {
        {"a value", [](TreeNode& n) { Child(n, "__PartMapDefault", "304"); }, "Map=304"},
        {"the overrides go, and what stands before the default too",
         [](TreeNode& n) {
             Child(*Child(n, "Before"), "X");
             Child(n, "__PartMapDefault", "1");
             Child(*Child(n, "PartMapOverrides"), "Y");
         },
         "Map=1"},
        {"a record in its order; its value is dropped",
         [](TreeNode& n) {
             TreeNode* const record = Child(n, "__PartMapDefault", "lost");
             Child(*record, "A", "1");
             Child(*record, "B", "2");
         },
         "Map(A=1 B=2)"},
        {"a map inside of a map",
         [](TreeNode& n) {
             TreeNode* const inner = Child(*Child(n, "__PartMapDefault"), "Inner");
             Child(*inner, "__PartMapDefault", "5");
             Child(*inner, "PartMapOverrides");
         },
         "Map(Inner=5)"},
        {"no map: everything stays", [](TreeNode& n) { Child(*Child(n, "PartMapOverrides"), "A", "1"); },
         "Map(PartMapOverrides(A=1))"},
    };
    for (const auto& row : rows) {
        TreeNode root;
        row.Fill(*Child(root, "Map"));
        FlattenPartMaps(&root);
        EXPECT_EQ(ChildrenText(root), row.Expected) << row.Why;
    }
}

} // namespace
