#include "tests/Shared/Utils/tree/TreeTest.h"

#include "Shared/Utils/tree/TreeNodeIterator.h"
#include "Shared/Utils/tree/TreeNodeList.h"
#include "Shared/Utils/tree/TreeNodeVisitor.h"
#include "Shared/Utils/tree/TreeNodeWalk.h"

using Nvr::String;
using Nvr::TreeNode;

namespace {

class TreeNodeTest : public TreeTest {
protected:
    /// Children A, B and a second A.
    TreeNodeTest() : m_Node("Root") {
        m_Node.AddChild(new TreeNode("A", "1"));
        m_Node.AddChild(new TreeNode("B", "2"));
        m_Node.AddChild(new TreeNode("A", "3"));
    }

    TreeNode m_Node;
};

} // namespace

TEST_F(TreeNodeTest, NewNodeIsEmpty) {
    const TreeNode node;
    EXPECT_EQ(node.GetChildCount(), 0);
    EXPECT_EQ(node.GetChild(0), nullptr);
    EXPECT_EQ(Outline(&node), "");
}

TEST_F(TreeNodeTest, FindsTheFirstMatchExactly) {
    EXPECT_EQ(m_Node.FindChild("A"), m_Node.GetChild(0));
    EXPECT_EQ(m_Node.FindChild("A", "3"), m_Node.GetChild(2));
    EXPECT_EQ(m_Node.FindChild("A", "2"), nullptr);
    EXPECT_EQ(m_Node.FindChild("a"), nullptr);
    EXPECT_EQ(m_Node.GetChild(0)->FindChild("A"), nullptr);
    EXPECT_EQ(m_Node.GetChild(-1), nullptr);
    EXPECT_EQ(m_Node.GetChild(3), nullptr);
    EXPECT_EQ(m_Node.GetChildValueAtIndex(1), "2");
    EXPECT_TRUE(m_Node.GetChildValueAtIndex(3).IsEmpty());
    EXPECT_EQ(m_Node.GetChildIntAtIndex(2), 3);
    EXPECT_EQ(m_Node.GetChildIntAtIndex(-1), 0);
}

