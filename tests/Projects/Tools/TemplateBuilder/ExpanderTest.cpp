#include "tests/Projects/Tools/TemplateBuilder/TemplateFolder.h"

#include "Projects/Tools/TemplateBuilder/TextTree.h"

#include <gtest/gtest.h>

TEST(Expander, MakesRecordsOfRows) {
    TemplateFolder folder;
    folder.Write("template.txt", "Root \"1\" { Tabs { ~rows \"tabs tab\" } Empty }");
    folder.Write("tables/tabs.txt", "id|strings|sharp\nbass|56,66|yes\nlute||\n");
    folder.Write("schemas/tab.txt",
                 "{ ~note \"remark\" Id \"tab.{id}\" Sharp \"{yes sharp}\" Place \"{row}\" "
                 "Pitches { ~each \"strings\" { \"{item}\" } } }");
    EXPECT_EQ(folder.Built(),
              "Root \"1\"\n{\nTabs\n{\n"
              "\n{\nId \"tab.bass\"\nSharp \"true\"\nPlace \"0\"\nPitches\n{\n \"56\"\n \"66\"\n}\n}\n"
              "\n{\nId \"tab.lute\"\nSharp \"false\"\nPlace \"1\"\nPitches\n}\n"
              "}\nEmpty\n}\n");
}

TEST(Expander, ObeysEachDirective) {
    TemplateFolder folder;
    folder.Write("tables/one.txt", "id|v|list|none\na|7|x:1,y|\n");
    folder.Write("tables/glyphs.txt", "id|name\nsegno|Segno\ncoda|Coda\n");
    folder.Write("sections/more.txt", "{ More \"{v}\" }");
    folder.Write("template.txt", "Root { ~rows \"one\" }");
    const struct {
        const char *Schema, *Result, *Why;
    } rows[] = {
        {"R { ~if \"v\" { A } ~if \"none\" { B } }", "R\n{\nA\n}\n", "a field that is not empty"},
        {"R { ~unless \"v\" { A } ~unless \"none\" { B } }", "R\n{\nB\n}\n", "the other way round"},
        {"R { ~if \"v=7\" { A } ~if \"v=8\" { B } ~unless \"v = 8\" { C } }", "R\n{\nA\nC\n}\n",
         "a field of that text"},
        {"R \"{none?5}{v?5}\"", "R \"57\"\n", "text in place of an empty field"},
        {"R \"{{v} {v}\"", "R \"{v} 7\"\n", "a brace"},
        {"R { ~include \"sections/more\" }", "R\n{\nMore \"7\"\n}\n", "the file knows the names"},
        {"R { ~each \"list\" { N \"{index}{item.1}{item.2}{item.3}\" } }", "R\n{\nN \"0x1\"\nN \"1y\"\n}\n",
         "parts of entries, missing ones empty"},
        {"R { ~each \"none\" { N } }", "R\n", "no entries"},
        {"R { ~row \"glyphs coda\" { S \"{row} {name} {v}\" } T \"{row}\" }",
         "R\n{\nS \"1 Coda 7\"\nT \"0\"\n}\n", "the row looked up, and the one around it"},
        {"R \"{v}\" { ~part }", "R\n{\n__PartMapDefault \"7\"\n}\n", "a part map of a value"},
        {"R { A ~part \"overrides\" B }", "R\n{\n__PartMapDefault\n{\nA\nB\n}\nPartMapOverrides\n}\n",
         "a part map of a record"},
    };
    for (const auto& row : rows) {
        folder.Write("schemas/one.txt", row.Schema);
        EXPECT_EQ(folder.Built(), "Root\n{\n" + std::string(row.Result) + "}\n") << row.Why;
    }
}

TEST(Expander, SaysWhatIsWrongAndWhere) {
    const struct {
        const char *Template, *Schema, *Sentence;
    } rows[] = {
        {"R { ~rows \"two\" }", "{}", "template.txt: the file tables/two.txt cannot be read"},
        {"R { ~rows \"one two\" }", "{}", "template.txt: the file schemas/two.txt cannot be read"},
        {"R { ~rows \"\" }", "{}", "template.txt: ~rows wants a table and a schema"},
        {"R { ~rows \"one\" }", "{ A \"{size}\" }",
         "tables/one.txt:3: nothing is named 'size' here, by schemas/one.txt"},
        {"R { ~rows \"one\" }", "{ A \"{name\" }",
         "tables/one.txt:3: the reference in '{name' has no closing brace, by schemas/one.txt"},
        {"R { ~rows \"one\" }", "{ A \"{yes name}\" }",
         "tables/one.txt:3: '{yes name}' is no rule with values that suit it, by schemas/one.txt"},
        {"R { ~rows \"one\" }", "{ A \"{thrice name}\" }",
         "tables/one.txt:3: '{thrice name}' is no rule with values that suit it, by schemas/one.txt"},
        {"R { ~rows \"one\" }", "{ ~each \"list\" { A } }",
         "tables/one.txt:3: entry 2 of 'list' is empty, by schemas/one.txt"},
        {"R { ~rows \"one\" }", "{ ~row \"one {name}\" { A } }",
         "tables/one.txt:3: 'Flute' is not in tables/one.txt, by schemas/one.txt"},
        {"R { ~rows \"one\" }", "{ ~row \"keys a\" { A \"{size}\" } }",
         "tables/one.txt:3: nothing is named 'size' here, by schemas/one.txt"},
        {"R { ~row \"one\" { A } }", "{}", "template.txt: ~row wants a table and a key"},
        {"R { ~sometimes { A } }", "{}", "template.txt: there is no directive ~sometimes"},
        {"R { ~part \"always\" }", "{}", "template.txt: ~part knows no 'always'"},
        {"R { ~note \"x\" { A } }", "{}", "template.txt: the list after ~note \"x\" belongs to nothing"},
        {"R { ~include \"template\" }", "{}", "template.txt: the sources draw in each other without an end"},
        {"R { A", "{}", "template.txt:1: the brace that opens here is never closed"},
    };
    for (const auto& row : rows) {
        TemplateFolder folder;
        folder.Write("template.txt", row.Template);
        folder.Write("tables/one.txt", "# flutes\nid|name|list\nflute|Flute|a,\n");
        folder.Write("tables/keys.txt", "id\na\n");
        folder.Write("schemas/one.txt", row.Schema);
        EXPECT_EQ(folder.Failure(), row.Sentence);
    }
}

TEST(Expander, GivesTheSameTreeAgain) {
    TemplateFolder folder;
    folder.Write("template.txt", "R { ~rows \"one\" }");
    folder.Write("tables/one.txt", "id\nb\na\n");
    folder.Write("schemas/one.txt", "{ Id \"{id}\" }");
    TemplateBuilder::Expander expander(folder.Path() + "/");
    const std::unique_ptr<Nvr::TreeNode> first = expander.Build();
    const std::unique_ptr<Nvr::TreeNode> second = expander.Build();
    EXPECT_TRUE(first->IsSameTree(*second));
    EXPECT_EQ(first->GetChild(0)->GetChildValue("Id", Nvr::String()), "b") << "rows keep their order";
}
