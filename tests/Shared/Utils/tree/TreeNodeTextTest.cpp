#include "tests/Shared/Utils/tree/StoredTree.h"

using Nvr::String;
using Nvr::TreeNode;

namespace {

class TreeNodeTextTest : public TreeTest {};

using Reports = std::vector<std::string>;

const std::string kFailed = "Could not read treenode";

} // namespace

TEST_F(TreeNodeTextTest, DocumentsFromMemory) {
    struct Case {
        std::string Text;
        const char* Expected;
        const char* Why;
    };
    const Case cases[] = {
        {"A", "A", "a label alone"},
        {"\"a b\"", "=|a b|", "a text alone"},
        {"{}", "", "a list alone"},
        {"A \"x\" {B C \"y\" {\"z\"} {D}}", "A=|x|(B,C=|y|(=|z|),(D))", "all shapes of a node"},
        {"A\"x\"{B\"y\"}", "A=|x|(B=|y|)", "no white space is needed"},
        {"A B", "A", "behind the node nothing is read"},
        {"A \"x\" @", "null", "but the token behind it is"},
        {"A {} @", "A", "a right brace needs no look ahead"},
        {"A \"x\" \"y\"", "A=|x|", "a second text is another node"},
        {"A {\"x\" \"y\" B}", "A(=|x|,=|y|,B)", "texts without labels"},
        {"A {B {} {} C}", "A(B,,C)", "a list without a label"},
        {"\t\v\f \r\nA\r\n{\r\n\tB \"c\"\r\n}\r\n", "A(B=|c|)", "all white space"},
        {"-./\\_~az09AZ", "-./\\_~az09AZ", "all kinds of label characters"},
        {"A \"say \"\"x\"\"\"{B}", "A=|say \"x\"|(B)", "doubled quotes"},
        {"A \"\"\"\"{B}", "A=|\"|(B)", "a quote alone"},
        {"A \"\"{B}", "A(B)", "an empty text"},
        {"A \"l1\r\nl2\tx\" B", "A=|l1\r\nl2\tx|", "line ends inside a text"},
        {"A \"x{}@\x80\xFE\"", "A=|x{}@\x80\xFE|", "anything inside a text"},
        {"A {B", "A(B)", "a list cut off behind a label"},
        {"A {B {C \"x", "A(B(C=|x|))", "a text cut off"},
        {"A {B \"x\"", "A(B=|x|)", "a closing quote as the last byte"},
        {"A \"x\"", "A=|x|", "the same at the root"},
        {"A {B \"", "A(B)", "an opening quote as the last byte"},
        {"A \xFF B", "A", "an end mark"},
        {"\xFF", "", "an end mark alone"},
        {"", "null", "no bytes: the two missing ones count as 0"},
        {" ", "", "a blank is an empty document"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Outline(LoadBytes(c.Text).get()), c.Expected) << c.Why;
        EXPECT_EQ(Outline(LoadAsBuffer(c.Text).get()), c.Expected) << c.Why;
        if (!c.Text.empty()) {
            EXPECT_EQ(Outline(LoadAsString(c.Text).get()), c.Expected) << c.Why;
            for (const bool bigEndian : {false, true}) {
                if (c.Text.find('\x80') != std::string::npos)
                    continue;
                const std::string bytes = (bigEndian ? "\xFE\xFF" : "\xFF\xFE") + AsUtf16(c.Text, bigEndian);
                const auto tree = LoadBytes(bytes);
                EXPECT_EQ(Outline(tree.get()), c.Expected) << c.Why << bigEndian;
                EXPECT_TRUE(tree == nullptr || (tree->WasUnicode && !tree->WasBinary));
            }
        }
    }
}

