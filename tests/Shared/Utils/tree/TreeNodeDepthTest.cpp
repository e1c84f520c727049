#include "Shared/Utils/tree/TreeNodeVisitor.h"
#include "Shared/Utils/tree/TreeNodeWalk.h"
#include "tests/Shared/Utils/tree/StoredTree.h"

#include <functional>
#include <pthread.h>

using Nvr::TreeNode;
using Nvr::TreeNodeReader;

namespace {

constexpr int kMillion = 1000000;

class TreeNodeDepthTest : public TreeTest {
protected:
    // Runs an action on a stack that has no room for a call a level.
    static void OnSmallStack(std::function<void()> action) {
        constexpr std::size_t kStackSize = 256UL * 1024;
        const auto run = [](void* given) -> void* {
            (*static_cast<std::function<void()>*>(given))();
            return nullptr;
        };
        pthread_attr_t attributes{};
        ASSERT_EQ(pthread_attr_init(&attributes), 0);
        ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackSize), 0);
        pthread_t thread{};
        ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);
    }
};

struct DepthMeter : Nvr::TreeNodeVisitor {
    bool EnterNode(TreeNode&, int depth) override {
        Deepest = std::max(Deepest, depth);
        return true;
    }
    void LeaveNode(TreeNode&, int) override { ++Left; }
    int Deepest = 0;
    int Left = 0;
};

// "<" and the depth for each node entered, ">" and the depth for each one left.
struct WalkRecorder : Nvr::TreeNodeVisitor {
    bool EnterNode(TreeNode& node, int depth) override {
        Walk += '<' + std::to_string(depth);
        return node.GetLabel() != "Closed";
    }
    void LeaveNode(TreeNode&, int depth) override { Walk += '>' + std::to_string(depth); }
    std::string Walk;
};

// A chain of nodes, `depth` levels below its root.
std::unique_ptr<TreeNode> MakeChain(int depth) {
    auto root = std::make_unique<TreeNode>("N");
    for (int i = 0; i < depth; ++i) {
        auto* const parent = new TreeNode("N");
        parent->AddChild(root.release());
        root.reset(parent);
    }
    return root;
}

std::string BinaryChain(int depth) {
    const std::string level = Bytes("00 00000000 00 00000000 00000001");
    std::string document = Bytes("00 01");
    for (int i = 0; i < depth; ++i)
        document += level;
    return document + Bytes("00 00000000 00 00000000 00000000");
}

std::string TextChain(int depth) {
    const auto count = static_cast<std::size_t>(depth);
    return std::string(count, '{') + "A" + std::string(count, '}');
}

int DepthOf(const TreeNode& root) {
    int depth = 0;
    for (const TreeNode* node = &root; node->GetChildCount() != 0; node = node->GetChild(0))
        ++depth;
    return depth;
}

} // namespace

TEST_F(TreeNodeDepthTest, HandMadeTreesHaveNoLimit) {
    OnSmallStack([] {
        const std::unique_ptr<TreeNode> chain = MakeChain(kMillion);
        const TreeNode copy(*chain);
        EXPECT_TRUE(copy.IsSameTree(*chain));
        chain->GetChild(0)->AddChild(new TreeNode);
        EXPECT_FALSE(copy.IsSameTree(*chain));
        EXPECT_EQ(DepthOf(copy), kMillion);
        EXPECT_EQ(Written(copy, true).size(), 2U + 14U + 1U + kMillion * 14U);
        DepthMeter meter;
        Nvr::WalkTree(*chain, meter);
        EXPECT_EQ(meter.Deepest, kMillion);
        EXPECT_EQ(meter.Left, kMillion + 2);

        TreeNode walked(copy);
        walked = *walked.GetChild(0)->GetChild(0);
        EXPECT_EQ(DepthOf(walked), kMillion - 2);
        walked.GetChild(0)->ClearChildren();
        EXPECT_EQ(DepthOf(walked), 1);
        // A text grows with the square of the depth.
        const auto written = MakeChain(4000);
        EXPECT_TRUE(LoadAsString(std::string(written->ToText().View()))->IsSameTree(*written));
    });
}

TEST_F(TreeNodeDepthTest, WalksTellTheDepthOfEachNode) {
    const struct {
        const char *Tree, *Expected, *Why;
    } rows[] = {
        {"A", "<0>0", "the root alone"},
        {"A {B {C} D}", "<0<1<2>2>1<1>1>0", "down, up and beside"},
        {"A {Closed {C} D}", "<0<1>1<1>1>0", "passed over below a node that is not entered"},
        {"Closed {B}", "<0>0", "also where that is the root"},
    };
    for (const auto& row : rows) {
        WalkRecorder recorder;
        Nvr::WalkTree(*LoadAsString(row.Tree), recorder);
        EXPECT_EQ(recorder.Walk, row.Expected) << row.Why;
    }
}

TEST_F(TreeNodeDepthTest, DeeperDocumentsAreRefused) {
    OnSmallStack([this] {
        const std::vector<std::string> binaryReports{"Nodes are nested too deeply",
                                                     "Could not read treenode"};
        const std::vector<std::string> textReports{"Nodes are nested too deeply at line 0 - current text {",
                                                   "Could not read treenode"};
        for (const int depth : {TreeNodeReader::kDeepestLevel + 1, kMillion}) {
            EXPECT_EQ(LoadBytes(BinaryChain(depth)), nullptr) << depth;
            EXPECT_EQ(TakeReports(), binaryReports);
            EXPECT_EQ(LoadAsStream(BinaryChain(depth)), nullptr) << depth;
            EXPECT_EQ(TakeReports(), binaryReports);
            EXPECT_EQ(LoadBytes(std::string(static_cast<std::size_t>(depth) + 1, '{')), nullptr) << depth;
            EXPECT_EQ(TakeReports(), textReports);
        }
        const auto binary = LoadBytes(BinaryChain(TreeNodeReader::kDeepestLevel));
        ASSERT_NE(binary, nullptr);
        EXPECT_EQ(DepthOf(*binary), TreeNodeReader::kDeepestLevel);
        const auto text = LoadBytes(TextChain(TreeNodeReader::kDeepestLevel));
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(DepthOf(*text), TreeNodeReader::kDeepestLevel);
        EXPECT_EQ(LoadBytes(TextChain(TreeNodeReader::kDeepestLevel + 1)), nullptr);
    });
}

TEST_F(TreeNodeDepthTest, CountsThatLieAtEveryLevelCostNothing) {
    // Each level claims 4 billion children, and brings one.
    std::string document = Bytes("00 01");
    for (int i = 0; i < TreeNodeReader::kDeepestLevel; ++i)
        document += Bytes("00 00000000 00 00000000 FFFFFFFF");
    document += std::string(1000000, '\0');
    EXPECT_EQ(LoadBytes(document), nullptr);
    EXPECT_EQ(TakeReports().size(), 2U);
}