TEST_F(TreeNodeTest, InsertsAtAnyIndex) {
    struct Case {
        int Index;
        const char* Expected;
    };
    for (const Case& c : {Case{-5, "Root(N,A=|1|,B=|2|,A=|3|)"}, Case{0, "Root(N,A=|1|,B=|2|,A=|3|)"},
                          Case{1, "Root(A=|1|,N,B=|2|,A=|3|)"}, Case{2, "Root(A=|1|,B=|2|,N,A=|3|)"},
                          Case{3, "Root(A=|1|,B=|2|,A=|3|,N)"}, Case{99, "Root(A=|1|,B=|2|,A=|3|,N)"}}) {
        TreeNode node(m_Node);
        node.InsertChild(new TreeNode("N"), c.Index);
        EXPECT_EQ(Outline(&node), c.Expected) << c.Index;
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
    TreeNode leaf;
    leaf.RemoveChild(new TreeNode("Elsewhere"));
    leaf.ClearChildren();
    leaf.ForgetChildren();
    m_Node.ClearChildren();
    EXPECT_EQ(Outline(&m_Node), "Root");
    m_Node.AddChild(new TreeNode("Again"));
    EXPECT_EQ(Outline(&m_Node), "Root(Again)");
}

TEST_F(TreeNodeTest, ForgottenChildrenLiveOn) {
    const std::unique_ptr<TreeNode> first(m_Node.GetChild(0));
    const std::unique_ptr<TreeNode> second(m_Node.GetChild(1));
    const std::unique_ptr<TreeNode> third(m_Node.GetChild(2));
    m_Node.ForgetChildren();
    EXPECT_EQ(m_Node.GetChildCount(), 0);
    EXPECT_EQ(Outline(third.get()), "A=|3|");
}

TEST_F(TreeNodeTest, CopiesAreDeepAndIndependent) {
    m_Node.GetChild(1)->AddChild(new TreeNode("Deep"));
    TreeNode copy(m_Node);
    copy.GetChild(1)->GetChild(0)->SetLabel("Changed");
    copy.RemoveChild(copy.GetChild(0));
    EXPECT_EQ(Outline(&m_Node), "Root(A=|1|,B=|2|(Deep),A=|3|)");
    EXPECT_EQ(Outline(&copy), "Root(B=|2|(Changed),A=|3|)");
    copy = m_Node;
    EXPECT_EQ(Outline(&copy), "Root(A=|1|,B=|2|(Deep),A=|3|)");
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
    struct Case {
        const char* Other;
        bool Expected;
        const char* Why;
    };
    const std::unique_ptr<TreeNode> node(TreeNode::LoadFromString("R{A \"1\" {B} C}"));
    for (const Case& c :
         {Case{"R{A \"1\" {B} C}", true, "equal"}, Case{"r{A \"1\" {B} C}", false, "case"},
          Case{"R{A \"1\" {B} C {}}", true, "an empty list is none"},
          Case{"R{A \"2\" {B} C}", false, "value"},
          Case{"R{A \"1\" {B} C \"\" {\"\"}}", false, "empty child"},
          Case{"R{A \"1\" {B}}", false, "a child less"}, Case{"R{A \"1\" C{B}}", false, "depth"}}) {
        const std::unique_ptr<TreeNode> other(TreeNode::LoadFromString(c.Other));
        EXPECT_EQ(node->IsSameTree(*other), c.Expected) << c.Why;
        EXPECT_EQ(other->IsSameTree(*node), c.Expected) << c.Why;
    }
    EXPECT_TRUE(node->IsSameTree(*node));
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
    EXPECT_EQ(walk.Next(), nullptr);
    walk.Reset();
    EXPECT_EQ(walk.Next(), m_Node.GetChild(0));
    const TreeNode leaf;
    EXPECT_EQ(Nvr::TreeNodeIterator(leaf).Next(), nullptr);
}

TEST_F(TreeNodeTest, ListGrowsByFourSlots) {
    Nvr::TreeNodeList list;
    EXPECT_EQ(list.Capacity(), 0);
    for (int i = 0; i < 9; ++i) {
        list.Add(new TreeNode);
        EXPECT_EQ(list.Capacity(), i / 4 * 4 + 4);
    }
    const Nvr::TreeNodeList copy(list);
    EXPECT_EQ(copy.Capacity(), 9);
}

TEST_F(TreeNodeTest, RootIsDeletedThroughNodePointer) {
    TreeNode* const root = new Nvr::TreeNodeRoot;
    root->AddChild(new TreeNode("A"));
    delete root;
    m_Node.AddChild(new Nvr::TreeNodeRoot);
    EXPECT_EQ(m_Node.GetChildCount(), 4);
}

TEST_F(TreeNodeTest, VisitorEntersAndLeavesInDocumentOrder) {
    class Recorder : public Nvr::TreeNodeVisitor {
    public:
        bool EnterNode(TreeNode& node, int depth) override {
            Steps += '<' + std::string(node.GetLabel().CStr()) + std::to_string(depth);
            return !(node.GetLabel() == "Skip");
        }
        void LeaveNode(TreeNode& node, int depth) override {
            Steps += '>' + std::string(node.GetLabel().CStr()) + std::to_string(depth);
        }
        std::string Steps;
    };
    const std::unique_ptr<TreeNode> node(TreeNode::LoadFromString("R{A{B} Skip{C} D}"));
    Recorder recorder;
    Nvr::WalkTree(*node, recorder);
    EXPECT_EQ(recorder.Steps, "<R0<A1<B2>B2>A1<Skip1>Skip1<D1>D1>R0");
    recorder.Steps.clear();
    Nvr::WalkTree(*node->FindChild("Skip"), recorder);
    EXPECT_EQ(recorder.Steps, "<Skip0>Skip0");
}

TEST_F(TreeNodeTest, ParallelWalkEndsWhereItIsTold) {
    const std::unique_ptr<TreeNode> left(TreeNode::LoadFromString("R{A{B C} D}"));
    const std::unique_ptr<TreeNode> right(TreeNode::LoadFromString("R{A{B} D E}"));
    std::string pairs;
    const auto record = [&pairs](const Nvr::TreeNodePair& pair) {
        pairs += pair.Left != nullptr ? pair.Left->GetLabel().CStr() : "-";
        pairs += pair.Right != nullptr ? pair.Right->GetLabel().CStr() : "-";
        pairs += std::to_string(pair.Depth) + ' ';
        return true;
    };
    EXPECT_TRUE(WalkInParallel({.Left = left.get(), .Right = right.get()}, record, Nvr::WalkEnd::LongerList));
    EXPECT_EQ(pairs, "RR0 AA1 BB2 C-2 DD1 -E1 ");
    pairs.clear();
    EXPECT_TRUE(
        WalkInParallel({.Left = left.get(), .Right = right.get()}, record, Nvr::WalkEnd::ShorterList));
    EXPECT_EQ(pairs, "RR0 AA1 BB2 DD1 ");
}
