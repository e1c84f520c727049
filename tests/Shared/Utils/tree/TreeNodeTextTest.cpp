#include "tests/Shared/Utils/tree/StoredTree.h"

using Nvr::String;
using Nvr::TreeNode;

namespace {

class TreeNodeTextTest : public TreeTest {};

using Reports = std::vector<std::string>;

const std::string kFailed = "Could not read treenode";

} // namespace

TEST_F(TreeNodeTextTest, DocumentsFromMemory) {
    const struct {
        std::string Text;
        const char *Expected, *Why;
    } rows[] = {
        {"\"a b\"", "=|a b|", "a text alone"},
        {"A \"x\" {B C \"y\" {\"z\"} {D}}", "A=|x|(B,C=|y|(=|z|),(D))", "all shapes of a node"},
        {"A\"x\"{B\"y\"}", "A=|x|(B=|y|)", "no white space is needed"},
        {"A \"x\" @", "null", "the token after the node is looked at"},
        {"A {} @", "A", "a right brace needs no look ahead"},
        {"A {\"x\" \"y\" B}", "A(=|x|,=|y|,B)", "texts without labels"},
        {"\t\v\f \r\nA\r\n{\r\n\tB \"c\"\r\n}\r\n", "A(B=|c|)", "all white space"},
        {"-./\\_~az09AZ", "-./\\_~az09AZ", "all kinds of label characters"},
        {"A \"say \"\"x\"\"\"{B}", "A=|say \"x\"|(B)", "doubled quotes"},
        {"A \"\"\"\"{B}", "A=|\"|(B)", "a quote alone"},
        {"A \"l1\r\nl2\tx\" B", "A=|l1\r\nl2\tx|", "line ends inside a text"},
        {"A \"x{}@\x80\xFE\"", "A=|x{}@\x80\xFE|", "anything inside a text"},
        {"A {B {C \"x", "A(B(C=|x|))", "a text cut off"},
        {"A {B \"x\"", "A(B=|x|)", "a closing quote as the last byte"},
        {"A {B \"", "A(B)", "an opening quote as the last byte"},
        {"A \xFF B", "A", "an end mark"},
        {"\xFF", "", "an end mark alone"},
        {"", "null", "no bytes: the two missing ones count as 0"},
        {" ", "", "a blank is an empty document"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Outline(LoadBytes(row.Text).get()), row.Expected) << row.Why;
        if (!row.Text.empty()) {
            EXPECT_EQ(Outline(LoadAsString(row.Text).get()), row.Expected) << row.Why;
            for (const bool bigEndian : {false, true}) {
                if (row.Text.find('\x80') != std::string::npos)
                    continue;
                const std::string bytes =
                    (bigEndian ? "\xFE\xFF" : "\xFF\xFE") + AsUtf16(row.Text, bigEndian);
                const auto tree = LoadBytes(bytes);
                EXPECT_EQ(Outline(tree.get()), row.Expected) << row.Why << bigEndian;
                EXPECT_TRUE(tree == nullptr || (tree->WasUnicode && !tree->WasBinary));
            }
        }
    }
}

TEST_F(TreeNodeTextTest, AStreamThatEndsInAListIsAnError) {
    const Reports expected{"Expected ~ _ or alpha numeric character at line 0 - current text ", kFailed};
    for (const char* const cut : {"A {", "A {B", "A {B ", "A {B \"c\""}) {
        EXPECT_EQ(LoadAsStream(cut), nullptr) << cut;
        EXPECT_EQ(TakeReports(), expected) << cut;
    }
    for (const char* const whole : {"A {B}", "A {B}\r\n", "A", "A \"x\"\r\n", "A {B \"c"})
        EXPECT_NE(LoadAsStream(whole), nullptr) << whole << ": no list is open, or a text is";
    EXPECT_TRUE(TakeReports().empty());
}

TEST_F(TreeNodeTextTest, ErrorsNameTheirPlace) {
    const char* const kLabel = "Expected ~ _ or alpha numeric character";
    const std::string brace = "Unexpected right brace parsing ";
    const struct {
        std::string Text, Report;
        int Line;
        std::string Token;
        const char* Why;
    } rows[] = {
        {"}", brace + "sublist with no label or text - no parent node", 0, "}", "alone"},
        {"A }", brace + "after label - no parent node", 0, "}", "label"},
        {"A \"x\" }", brace + "text after label - no parent node", 0, "}", "label and text"},
        {"\"x\" }", brace + "text with no label - no parent node", 0, "}", "text"},
        {"A {B \xFF", "Expected right brace parsing sub-list", 0, "", "end mark in a list"},
        {"A \"xyz\xFF\"", "Unexpected EOF in text string", 0, "xyz", "end mark in a text"},
        {"A \"" + std::string(60, 'x') + "\xFF", "Unexpected EOF in text string", 0, std::string(50, 'x'),
         "cut"},
        {"A {\nB\r\nC\rD\r\r@", kLabel, 5, "", "LF, CR LF, and what follows a CR"},
        {"A {B \"1\n2\n3\" @", kLabel, 0, "", "lines in a text do not count"},
        {std::string("A {\0", 4), kLabel, 0, "", "zero"},
        {"A {" + std::string(65536 + 3, '\n') + "@", kLabel, 3, "", "lines are counted in 16 bits"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(LoadBytes(row.Text), nullptr) << row.Why;
        const std::string place = " at line " + std::to_string(row.Line) + " - current text ";
        EXPECT_EQ(TakeReports(), (Reports{row.Report + place + row.Token, kFailed})) << row.Why;
    }
    // What a stream gives at its end is a character too, which after a CR counts a line.
    for (const auto& [text, line] : {std::pair("A {\r", 1), {"A {\n", 1}, {"A {\r\n", 1}, {"A {B\r\r", 2}}) {
        EXPECT_EQ(LoadAsStream(text), nullptr) << text;
        EXPECT_EQ(TakeReports().front(), kLabel + (" at line " + std::to_string(line)) + " - current text ")
            << text;
    }
    EXPECT_EQ(LoadAsStream("\nA {\n@", "f.txt"), nullptr);
    EXPECT_EQ(TakeReports().front(), kLabel + std::string(" in file f.txt line 2 - current text "));
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
    // A letter, the euro, a dash, one that is not in the page, a pair of surrogates; line ends stay.
    const auto tree = LoadBytes(Bytes("FE FF 00'A' 00 22 00E9 20AC 2013 03A9 D83C DFB8 000D 000A 00 22"));
    EXPECT_EQ(Outline(tree.get()), "A=|\xE9\x80\x96???\r\n|");
    EXPECT_TRUE(TakeReports().empty());
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
    EXPECT_TRUE(LoadAsString(std::string(root.ToText().View()))->IsSameTree(root));
    EXPECT_TRUE(LoadAsStream(Written(root, false))->IsSameTree(root));
}
