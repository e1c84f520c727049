#include "tests/Shared/Utils/tree/TreeTest.h"

#include "Shared/Utils/tree/TreeNodeIterator.h"
#include "Shared/Utils/tree/TreeNodeList.h"

#include <algorithm>

using Nvr::TreeNode;

namespace {

class TreeNodeTest : public TreeTest {
protected:
    // Children A, B and a second A.
    TreeNodeTest() : m_Node("Root") {
        m_Node.AddChild(new TreeNode("A", "1"));
        m_Node.AddChild(new TreeNode("B", "2"));
        m_Node.AddChild(new TreeNode("A", "3"));
    }

    TreeNode m_Node;
};

} // namespace

TEST_F(TreeNodeTest, FindsTheFirstMatchExactly) {
    EXPECT_EQ(m_Node.FindChild("A"), m_Node.GetChild(0));
    EXPECT_EQ(m_Node.FindChild("A", "3"), m_Node.GetChild(2));
    EXPECT_EQ(m_Node.FindChild("A", "2"), nullptr);
    EXPECT_EQ(m_Node.FindChild("a"), nullptr);
    EXPECT_EQ(m_Node.GetChild(-1), nullptr);
    EXPECT_EQ(m_Node.GetChild(3), nullptr);
}

TEST_F(TreeNodeTest, InsertsAtAnyIndex) {
    const char* const expected[] = {"Root(N,A=|1|,B=|2|,A=|3|)", "Root(A=|1|,N,B=|2|,A=|3|)",
                                    "Root(A=|1|,B=|2|,N,A=|3|)", "Root(A=|1|,B=|2|,A=|3|,N)"};
    for (const int index : {-5, 0, 1, 2, 3, 99}) {
        TreeNode node(m_Node);
        node.InsertChild(new TreeNode("N"), index);
        EXPECT_EQ(Outline(&node), expected[std::clamp(index, 0, 3)]) << index;
    }
}

TEST_F(TreeNodeTest, IgnoresNullAndItself) {
    for (TreeNode* const none : {static_cast<TreeNode*>(nullptr), &m_Node}) {
        m_Node.AddChild(none);
        m_Node.AddChildFirst(none);
        m_Node.InsertChild(none, 1);
        m_Node.MergeChild(none);
    }
    m_Node.MergeChild(m_Node.GetChild(0));
    m_Node.RemoveChild(nullptr);
    EXPECT_EQ(Outline(&m_Node), "Root(A=|1|,B=|2|,A=|3|)");
}

TEST_F(TreeNodeTest, MergeReplacesValueAndChildrenInPlace) {
    m_Node.GetChild(0)->AddChild(new TreeNode("Old"));
    TreeNode* const merged = new TreeNode("A", "9");
    merged->AddChild(new TreeNode("New"));
    m_Node.MergeChild(merged);
    EXPECT_EQ(Outline(&m_Node), "Root(A=|9|(New),B=|2|,A=|3|)");
    // Without children the present ones go.
    m_Node.MergeChild(new TreeNode("A"));
    m_Node.MergeChild(new TreeNode("C", "4"));
    EXPECT_EQ(Outline(&m_Node), "Root(A,B=|2|,A=|3|,C=|4|)");
}

TEST_F(TreeNodeTest, RemovesAndDeletesWhetherChildOrNot) {
    m_Node.RemoveChild(m_Node.GetChild(1));
    m_Node.RemoveChild(new TreeNode("Elsewhere"));
    EXPECT_EQ(Outline(&m_Node), "Root(A=|1|,A=|3|)");
    const std::unique_ptr<TreeNode> first(m_Node.GetChild(0));
    const std::unique_ptr<TreeNode> second(m_Node.GetChild(1));
    m_Node.ForgetChildren();
    EXPECT_EQ(Outline(&m_Node), "Root");
    EXPECT_EQ(Outline(second.get()), "A=|3|") << "forgotten children live on";
    m_Node.AddChild(new TreeNode("Again"));
    m_Node.ClearChildren();
    EXPECT_EQ(Outline(&m_Node), "Root");
}

TEST_F(TreeNodeTest, CopiesAreDeepAndIndependent) {
    m_Node.GetChild(1)->AddChild(new TreeNode("Deep"));
    TreeNode copy(m_Node);
    copy.GetChild(1)->GetChild(0)->SetLabel("Changed");
    copy.RemoveChild(copy.GetChild(0));
    EXPECT_EQ(Outline(&m_Node), "Root(A=|1|,B=|2|(Deep),A=|3|)");
    EXPECT_EQ(Outline(&copy), "Root(B=|2|(Changed),A=|3|)");
    copy.SetValue("kept");
    copy.CopyChildrenFrom(TreeNode("Other", "value"));
    EXPECT_EQ(Outline(&copy), "Root=|kept|");
}

TEST_F(TreeNodeTest, TakesWhatLiesBelowItself) {
    // The source goes with the old children; it must be copied before.
    m_Node.GetChild(1)->AddChild(new TreeNode("Deep", "4"));
    m_Node.CopyChildrenFrom(*m_Node.GetChild(1));
    EXPECT_EQ(Outline(&m_Node), "Root(Deep=|4|)");
    m_Node = *m_Node.GetChild(0);
    EXPECT_EQ(Outline(&m_Node), "Deep=|4|");
    const TreeNode& itself = m_Node;
    m_Node = itself;
    m_Node.CopyChildrenFrom(itself);
    EXPECT_EQ(Outline(&m_Node), "Deep=|4|");
}

TEST_F(TreeNodeTest, ComparesLabelsValuesAndShape) {
    const std::unique_ptr<TreeNode> node(TreeNode::LoadFromString("R{A \"1\" {B} C}"));
    for (const char* const differs : {"r{A \"1\" {B} C}", "R{A \"2\" {B} C}", "R{A \"1\" {B} C \"\" {\"\"}}",
                                      "R{A \"1\" {B}}", "R{A \"1\" C{B}}"}) {
        const std::unique_ptr<TreeNode> other(TreeNode::LoadFromString(differs));
        EXPECT_FALSE(node->IsSameTree(*other) || other->IsSameTree(*node)) << differs;
    }
    const std::unique_ptr<TreeNode> same(TreeNode::LoadFromString("R{A \"1\" {B} C {}}"));
    EXPECT_TRUE(node->IsSameTree(*same)) << "an empty list is none";
}

TEST_F(TreeNodeTest, IteratorReachesChildrenAppendedMeanwhile) {
    Nvr::TreeNodeIterator walk(m_Node);
    std::string labels;
    while (const TreeNode* const child = walk.Next()) {
        labels += child->GetLabel().CStr();
        if (m_Node.GetChildCount() < 5)
            m_Node.AddChild(new TreeNode("N"));
    }
    EXPECT_EQ(labels, "ABANN");
}

TEST_F(TreeNodeTest, ListGrowsByFourSlots) {
    Nvr::TreeNodeList list;
    EXPECT_EQ(list.Capacity(), 0);
    for (int i = 0; i < 9; ++i) {
        list.Add(new TreeNode);
        EXPECT_EQ(list.Capacity(), i / 4 * 4 + 4);
    }
}
