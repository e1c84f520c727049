#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "tests/Shared/Utils/tree/StoredTree.h"

#include <algorithm>
#include <random>

using Nvr::String;
using Nvr::TreeNode;

namespace {

class TreeNodeBinaryTest : public TreeTest {};

using Reports = std::vector<std::string>;

const std::string kCutOff = "Unexpected end of file";
const std::string kFailed = "Could not read treenode";
const std::string kEmpty = "00 00000000 ";
const std::string kLeaf = "00000000 ";

// A root labelled R with children that use both kinds of strings.
std::unique_ptr<TreeNode> SampleTree() {
    return std::unique_ptr<TreeNode>(TreeNode::LoadFromString("R \"x\" {A \"R\" A \"x\" {\"A\"} x}"));
}

} // namespace

TEST_F(TreeNodeBinaryTest, IsWrittenByteByByte) {
    EXPECT_EQ(Written(TreeNode(), true), Bytes("00 01 " + kEmpty + kEmpty + kLeaf));
    EXPECT_EQ(Written(TreeNode(), true, true), Bytes("00 02 " + kEmpty + kEmpty + kLeaf));
    const std::string rest = " 01 00000000 00000000 01 00000002 01 00000001 00000001"
                             " 00 00000000 01 00000002 00000000 01 00000001 00 00000000 00000000";
    const std::string body8 = "00 00000001 'R' 00 00000001 'x' 00000003 00 00000001 'A'" + rest;
    const std::string body16 = "00 00000002 00'R' 00 00000002 00'x' 00000003 00 00000002 00'A'" + rest;
    EXPECT_EQ(Written(*SampleTree(), true), Bytes("00 01" + body8));
    EXPECT_EQ(Written(*SampleTree(), true, true), Bytes("00 02" + body16));
    EXPECT_EQ(Written(*SampleTree(), true, true, 2, 5), Bytes("00 02" + body16)) << "depth plays no part";
    for (const bool unicode : {false, true}) {
        const auto again = LoadBytes(Written(*SampleTree(), true, unicode));
        EXPECT_TRUE(again->IsSameTree(*SampleTree()));
        EXPECT_TRUE(again->WasBinary);
        EXPECT_EQ(again->WasUnicode, unicode);
    }
}

TEST_F(TreeNodeBinaryTest, EqualTextsAreOneStringHoweverTheyAreHeld) {
    TreeNode node("Label");
    Nvr::ClearNodeStringTable();
    node.AddChild(new TreeNode("Label", "Label"));
    EXPECT_EQ(Written(node, true),
              Bytes("00 01 00 00000005 'Label'" + kEmpty + "00000001" + "01 00000000 01 00000000 00000000"));
}

TEST_F(TreeNodeBinaryTest, StringsOfEqualHashesHaveAnIndexEach) {
    constexpr int kPairs = 13;
    constexpr std::size_t kLeafSize = 14;
    TreeNode node("R");
    for (int round = 0; round < 2; ++round) {
        for (unsigned i = 0; i < 1U << kPairs; ++i) {
            node.AddChild(new TreeNode(String(OneOfEqualHashes(i, kPairs))));
            // The second time each text is a new one to the writer, equal to a former one.
            Nvr::ClearNodeStringTable();
        }
    }
    const std::string written = Written(node, true);
    EXPECT_TRUE(LoadBytes(written)->IsSameTree(node));
    constexpr std::size_t kTexts = 1U << kPairs;
    const std::size_t emptyTree = Written(TreeNode("R"), true).size();
    EXPECT_EQ(written.size(), emptyTree + 2 * kTexts * kLeafSize + kTexts * 2 * kPairs);
}

TEST_F(TreeNodeBinaryTest, EveryByteSurvivesEachForm) {
    TreeNode node("R");
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\r')
            node.AddChild(new TreeNode("B", String(static_cast<char>(byte), 2)));
    }
    EXPECT_TRUE(LoadBytes(Written(node, true, false))->IsSameTree(node));
    EXPECT_TRUE(LoadBytes(Written(node, true, true))->IsSameTree(node));
    node.RemoveChild(node.GetChild(node.GetChildCount() - 1));
    EXPECT_TRUE(LoadAsStream(Written(node, false))->IsSameTree(node)) << "in text all but the end mark";
}

TEST_F(TreeNodeBinaryTest, EncodingChoosesTheCodePage) {
    const TreeNode node("N", "\x80\xA5");
    const std::string opening = "00 02 00 00000002 00'N' 00 00000004 ";
    EXPECT_EQ(Written(node, true, true, 0), Bytes(opening + "20AC 00A5" + kLeaf));
    EXPECT_EQ(Written(node, true, true, 1), Bytes(opening + "00C4 2022" + kLeaf));
    EXPECT_EQ(Written(node, true, true, 77), Bytes(opening + "20AC 00A5" + kLeaf));
}

