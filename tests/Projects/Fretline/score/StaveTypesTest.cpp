#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreHolder.h"
#include "tests/Projects/Fretline/score/NodeText.h"

#include <gtest/gtest.h>

namespace {

using namespace Fretline;
using Nvr::String;
using Nvr::TreeNode;
using ScoreTest::Child;
using ScoreTest::ChildrenText;
using ScoreTest::Ints;
using Pitches = Nvr::TVAList<int>;

void AddRow(TreeNode& staveTypes, const char* id, const char* category, const char* showRhythms,
            std::initializer_list<const char*> pitches) {
    TreeNode* const row = Child(staveTypes, "");
    Child(*row, "Type", "StaveType");
    Child(*row, "Name", "name");
    Child(*row, "Id", id);
    Child(*row, "Category", category);
    if (showRhythms != nullptr)
        Child(*row, "ShowRhythms", showRhythms);
    Child(*row, "StaveLines", "2");
    Child(*row, "StaveLineSeparation", "48");
    Child(*row, "BarlineDy", "1");
    TreeNode* const strings = Child(*row, "Pitches");
    for (const char* const pitch : pitches)
        Child(*strings, "", pitch);
    Child(*row, "BarlineBottomDy", "1");
}

class StaveTypes : public testing::Test {
protected:
    StaveTypes() {
        AddRow(*Rows, "pitched", "0", "false", {"10", "20"});
        Child(*Child(*Rows, ""), "Category", "2");
        AddRow(*Rows, "plain", "2", "false", {"10", "20"});
        AddRow(*Rows, "later", "2", "false", {"10", "20"});
        AddRow(*Rows, "rhythms", "2", "True", {"10", "20"});
        AddRow(*Rows, "silent", "2", nullptr, {"11", "20", "30"});
        AddRow(*Rows, "one", "2", "1", {"7"});
        Score.SetRoot(&Root);
    }

    TreeNode Root{"Root"};
    TreeNode* Rows = Child(*Child(Root, "Music"), "StaveTypes");
    ScoreHolder Score;
};

TEST_F(StaveTypes, AreFoundByPitchesInOrderAndByRhythms) {
    const struct {
        const char* Why;
        Pitches Tuning;
        bool HasRhythms;
        const char* Id;
    } rows[] = {
        {"the first tab row, not the pitched one and not the later one", Ints({10, 20}), false, "plain"},
        {"another order of the strings", Ints({20, 10}), false, ""},
        {"the beginning of a longer row", Ints({11, 20}), false, ""},
        {"no word about rhythms means none", Ints({11, 20, 30}), false, "silent"},
        {"and so they are not found with rhythms", Ints({11, 20, 30}), true, ""},
        {"1 counts as true", Ints({7}), true, "one"},
        {"a row without strings is not found by an empty tuning", Ints({}), false, ""},
    };
    for (const auto& row : rows) {
        String id("left over");
        EXPECT_EQ(Score.FindStaveType(row.Tuning, row.HasRhythms, id), row.Id[0] != '\0') << row.Why;
        EXPECT_EQ(id, row.Id) << row.Why;
    }
}

TEST_F(StaveTypes, ANewOneIsTheBaseWithOtherStrings) {
    const int before = Rows->GetChildCount();
    const TreeNode base(*Rows->GetChild(2));
    ASSERT_TRUE(Score.CreateStaveType("new.id", "tab 1234", Ints({1, 2, 3, 4}), "plain"));
    ASSERT_EQ(Rows->GetChildCount(), before + 1);
    EXPECT_EQ(ChildrenText(*Rows->GetChild(before)),
              "Type=StaveType Name=tab 1234 Id=new.id Category=2 ShowRhythms=false StaveLines=4 "
              "StaveLineSeparation=48 BarlineDy=72 Pitches(=1 =2 =3 =4) BarlineBottomDy=72");
    EXPECT_TRUE(Rows->GetChild(2)->IsSameTree(base)) << "the base stays";
    String id;
    EXPECT_TRUE(Score.FindStaveType(Ints({1, 2, 3, 4}), false, id));
    EXPECT_EQ(id, "new.id");
}

TEST_F(StaveTypes, WithoutBaseOrListNothingHappens) {
    const TreeNode before(Root);
    EXPECT_FALSE(Score.CreateStaveType("id", "name", Ints({1}), "PLAIN")) << "ids are compared byte for byte";
    EXPECT_FALSE(Score.CreateStaveType("id", "name", Ints({1}), "")) << "a row without an id is no base";
    EXPECT_TRUE(Root.IsSameTree(before));
    TreeNode bare("Root");
    Child(bare, "Music");
    String id("left over");
    for (TreeNode* const root : {static_cast<TreeNode*>(nullptr), &bare}) {
        Score.SetRoot(root);
        EXPECT_FALSE(Score.FindStaveType(Ints({7}), true, id));
        EXPECT_EQ(id, "");
        EXPECT_FALSE(Score.CreateStaveType("id", "name", Ints({7}), "one"));
    }
}

} // namespace