TEST_F(TreeNodeTextTest, AStreamThatEndsInAListIsAnError) {
    struct Case {
        const char* Text;
        const char* Expected;
        const char* Why;
    };
    for (const Case& c :
         {Case{"A {B}", "A(B)", "whole"}, Case{"A {B}\r\n", "A(B)", "with a line end"},
          Case{"A", "A", "no list is open behind a label"}, Case{"A \"x\"\r\n", "A=|x|", "behind a text"},
          Case{"A {B", "null", "behind a label"}, Case{"A {B ", "null", "behind white space"},
          Case{"A {B \"c\"", "null", "behind a text"}, Case{"A {B \"c", "A(B=|c|)", "in a text"},
          Case{"A {", "null", "behind a brace"}}) {
        const bool fails = std::string_view(c.Expected) == "null";
        EXPECT_EQ(Outline(LoadAsStream(c.Text).get()), c.Expected) << c.Why;
        const Reports expected{"Expected ~ _ or alpha numeric character at line 0 - current text ", kFailed};
        EXPECT_EQ(TakeReports(), fails ? expected : Reports()) << c.Why;
    }
}

TEST_F(TreeNodeTextTest, ErrorsNameTheirPlace) {
    struct Case {
        std::string Text;
        const char* Report;
        const char* Why;
    };
    const Case cases[] = {
        {"}",
         "Unexpected right brace parsing sublist with no label or text - no parent node at line 0 - current "
         "text }",
         "alone"},
        {"A }", "Unexpected right brace parsing after label - no parent node at line 0 - current text }",
         "label"},
        {"A \"x\" }",
         "Unexpected right brace parsing text after label - no parent node at line 0 - current text }",
         "label and text"},
        {"\"x\" }",
         "Unexpected right brace parsing text with no label - no parent node at line 0 - current text }",
         "text"},
        {"A {B \xFF", "Expected right brace parsing sub-list at line 0 - current text ",
         "end mark in a list"},
        {"A \"xyz\xFF\"", "Unexpected EOF in text string at line 0 - current text xyz", "end mark in a text"},
        {"@", "Expected ~ _ or alpha numeric character at line 0 - current text ", "first line"},
        {"A {\nB\r\nC\rD\r\r@", "Expected ~ _ or alpha numeric character at line 5 - current text ",
         "LF, CR LF, and what follows a CR"},
        {"A {B \"1\n2\n3\" @", "Expected ~ _ or alpha numeric character at line 0 - current text ",
         "lines in a text do not count"},
        {"A {B \x80", "Expected ~ _ or alpha numeric character at line 0 - current text ", "upper half"},
        {std::string("A {\0", 4), "Expected ~ _ or alpha numeric character at line 0 - current text ",
         "zero"},
        {"A \"" + std::string(60, 'x') + "\xFF",
         "Unexpected EOF in text string at line 0 - current text "
         "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx",
         "50 characters of the token"},
        {"A {" + std::string(65536 + 3, '\n') + "@",
         "Expected ~ _ or alpha numeric character at line 3 - current text ", "lines are counted in 16 bits"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(LoadBytes(c.Text), nullptr) << c.Why;
        EXPECT_EQ(TakeReports(), (Reports{c.Report, kFailed})) << c.Why;
    }
    EXPECT_EQ(LoadAsStream("\nA {\n@", "f.txt"), nullptr);
    EXPECT_EQ(
        TakeReports(),
        (Reports{"Expected ~ _ or alpha numeric character in file f.txt line 2 - current text ", kFailed}));
}

TEST_F(TreeNodeTextTest, BytesOutsideTexts) {
    for (int byte = 1; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const bool isLabel = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                             (byte >= 'a' && byte <= 'z') ||
                             std::string_view("-./\\_~").find(character) != std::string_view::npos;
        const bool isSpace = byte == ' ' || (byte >= 9 && byte <= 13);
        if (std::string_view("\"{}\xFF").find(character) != std::string_view::npos)
            continue;
        const std::string text = std::string("L") + character + "R \"v\" {}";
        const std::string expected = isLabel ? text.substr(0, 3) + "=|v|" : isSpace ? "L" : "null";
        EXPECT_EQ(Outline(LoadBytes(text).get()), expected) << byte;
    }
}

TEST_F(TreeNodeTextTest, Utf16IsConvertedToTheSystemCodePage) {
    struct Case {
        const char* Units;
        const char* Expected;
        const char* Why;
    };
    for (const Case& c :
         {Case{"00E9", "\xE9", "Latin"}, Case{"20AC", "\x80", "euro"}, Case{"2013", "\x96", "dash"},
          Case{"03A9", "?", "not in the page"}, Case{"D83C DFB8", "??", "a pair of surrogates"},
          Case{"000D 000A", "\r\n", "line ends stay"}}) {
        const auto tree = LoadBytes(Bytes("FE FF 00'A' 00 22 " + std::string(c.Units) + " 00 22"));
        EXPECT_EQ(tree == nullptr ? "null" : tree->GetValue().CStr(), std::string(c.Expected)) << c.Why;
    }
    // The unit of the end mark's byte ends a text here too.
    EXPECT_EQ(LoadBytes(Bytes("FE FF 00'A' 00 22 00 FF 00 22")), nullptr);
    // Half a character has a 0 for the other half.
    EXPECT_EQ(Outline(LoadBytes(Bytes("FF FE 'A' 00 'B'")).get()), "AB");
    EXPECT_EQ(Outline(LoadBytes(Bytes("FE FF")).get()), "");
    // It is looked at once, also where it ends a label.
    EXPECT_EQ(Outline(LoadBytes(Bytes("FF FE 'A' 00 ' '")).get()), "A");
    EXPECT_EQ(Outline(LoadBytes(Bytes("FF FE 'A' 00 '{' 00 'B' 00 '}'")).get()), "A(B)");
    EXPECT_EQ(Outline(LoadAsStream(Bytes("FF FE 'A' 00 '{' 00 'B' 00 '}'")).get()), "A(B)");
}

TEST_F(TreeNodeTextTest, IsWrittenALineANode) {
    const auto tree = LoadAsString("A \"say \"\"x\"\"\" {B {} C \"y\" {D} \"z\" {{}}}");
    const std::string common =
        "{\r\n\tB\r\n\tC \"y\"\r\n\t{\r\n\t\tD\r\n\t}\r\n\t \"z\"\r\n\t{\r\n\t\t\r\n\t}\r\n}\r\n";
    EXPECT_EQ(tree->ToText(), String("A \"say \"\"x\"\"\"\r\n" + common));
    EXPECT_EQ(Written(*tree, false), "A\"say \"\"x\"\"\"\r\n" + common);
    EXPECT_EQ(Written(TreeNode("L", "v"), false, true, 1, 2), "\t\tL \"v\"\r\n");
    EXPECT_EQ(Written(TreeNode("L"), false, false, 0, -3), "L\r\n");
    // A root without label and value, as in an options file.
    TreeNode root;
    root.AddChild(new TreeNode("RhythmLevel", 1));
    EXPECT_EQ(root.ToText(), "\r\n{\r\n\tRhythmLevel \"1\"\r\n}\r\n");
    EXPECT_TRUE(LoadAsStream(Written(root, false))->IsSameTree(root));
}

TEST_F(TreeNodeTextTest, EveryValueSurvives) {
    TreeNode root("R");
    for (const char* const value :
         {"\"", "\"\"", "a\"b", "\"a", "a\"", "{", "}", "a\r\nb", "\t", " ", "\n\"\n"})
        root.AddChild(new TreeNode("V", value));
    std::string upper;
    for (int byte = 0x80; byte < 0xFF; ++byte)
        upper += static_cast<char>(byte);
    root.AddChild(new TreeNode("V", String(upper)));
    EXPECT_TRUE(LoadAsString(std::string(root.ToText().View()))->IsSameTree(root));
    EXPECT_TRUE(LoadAsStream(Written(root, false))->IsSameTree(root));
}
