#include "tests/Shared/Utils/tree/StoredTree.h"

#include "Shared/Utils/tree/TreeNodeExceptions.h"

using Nvr::String;
using Nvr::TreeNode;
using Nvr::TreeNodeReader;

namespace {

class TreeNodeReaderTest : public TreeTest {};

/// What a read with a stop label ends with: the value in mode 0, the outline in mode 1, or what was read.
std::string ReadUntil(const std::string& bytes, const char* label, int mode) {
    try {
        const std::unique_ptr<TreeNode> tree(TreeNodeReader(bytes.data(), bytes.size()).Read(label, mode));
        return "all: " + Outline(tree.get());
    } catch (const Nvr::TreeNodeLabelFoundException& found) {
        return "value: " + std::string(found.GetValue().View());
    } catch (const Nvr::TreeNodeSubTreeFoundException& found) {
        const std::unique_ptr<TreeNode> node(found.GetNode());
        return "node: " + Outline(node.get());
    }
}

std::string ReadUntil(const TreeNode& tree, bool binary, const char* label, int mode) {
    return ReadUntil(Written(tree, binary), label, mode);
}

} // namespace

TEST_F(TreeNodeReaderTest, FlagsTellWhatTheSourceWas) {
    struct Case {
        std::string Document;
        bool IsBinary;
        bool IsUnicode;
    };
    for (const Case& c :
         {Case{"'A'", false, false}, Case{"FE FF 00'A'", false, true}, Case{"FF FE 'A'00", false, true},
          Case{"00 01 00 00000001 'A' 00 00000000 00000000", true, false},
          Case{"00 02 00 00000002 00'A' 00 00000000 00000000", true, true}}) {
        for (const auto& tree : {LoadBytes(Bytes(c.Document)), LoadAsBuffer(Bytes(c.Document)),
                                 LoadAsStream(Bytes(c.Document))}) {
            ASSERT_NE(tree, nullptr) << c.Document;
            EXPECT_EQ(Outline(tree.get()), "A");
            EXPECT_EQ(tree->WasBinary, c.IsBinary) << c.Document;
            EXPECT_EQ(tree->WasUnicode, c.IsUnicode) << c.Document;
        }
    }
}

TEST_F(TreeNodeReaderTest, AStringIsTextOnly) {
    const std::unique_ptr<Nvr::TreeNodeRoot> empty(TreeNode::LoadFromString(""));
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(Outline(empty.get()), "");
    EXPECT_FALSE(empty->WasBinary || empty->WasUnicode);
    EXPECT_EQ(LoadAsString("\x01\x02"), nullptr);
    EXPECT_EQ(TakeReports().back(), "Could not read treenode");
    EXPECT_EQ(TreeNode::LoadFromMemory(nullptr, 5), nullptr);
}

TEST_F(TreeNodeReaderTest, LowLevelReadsTellHowTheyEnd) {
    std::istringstream source("abcde");
    Nvr::CInStream stream(source);
    TreeNodeReader fromStream(stream);
    TreeNodeReader fromMemory("abcde", 5);
    for (TreeNodeReader* const reader : {&fromStream, &fromMemory}) {
        const bool isStream = reader == &fromStream;
        char bytes[8] = "-------";
        EXPECT_FALSE(reader->ReadBytes(bytes, 2));
        reader->SkipBack(1);
        EXPECT_EQ(reader->ReadByte(), 'b');
        EXPECT_FALSE(reader->ReadBytes(bytes + 2, 3));
        EXPECT_STREQ(bytes, "abcde--");
        EXPECT_EQ(reader->AtEnd(), !isStream) << "a stream knows only after it has tried";
        EXPECT_TRUE(reader->ReadBytes(bytes, 1));
        EXPECT_TRUE(reader->AtEnd());
        reader->Rewind();
        Nvr::ByteBuffer buffer;
        EXPECT_FALSE(reader->ReadBytesInto(buffer, 2000000000)) << "fewer bytes are a success";
        EXPECT_EQ(buffer.View(), "abcde");
        EXPECT_EQ(buffer.Capacity(), 1000) << "memory for what is there only";
        EXPECT_TRUE(reader->ReadBytesInto(buffer, 1));
        EXPECT_EQ(reader->ReadByte(), -1);
    }
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
    EXPECT_TRUE(stream.Good());
    EXPECT_EQ(stream.Get(), 'r');
    std::istringstream text("A {} behind");
    Nvr::CInStream textStream(text);
    const std::unique_ptr<TreeNode> textRead(TreeNode::LoadFromStream(textStream));
    EXPECT_EQ(textStream.Tell(), 4);
}

TEST_F(TreeNodeReaderTest, StopsAtALabel) {
    const auto tree = LoadAsString("R {A {X {P}} B {X \"1\" {Q \"2\"} X \"3\"} C \"\" D \"4\"}");
    struct Case {
        bool IsBinary;
        const char* Label;
        int Mode;
        const char* Expected;
        const char* Why;
    };
    const std::string whole = Outline(tree.get());
    const std::string all = "all: " + whole;
    const std::string root = "node: " + whole;
    for (const Case& c :
         {Case{false, "X", 0, "value: 1", "in text the first X that has a value"},
          Case{true, "X", 0, "value: ", "in the binary form the first X"},
          Case{false, "X", 1, "node: X(P)", "the first X"}, Case{true, "X", 1, "node: X(P)", "the first X"},
          Case{false, "D", 0, "value: 4", "a leaf"}, Case{true, "D", 0, "value: 4", "a leaf"},
          Case{false, "D", 1, all.c_str(), "in text a leaf has no list"},
          Case{true, "D", 1, "node: D=|4|", "a leaf"},
          Case{false, "R", 0, all.c_str(), "the root has no value"},
          Case{true, "R", 0, "value: ", "the root"}, Case{false, "R", 1, root.c_str(), "the root itself"},
          Case{true, "R", 1, root.c_str(), "the root itself"},
          Case{false, "x", 0, all.c_str(), "no such label"}, Case{true, "x", 1, all.c_str(), "no such label"},
          Case{true, "", 1, all.c_str(), "an empty label stops at nothing"}})
        EXPECT_EQ(ReadUntil(*tree, c.IsBinary, c.Label, c.Mode), c.Expected) << c.Label << c.Mode << c.Why;
    EXPECT_TRUE(TakeReports().empty());
    // What stands behind the label is not looked at.
    EXPECT_EQ(ReadUntil("R {X \"1\" @", "X", 0), "value: 1");
    EXPECT_EQ(ReadUntil("R {X {Y} @", "X", 1), "node: X(Y)");
    EXPECT_EQ(ReadUntil("R {X {Y \"z\" @", "X", 1), "node: X(Y=|z|)");
    EXPECT_EQ(ReadUntil("R {Y @", "X", 1), "all: null");
}
