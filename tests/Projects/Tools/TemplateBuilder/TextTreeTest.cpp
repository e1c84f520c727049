#include "Projects/Tools/TemplateBuilder/TextTree.h"

#include "Projects/Tools/TemplateBuilder/BuildError.h"

#include <gtest/gtest.h>

#include <string>

using TemplateBuilder::BuildError;
using TemplateBuilder::ReadTextTree;

TEST(TextTree, ReadsWhatTheTextFormSays) {
    const auto tree =
        ReadTextTree("t.txt", "Root \"a \"\"b\"\" }\"\r\n{\r\n\t~note \"x\"\r\n\t{ Y }\r\n}\r\n");
    EXPECT_EQ(tree->GetValue(), "a \"b\" }") << "braces and quotes inside a text";
    ASSERT_EQ(tree->GetChildCount(), 1);
    EXPECT_EQ(tree->GetChild(0)->GetChildCount(), 1) << "a bare list belongs to the node before it";
    EXPECT_EQ(ReadTextTree("t.txt", "{ }")->GetLabel(), "");
}

TEST(TextTree, RefusesWhatAPersonMistyped) {
    std::string deep = "R";
    for (int i = 0; i <= TemplateBuilder::kDeepestNesting; ++i)
        deep += " {";
    const struct {
        std::string Text;
        const char* Sentence;
    } rows[] = {
        {"", "t.txt: the file holds no node"},
        {"R\n{\nA\n{\n}\n", "t.txt:2: the brace that opens here is never closed"},
        {"R {\n}\n}\n", "t.txt:3: a second node stands after the one that a file may hold"},
        {"\n}", "t.txt:2: the brace closes what nothing opened"},
        {"R { A }\nB", "t.txt:2: a second node stands after the one that a file may hold"},
        {"R {\nA \"b\n}\n", "t.txt:2: the quoted text that opens here is never closed"},
        {"R {\nA = b\n}\n", "t.txt:2: '=' may stand in a quoted text only"},
        {deep, "t.txt:1: lists are nested too deeply"},
    };
    for (const auto& row : rows) {
        try {
            ReadTextTree("t.txt", row.Text);
            ADD_FAILURE() << "read without a word: " << row.Text;
        } catch (const BuildError& failure) {
            EXPECT_STREQ(failure.what(), row.Sentence);
        }
    }
}
