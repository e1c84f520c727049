#include "Shared/Utils/AllocationFailure.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeBinaryWriter.h"
#include "Shared/Utils/tree/TreeNodePool.h"
#include "Shared/Utils/tree/TreeNodeTextWriter.h"
#include "tests/faults/AllocationFaults.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

using Nvr::String;
using Nvr::TreeNode;
using Nvr::TreeNodePool;

namespace {

constinit const Nvr::FixedString kNumber("Number");
constinit const Nvr::FixedString kOther("Other");

// Runs an action with each of its allocations failing in turn, beginning each run with an empty string
// table. No run may leave a node behind, nor change the tree that the action is not to change.
class TreeFaults : public testing::Test {
protected:
    TreeFaults() {
        Nvr::InstallAllocationFailureHandler();
        // Enough children for lists that grow, and a tree that is more than a page of the pool.
        for (int i = 0; i < 40; ++i) {
            auto* const child = new TreeNode("Child", i);
            m_Tree.AddChild(child);
            for (int k = 0; k < 40; ++k)
                child->AddChild(new TreeNode("Leaf", k));
        }
        m_Expected = std::string(m_Tree.ToText().View());
        m_Binary = Written();
    }
    ~TreeFaults() override { Nvr::RemoveAllocationFailureHandler(); }

    std::string Written() const {
        Nvr::TreeNodeOutput output;
        Nvr::TreeNodeBinaryWriter(output, true, 0).Write(m_Tree);
        return std::string(output.View());
    }
    bool IsIntact() const { return m_Tree.ToText().View() == m_Expected; }

    template <class Action>
    void ExpectNoTrace(Action action, int fewestRuns) {
        const std::size_t cells = TreeNodePool::Shared().CellsInUse();
        const auto run = [&action] {
            Nvr::ClearNodeStringTable();
            action();
        };
        const int runs = AllocationFaults.FailEach(
            run, [&](int count) { ASSERT_EQ(TreeNodePool::Shared().CellsInUse(), cells) << count; });
        EXPECT_GE(runs, fewestRuns) << "the action hardly allocates";
        EXPECT_EQ(TreeNodePool::Shared().CellsInUse(), cells);
        EXPECT_TRUE(IsIntact());
    }

    TreeNode m_Tree{"Root"};
    std::string m_Expected;
    std::string m_Binary;
};

} // namespace

TEST_F(TreeFaults, ReadingTheBinaryForm) {
    ExpectNoTrace([this] { delete TreeNode::LoadFromMemory(m_Binary.data(), m_Binary.size()); }, 100);
}

TEST_F(TreeFaults, ReadingTheTextForm) {
    // Part of the tree: each token is an allocation.
    const String text = m_Tree.GetChild(0)->ToText();
    ExpectNoTrace([&text] { delete TreeNode::LoadFromMemory(text.CStr(), text.Length()); }, 100);
}

TEST_F(TreeFaults, Copying) {
    ExpectNoTrace([this] { delete new TreeNode(m_Tree); }, 80);
}

TEST_F(TreeFaults, Replacing) {
    // Either the former children stand, or the copies do.
    TreeNode target("Root");
    const auto assign = [&] {
        target.AddChild(new TreeNode("Former"));
        target = m_Tree;
        target.ClearChildren();
    };
    AllocationFaults.FailEach(assign, [&](int count) {
        ASSERT_TRUE(target.FindChild("Former") != nullptr || target.GetChildCount() == 0) << count;
        target.ClearChildren();
    });
    EXPECT_TRUE(IsIntact());
}

TEST_F(TreeFaults, AddingTakesOwnershipInAnyCase) {
    ExpectNoTrace(
        [] {
            TreeNode root("Other");
            for (int i = 0; i < 12; ++i) {
                root.AddChild(new TreeNode("Last", i));
                root.AddNumbers(std::array{Nvr::TreeNumber{kNumber, i}, Nvr::TreeNumber{kOther, -i}});
                root.AddChild(new TreeNode(kNumber, kOther));
                root.AddChildFirst(new TreeNode("First", 0.5F));
                root.InsertChild(new TreeNode("Middle", Nvr::TreeRectangle{}), i);
                root.MergeChild(new TreeNode("Merged", true));
                root.MergeChild(new TreeNode("Merged", Nvr::TreePoint{1, i}));
            }
        },
        40);
}

TEST_F(TreeFaults, WritingAndComparing) {
    ExpectNoTrace([this] { static_cast<void>(Written()); }, 4);
    ExpectNoTrace([this] { static_cast<void>(m_Tree.ToText()); }, 4);
    const TreeNode copy(m_Tree);
    ExpectNoTrace([&] { static_cast<void>(m_Tree.IsSameTree(copy)); }, 1);
}

TEST_F(TreeFaults, InterningLeavesTheTableWhole) {
    const auto intern = [] {
        Nvr::ClearNodeStringTable();
        for (int i = 0; i < 2000; i += 100)
            TreeNode("Interned", i);
    };
    AllocationFaults.FailEach(intern, [](int count) {
        String again("Interned");
        Nvr::InternString(again);
        ASSERT_TRUE(TreeNode("Interned").GetLabel().SharesTextWith(again)) << count;
    });
}

TEST_F(TreeFaults, CountsAndLengthsThatLieAskForNoMemory) {
    // A field of a node with one child: the claim, and then a kilobyte of what could be anything.
    using namespace std::string_literals;
    const std::string empty = "\0\0\0\0\0"s;
    for (const std::string& claim :
         {"\xFF\xFF\xFF\xFF"s, "\x7F\xFF\xFF\xFF"s, "\x80\0\0\0"s, "\x10\0\0\0"s}) {
        for (const std::string& version : {"\0\1"s, "\0\2"s}) {
            for (const std::string& field : {"\0"s + claim, empty + "\0"s + claim, empty + empty + claim,
                                             "\1"s + claim + empty + claim}) {
                LargestAllocation = 0;
                const std::string document = version + field + std::string(1000, '\0');
                EXPECT_EQ(TreeNode::LoadFromMemory(document.data(), document.size()), nullptr);
                EXPECT_LT(LargestAllocation, 64U * 1024);
            }
        }
    }
}