TEST_F(TreeNodeBinaryTest, CarriageReturnsStayOutOfUtf16) {
    TreeNode node("A", "x\r\ny");
    EXPECT_EQ(LoadBytes(Written(node, true, false))->GetValue(), "x\r\ny");
    EXPECT_EQ(LoadBytes(Written(node, true, true))->GetValue(), "x\ny");
    EXPECT_EQ(LoadBytes(Bytes("00 02" + kEmpty + "00 00000006 00'x' 000D 00'y'" + kLeaf))->GetValue(), "xy");
    // Nothing but carriage returns is written as an empty string, which takes no index; the strings after
    // it must still be found.
    node.AddChild(new TreeNode("\r", "\r\r"));
    node.AddChild(new TreeNode("B", "B"));
    EXPECT_EQ(Outline(LoadBytes(Written(node, true, true)).get()), "A=|x\ny|(,B=|B|)");
    // Strings that become equal that way still stand in full each, as each has its index.
    EXPECT_EQ(Written(TreeNode("C", "C\r"), true, true),
              Bytes("00 02 00 00000002 00'C' 00 00000002 00'C' " + kLeaf));
    // When such a string is stored all the same, it has an index.
    EXPECT_EQ(Outline(LoadBytes(Bytes("00 02 00 00000002 000D 00 00000002 00'v' 00000001"
                                      "01 00000001 01 00000000 00000000"))
                          .get()),
              "=|v|(v)");
}

TEST_F(TreeNodeBinaryTest, StringsEndAtTheirFirstZero) {
    EXPECT_EQ(LoadBytes(Bytes("00 01 00 00000003 'a' 00 'b' 01 00000000" + kLeaf))->GetValue(), "a");
    EXPECT_EQ(LoadBytes(Bytes("00 02 00 00000006 00'a' 0000 00'b' 01 00000000" + kLeaf))->GetValue(), "a");
    // An index that was never given is the empty string, half a code unit is dropped.
    EXPECT_EQ(Outline(LoadBytes(Bytes("00 01 01 FFFFFFFF 00 00000001 'v' 00000000")).get()), "=|v|");
    EXPECT_EQ(Outline(LoadBytes(Bytes("00 02 00 00000003 00'a' 00 01 00000000" + kLeaf)).get()), "a=|a|");
}

TEST_F(TreeNodeBinaryTest, DamageIsReported) {
    const Reports version{"Could not read treenode - version is not recognized"};
    const struct {
        std::string Document;
        Reports Expected;
        const char* Why;
    } rows[] = {
        {"00 00", version, "version 0"},
        {"00 03", version, "version 3"},
        {"00", version, "no version"},
        {"00 01 02", {"Unexpected field type: 2", kFailed}, "tag of the label"},
        {"00 01" + kEmpty + "FF", {"Unexpected field type: 255", kFailed}, "tag of the value"},
        {"00 01" + kEmpty + kEmpty + "FFFFFFFF" + kEmpty + kEmpty + kLeaf,
         {kCutOff, kFailed},
         "a wrong count"},
        {"00 01 00 FFFFFFFF 'abc'", {kCutOff, kFailed}, "a wrong length: the value is missing"},
    };
    for (const auto& row : rows) {
        const std::string bytes = Bytes(row.Document);
        EXPECT_EQ(LoadBytes(bytes), nullptr) << row.Why;
        EXPECT_EQ(TakeReports(), row.Expected) << row.Why;
        EXPECT_EQ(LoadAsStream(bytes), nullptr) << row.Why;
        EXPECT_EQ(TakeReports(), row.Expected) << row.Why;
    }
}

TEST_F(TreeNodeBinaryTest, AStopLabelIsFoundWhereverItsTextStoodBefore) {
    // The label sought stands as a value before, so that its own node has nothing but known strings.
    const std::unique_ptr<TreeNode> tree(TreeNode::LoadFromString("R {A \"B\" A \"A\" B \"A\" B \"C\"}"));
    const std::string written = Written(*tree, true);
    const auto read = [&written](const char* label, int mode) {
        return std::unique_ptr<TreeNode>(
            Nvr::TreeNodeReader(written.data(), written.size()).Read(label, mode));
    };
    try {
        read("B", Nvr::TreeNodeReader::kStopAtValue);
        ADD_FAILURE() << "the label was not found";
    } catch (const Nvr::TreeNodeLabelFoundException& found) {
        EXPECT_EQ(found.GetValue(), "A");
    }
    try {
        read("B", Nvr::TreeNodeReader::kStopAtSubTree);
        ADD_FAILURE() << "the label was not found";
    } catch (const Nvr::TreeNodeSubTreeFoundException& found) {
        const std::unique_ptr<TreeNode> node(found.GetNode());
        EXPECT_EQ(Outline(node.get()), "B=|A|");
    }
    EXPECT_EQ(Outline(read("C", Nvr::TreeNodeReader::kStopAtValue).get()), Outline(tree.get()))
        << "a value is no label";
}

