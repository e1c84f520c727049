#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "tests/Shared/Utils/tree/StoredTree.h"

using Nvr::String;
using Nvr::TreeNode;
using Nvr::TreeNodeReader;

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

TEST_F(TreeNodeReaderTest, AStreamStandsAfterTheDocument) {
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
    std::istringstream text("A {} after");
    Nvr::CInStream textStream(text);
    const std::unique_ptr<TreeNode> textRead(TreeNode::LoadFromStream(textStream));
    EXPECT_EQ(textStream.Tell(), 4);
}

TEST_F(TreeNodeReaderTest, AStreamStandsAfterWhatWasReadHoweverThatEnds) {
    const std::string binary = Written(*LoadAsString("A {B \"x\" {C}}"), true);
    const struct {
        std::string Document;
        int Mode;
        std::size_t Position;
        const char* Why;
    } rows[] = {
        {"A {B \"x\" {C} D} E", TreeNodeReader::kStopAtValue, 8, "the closing quote"},
        {"A {B \"x\" {C} D} E", TreeNodeReader::kStopAtSubTree, 12, "the right brace"},
        {binary + "rest", TreeNodeReader::kStopAtValue, binary.size() - 4 - 15,
         "before the count of children"},
        {binary + "rest", TreeNodeReader::kStopAtSubTree, binary.size(), "all of the node"},
        {"A {@ rest", TreeNodeReader::kStopAtValue, 4, "the wrong character"},
        {Bytes("00 03") + "rest", TreeNodeReader::kStopAtValue, 2, "the wrong version"},
    };
    for (const auto& row : rows) {
        std::istringstream source(row.Document);
        Nvr::CInStream stream(source);
        try {
            EXPECT_EQ(TreeNodeReader(stream).Read("B", row.Mode), nullptr) << row.Why;
        } catch (const Nvr::TreeNodeLabelFoundException& found) {
            EXPECT_EQ(found.GetValue(), "x");
        } catch (const Nvr::TreeNodeSubTreeFoundException& found) {
            const std::unique_ptr<TreeNode> node(found.GetNode());
            EXPECT_EQ(Outline(node.get()), "B=|x|(C)");
        }
        EXPECT_EQ(stream.Tell(), static_cast<std::streamoff>(row.Position)) << row.Why;
    }
}

TEST_F(TreeNodeReaderTest, NothingIsReadWhereNothingIsLeft) {
    char to = 'x';
    Nvr::ByteBuffer into;
    TreeNodeReader some("ab", 1);
    EXPECT_FALSE(some.AtEnd());
    EXPECT_FALSE(some.ReadBytes(&to, 0)) << "no byte is what was asked for";
    EXPECT_FALSE(some.ReadBytesInto(into, 0));
    EXPECT_FALSE(some.ReadBytes(&to, 5));
    EXPECT_EQ(to, 'a');
    EXPECT_TRUE(some.AtEnd());
    EXPECT_TRUE(some.ReadBytes(&to, 0));
    EXPECT_TRUE(some.ReadBytesInto(into, 0));

    std::istringstream source("a");
    Nvr::CInStream stream(source);
    EXPECT_FALSE(TreeNodeReader(stream).AtEnd());
    TreeNodeReader reader(stream);
    EXPECT_FALSE(reader.ReadBytes(&to, 1));
    EXPECT_FALSE(reader.AtEnd()) << "a stream shows its end when a read has failed";
    EXPECT_TRUE(reader.ReadBytes(&to, 0));
    EXPECT_TRUE(reader.AtEnd());
    stream.Get();
    EXPECT_TRUE(stream.Eof());
    EXPECT_TRUE(TreeNodeReader(stream).AtEnd()) << "seen by another read before";
}

TEST(TreeNodeReaderDeathTest, ReadsOneDocument) {
    Nvr::TreeNodeReader reader(String("A"));
    EXPECT_EQ(Outline(std::unique_ptr<TreeNode>(reader.Read()).get()), "A");
    EXPECT_DEBUG_DEATH(std::unique_ptr<TreeNode>(reader.Read()).reset(), "m_HasRead");
}
