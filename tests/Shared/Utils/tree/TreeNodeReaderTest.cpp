#include "tests/Shared/Utils/tree/StoredTree.h"

using Nvr::String;
using Nvr::TreeNode;

namespace {

class TreeNodeReaderTest : public TreeTest {};

} // namespace

TEST_F(TreeNodeReaderTest, FlagsTellWhatTheSourceWas) {
    const struct {
        const char* Document;
        bool IsBinary, IsUnicode;
    } rows[] = {{"'A'", false, false},
                {"FE FF 00'A'", false, true},
                {"FF FE 'A'00", false, true},
                {"00 01 00 00000001 'A' 00 00000000 00000000", true, false},
                {"00 02 00 00000002 00'A' 00 00000000 00000000", true, true}};
    for (const auto& row : rows) {
        for (const auto& tree : {LoadBytes(Bytes(row.Document)), LoadAsStream(Bytes(row.Document))}) {
            ASSERT_EQ(Outline(tree.get()), "A") << row.Document;
            EXPECT_EQ(tree->WasBinary, row.IsBinary) << row.Document;
            EXPECT_EQ(tree->WasUnicode, row.IsUnicode) << row.Document;
        }
    }
}

TEST_F(TreeNodeReaderTest, AStringIsTextOnly) {
    EXPECT_EQ(Outline(LoadAsString("").get()), "") << "no bytes are an empty document";
    EXPECT_EQ(LoadAsString("\x01\x02"), nullptr);
    EXPECT_EQ(TakeReports().back(), "Could not read treenode");
    EXPECT_EQ(TreeNode::LoadFromMemory(nullptr, 5), nullptr);
}

TEST_F(TreeNodeReaderTest, StreamsAreReadInBlocksOfAnySize) {
    // Strings, numbers and tokens lie across the ends of blocks at every offset.
    TreeNode root("Root");
    for (int i = 0; i < 12000; ++i)
        root.AddChild(new TreeNode(String("Label") + String::FromInt(i), String('v', i % 40)));
    root.AddChild(new TreeNode("Long", String('x', 200000)));
    for (int shift = 0; shift < 20; shift += 3) {
        root.SetValue(String('s', shift));
        EXPECT_TRUE(LoadAsStream(Written(root, false))->IsSameTree(root)) << shift;
        EXPECT_TRUE(LoadAsStream(Written(root, true, true))->IsSameTree(root)) << shift;
        EXPECT_TRUE(LoadAsStream("\xFE\xFF" + AsUtf16(Written(root, false), true))->IsSameTree(root))
            << shift;
    }
}

TEST_F(TreeNodeReaderTest, AStreamStandsBehindTheDocument) {
    const TreeNode first("First", "1");
    const TreeNode second("Second", "2");
    std::istringstream source("skip" + Written(first, true) + Written(second, true, true) + "rest");
    Nvr::CInStream stream(source);
    stream.Seek(4);
    const std::unique_ptr<TreeNode> firstRead(TreeNode::LoadFromStream(stream));
    const std::unique_ptr<TreeNode> secondRead(TreeNode::LoadFromStream(stream));
    EXPECT_EQ(Outline(firstRead.get()), "First=|1|");
    EXPECT_EQ(Outline(secondRead.get()), "Second=|2|");
    EXPECT_EQ(stream.Get(), 'r');
    std::istringstream text("A {} behind");
    Nvr::CInStream textStream(text);
    const std::unique_ptr<TreeNode> textRead(TreeNode::LoadFromStream(textStream));
    EXPECT_EQ(textStream.Tell(), 4);
}