TEST_F(TreeNodeBinaryTest, EveryTruncationIsNoticed) {
    for (const bool unicode : {false, true}) {
        const std::string whole = Written(*SampleTree(), true, unicode);
        for (std::size_t size = 2; size < whole.size(); ++size) {
            const std::string cut = whole.substr(0, size);
            EXPECT_EQ(LoadBytes(cut), nullptr) << size;
            EXPECT_EQ(LoadAsStream(cut), nullptr) << size;
            EXPECT_EQ(TakeReports(), (Reports{kCutOff, kFailed, kCutOff, kFailed})) << size;
        }
    }
}

TEST_F(TreeNodeBinaryTest, RandomDamageNeverDoesWorseThanNull) {
    const std::string whole = Written(*SampleTree(), true, true);
    std::mt19937 random(3);
    int read = 0;
    for (int round = 0; round < 5000; ++round) {
        std::string bytes = whole;
        for (auto changes = 1 + random() % 3; changes > 0; --changes)
            bytes[2 + random() % (bytes.size() - 2)] =
                static_cast<char>(random() % 4 == 0 ? random() : random() % 3);
        const auto tree = LoadBytes(bytes);
        if (tree != nullptr) {
            ++read;
            const auto again = LoadBytes(Written(*tree, true, true));
            ASSERT_TRUE(again != nullptr && again->IsSameTree(*tree));
        }
    }
    EXPECT_GT(read, 0);
}

namespace {

constexpr Nvr::TreeSelection kBelowNameless[] = {{"A"}, {"D"}};
constexpr Nvr::TreeSelection kBelowA[] = {{"B", {}, true}, {"", kBelowNameless}};
constexpr Nvr::TreeSelection kSelection[] = {{"A", kBelowA}, {"C"}};

using Texts = std::vector<std::string>;

std::string TextOf(const TreeNode& node) {
    return std::string(node.ToText().View());
}

// The plain way: everything is read, and then taken out. Gives how many children that were.
int Prune(TreeNode& node, std::span<const Nvr::TreeSelection> selection, Texts& shown) {
    int pruned = 0;
    for (int i = 0; i < node.GetChildCount() && !selection.empty(); ++i) {
        TreeNode* const child = node.GetChild(i);
        const auto wanted =
            std::ranges::find(selection, child->GetLabel().View(), &Nvr::TreeSelection::Label);
        if (wanted == selection.end()) {
            node.RemoveChild(child);
            --i;
            ++pruned;
        } else if (wanted->IsShown) {
            shown.push_back(TextOf(*child));
            child->ClearChildren();
        } else {
            pruned += Prune(*child, wanted->Below, shown);
        }
    }
    return pruned;
}

std::unique_ptr<TreeNode> LoadSelected(const std::string& bytes, bool isStream, Texts& shown) {
    std::istringstream source(bytes);
    Nvr::CInStream stream(source);
    Nvr::TreeNodeReader memory(bytes.data(), bytes.size());
    Nvr::TreeNodeReader fromStream(stream);
    Nvr::TreeNodeReader& reader = isStream ? fromStream : memory;
    reader.Select(kSelection, [&shown](const TreeNode& node) { shown.push_back(TextOf(node)); });
    return std::unique_ptr<TreeNode>(reader.Read());
}

} // namespace

TEST_F(TreeNodeBinaryTest, ASelectionIsTheWholeWithoutTheRest) {
    std::mt19937 random(11);
    int pruned = 0;
    std::size_t allShown = 0;
    for (int round = 0; round < 400; ++round) {
        TreeNode root("Root");
        std::vector<TreeNode*> nodes{&root};
        constexpr const char* kTexts[] = {"A", "B", "C", "D", "", "a longer one", "\xE9"};
        for (auto count = random() % 30; count > 0; --count) {
            auto* const node = new TreeNode(kTexts[random() % 5], kTexts[random() % 7]);
            nodes[random() % nodes.size()]->AddChild(node);
            nodes.push_back(node);
        }
        std::string bytes = Written(root, true, round % 2 == 0);
        if (round % 4 == 0)
            bytes.resize(bytes.size() - random() % bytes.size() / 2);
        if (round % 8 == 1)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        const auto whole = LoadBytes(bytes);
        const Reports reports = TakeReports();
        for (const bool isStream : {false, true}) {
            Texts shown;
            Texts expected;
            const auto selected = LoadSelected(bytes, isStream, shown);
            EXPECT_EQ(TakeReports(), reports) << round << ": damage is damage wherever it lies";
            ASSERT_EQ(selected == nullptr, whole == nullptr) << round;
            if (whole == nullptr || !whole->WasBinary)
                continue;
            const auto plain = LoadBytes(bytes);
            pruned += Prune(*plain, kSelection, expected);
            EXPECT_TRUE(selected->IsSameTree(*plain)) << round;
            EXPECT_EQ(shown, expected) << round;
            allShown += shown.size();
        }
    }
    EXPECT_GT(pruned, 500);
    EXPECT_GT(allShown, 50U);
}
