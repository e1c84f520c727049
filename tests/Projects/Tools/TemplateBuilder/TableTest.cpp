#include "Projects/Tools/TemplateBuilder/Table.h"

#include "Projects/Tools/TemplateBuilder/BuildError.h"

#include <gtest/gtest.h>

#include <string>

using TemplateBuilder::BuildError;
using TemplateBuilder::SplitList;
using TemplateBuilder::Table;

TEST(Table, HoldsTheFieldsOfItsRowsAndTheirLines) {
    const Table table("t.txt", "# remark\n\n id | name |  y \n\nflute| Flute  (in C) |\r\n  |b|-3");
    ASSERT_EQ(table.RowCount(), 2U);
    EXPECT_EQ(*table.Field(0, "id"), "flute");
    EXPECT_EQ(*table.Field(0, "name"), "Flute  (in C)") << "blanks inside a field stay";
    EXPECT_EQ(*table.Field(0, "y"), "") << "an empty field at the end of a line";
    EXPECT_EQ(*table.Field(1, "id"), "");
    EXPECT_EQ(*table.Field(1, "y"), "-3") << "the last line needs no line end";
    EXPECT_EQ(table.Field(0, "Name"), nullptr) << "columns are told apart by case";
    EXPECT_EQ(table.LineOf(0), 5);
    EXPECT_EQ(table.LineOf(1), 6);
}

TEST(Table, FindsRowsByTheirFirstField) {
    const Table table("t.txt", "id|v\na|1\nb|2\n");
    EXPECT_EQ(table.FindRow("b"), 1U);
    EXPECT_EQ(table.FindRow("c"), table.RowCount());
    const Table twice("t.txt", "id|v\na|1\nb|2\na|3\n");
    EXPECT_THROW(twice.FindRow("b"), BuildError) << "a repeated key would be looked up at random";
}

TEST(Table, SaysWhatIsWrongWithIt) {
    const struct {
        const char *Text, *Sentence;
    } rows[] = {
        {"", "t.txt: the table has no line that names its columns"},
        {"# only\n# remarks\n", "t.txt: the table has no line that names its columns"},
        {"id|name\nflute\n", "t.txt:2: the row has 1 fields where the table has 2 columns"},
        {"id|name\nflute|Flute|\n", "t.txt:2: the row has 3 fields where the table has 2 columns"},
        {"#\nid||y\n", "t.txt:2: column 2 has no name"},
        {"id|name|id\n", "t.txt:1: two columns are named 'id'"},
        {"id\nfl\x01ute\n", "t.txt:2: the line holds a control character"},
    };
    for (const auto& row : rows) {
        try {
            const Table table("t.txt", row.Text);
            ADD_FAILURE() << "read without a word: " << row.Text;
        } catch (const BuildError& failure) {
            EXPECT_STREQ(failure.what(), row.Sentence);
        }
    }
}

TEST(SplitList, KeepsEmptyEntriesBetweenSeparators) {
    EXPECT_TRUE(SplitList("  ", ',').empty());
    EXPECT_EQ(SplitList("80, 90,100", ','), (std::vector<std::string>{"80", "90", "100"}));
    EXPECT_EQ(SplitList("a,,b,", ','), (std::vector<std::string>{"a", "", "b", ""}));
}
