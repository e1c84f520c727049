#include "tests/Projects/Fretline/template/LoadedTemplate.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

namespace {

constexpr const char* kTabCategory = "2";

struct TabRow {
    /// Behind "stafftype.tab.".
    const char* Id;
    const char* Pitches;
    bool HasRhythms;
};

/// In list order, which decides between rows with the same strings.
constexpr TabRow kTabRows[] = {
    {"3.balalaika.alto", "104,128,138", false},
    {"3.balalaika.bass", "80,114,124", false},
    {"3.balalaika.contrabass", "56,90,100", false},
    {"3.balalaika.prima", "128,152,162", false},
    {"3.balalaika.second", "114,138,148", false},
    {"3.dulcimer.DAA", "124,114,114", false},
    {"3.dulcimer.DAD", "124,114,100", false},
    {"3.tres.adf", "108,124,138", false},
    {"3.tres.gbe", "104,118,134", false},
    {"3.tres.gce", "104,120,134", false},
    {"4.bass.standard", "56,66,76,86", false},
    {"4.cavaquinho", "124,134,142,148", false},
    {"4.colombia.adfb", "114,124,132,142", false},
    {"4.colombia.dgbe", "124,134,142,152", false},
    {"4.cuatro.venezuela", "114,124,132,142", false},
    {"4.mandolin.standard", "110,124,138,152", false},
    {"4.rhythms.bass.standard", "56,66,76,86", true},
    {"4.tiple.peru", "114,128,142,156", false},
    {"4.ukulele", "134,120,128,138", true},
    {"5.bajo", "72,80,90,100,110", false},
    {"5.banjo.aDADE", "138,100,114,124,128", true},
    {"5.banjo.aEADE", "138,104,114,124,128", true},
    {"5.banjo.gCGBD", "134,96,110,118,124", true},
    {"5.banjo.gCGCD", "134,96,110,120,124", true},
    {"5.banjo.gDF#AD", "134,100,108,114,124", true},
    {"5.banjo.gDGBD", "134,100,110,118,124", true},
    {"5.banjo.gDGCD", "134,100,110,120,124", true},
    {"5.banjo.tenor", "96,110,124,138", true},
    {"5.bass.standard", "46,56,66,76,86", false},
    {"5.bordonua", "104,114,124,134,144", false},
    {"5.charango", "110,120,128,138,152", false},
    {"5.cuatro.puerto.rico", "118,128,138,148,158", false},
    {"5.guitarron", "100,114,124,132,142", false},
    {"5.tiple.cuba", "90,100,110,118,128", false},
    {"5.tiple.santo.domingo", "96,106,116,124,134", false},
    {"5.vihuela", "114,124,134,142,152", false},
    {"6.bajo", "80,90,100,110,120,130", false},
    {"4.bajo", "80,90,100,110", false},
    {"6.bandola", "108,118,128,138,148,158", false},
    {"6.bandurria", "112,122,132,142,152,162", false},
    {"6.bass.standard", "46,56,66,76,86,96", false},
    {"6.dobro.open.A", "86,98,104,114,122,128", false},
    {"6.dobro.open.B11", "74,102,108,114,122,128", false},
    {"6.dobro.open.C#m", "80,94,104,112,122,128", false},
    {"6.dobro.open.G", "86,94,100,110,118,124", false},
    {"6.gamba", "76,86,96,104,114,124", false},
    {"6.guitar.Bb.slack.key.mauna.loa", "82,92,100,106,110,124", false},
    {"6.guitar.C.slack.key.mauna.loa", "72,86,104,110,114,128", false},
    {"6.guitar.CGDGBD.slack.key.wahine", "72,86,100,110,118,124", false},
    {"6.guitar.CGDGBE.slack.key.wahine", "72,86,100,110,118,128", false},
    {"6.guitar.DADGAD", "76,90,100,110,114,124", false},
    {"6.guitar.DGDF#BD.slack.key.wahine", "76,86,100,108,118,124", false},
    {"6.guitar.G.slack.key.mauna.loa", "76,86,100,100,110,124", false},
    {"6.guitar.G.slack.key.taro.patch", "76,86,100,110,118,124", false},
    {"6.guitar.GCDGBE.slack.key.wahine", "86,96,100,110,118,128", false},
    {"6.guitar.alternative.hawaiian", "92,104,110,114,120,128", false},
    {"6.guitar.double.D", "76,90,100,110,118,124", false},
    {"6.guitar.dropped.D", "76,90,100,110,118,128", false},
    {"6.guitar.modal.D", "76,90,100,110,114,124", false},
    {"6.guitar.nashville", "80,90,124,134,142,152", false},
    {"6.guitar.open.A", "80,90,98,104,114,128", false},
    {"6.guitar.open.C", "72,86,96,110,120,128", false},
    {"6.guitar.open.D", "76,90,100,108,114,124", false},
    {"6.guitar.open.Dm.cross-note", "76,90,100,106,114,124", false},
    {"6.guitar.open.E", "80,94,104,112,118,128", false},
    {"6.guitar.open.G", "76,86,100,110,118,124", false},
    {"6.guitar.pedal.steel", "70,76,80,84,88,94,102,104,108,112", false},
    {"6.guitar.standard", "80,90,100,110,118,128", false},
    {"6.guitar.standard.hawaiian", "96,104,110,114,120,128", false},
    {"6.guitarra.coimbra", "96,110,114,124,134,138", false},
    {"6.guitarra.lisboa", "100,114,118,128,138,142", false},
    {"6.laud", "88,98,108,118,128,138", false},
    {"6.lute.bass.D.french.english", "76,86,96,104,114,124", true},
    {"6.lute.bass.D.italian", "124,114,104,96,86,76", true},
    {"6.lute.bass.D.spanish", "76,86,96,104,114,124", true},
    {"6.lute.tenor.A.french.english", "90,100,110,118,128,138", true},
    {"6.lute.tenor.A.italian", "138,128,118,110,100,90", true},
    {"6.lute.tenor.A.spanish", "90,100,110,118,128,138", true},
    {"6.lute.tenor.G.french.english", "86,96,106,114,124,134", true},
    {"6.lute.tenor.G.italian", "134,124,114,106,96,86", true},
    {"6.lute.tenor.G.spanish", "86,96,106,114,124,134", true},
    {"6.lute.treble.D.french.english", "100,110,120,128,138,148", true},
    {"6.lute.treble.D.italian", "148,138,128,120,110,100", true},
    {"6.lute.treble.D.spanish", "100,110,120,128,138,148", true},
    {"6.oud", "76,86,94,104,114,124", false},
    {"6.requinto", "86,96,106,118,124,134", false},
    {"6.rhythms.guitar.standard", "80,90,100,110,118,128", true},
    {"6.tiple.argentina", "86,90,100,110,118,128", false},
    {"6.tiple.uruguay", "94,114,128,148,132,166", false},
    {"7.bandolon", "82,106,118,128,138,148,158", false},
    {"7.guitar.low.A", "66,80,90,100,110,118,128", false},
    {"7.guitar.low.B", "70,80,90,100,110,118,128", false},
    {"7.sitar.sunada", "106,96,86,72,110,120,144", false},
    {"7.sitar.tarang", "106,86,72,110,120,144", false},
    {"8.dobro.A6", "84,90,98,104,108,114,120,128", false},
    {"8.dobro.C#m7", "94,100,104,112,118,122,128,136", false},
    {"8.dobro.C6", "86,90,96,104,110,114,120,128", false},
    {"8.dobro.C6+A7", "90,96,98,104,110,114,120,128", false},
    {"8.dobro.C6+highG", "90,96,104,110,114,120,128,134", false},
    {"8.dobro.E13.hawaiian", "80,88,94,100,104,112,122,128", false},
    {"8.dobro.E13.western", "80,88,100,108,112,118,122,128", false},
    {"8.guitar.alternative.hawaiian", "68,80,96,104,110,114,120,128", false},
    {"8.guitar.standard.hawaiian", "72,80,96,104,110,114,120,128", false},
    {"8.guitarra.portuguesa", "96,100,104,114,124,134,142,152", false},
};

std::vector<const Nvr::TreeNode*> RowsOfCategory(const Nvr::TreeNode& root, std::string_view category) {
    std::vector<const Nvr::TreeNode*> rows;
    const Nvr::TreeNode* const list = FindPath(root, {"Music", "StaveTypes"});
    for (int i = 0; list != nullptr && i < list->GetChildCount(); ++i) {
        if (ValueOf(*list->GetChild(i), "Category") == category)
            rows.push_back(list->GetChild(i));
    }
    return rows;
}

/// The children of the row of standard guitar tuning, lists as their values.
const std::vector<std::pair<std::string, std::string>>& StandardGuitar() {
    static const std::vector<std::pair<std::string, std::string>> kChildren = {
        {"Type", "StaveType"},
        {"Name", "Guitar tab  (standard tuning, no rhythms)"},
        {"Id", "stafftype.tab.6.guitar.standard"},
        {"Compulsory", "true"},
        {"Category", "2"},
        {"AsNumbers", "true"},
        {"NotesOnSpaces", "false"},
        {"ShowRhythms", "false"},
        {"Hiding", "false"},
        {"Default", "false"},
        {"StaveLines", "6"},
        {"StaveLineSeparation", "48"},
        {"BarlineDy", "120"},
        {"LegerLines", "true"},
        {"KeySignatures", "false"},
        {"InitialClef", "true"},
        {"Bracket", "true"},
        {"InitBarline", "true"},
        {"BarRests", "true"},
        {"Barlines", "true"},
        {"RestY0", "24"},
        {"RestY1", "24"},
        {"RestY2", "24"},
        {"RestY3", "24"},
        {"RestY4", "24"},
        {"RestY5", "24"},
        {"RestY6", "-24"},
        {"RestY7", "24"},
        {"RestY8", "24"},
        {"RestY9", "24"},
        {"TopRestY0", "104"},
        {"TopRestY1", "104"},
        {"TopRestY2", "72"},
        {"TopRestY3", "72"},
        {"TopRestY4", "40"},
        {"TopRestY5", "56"},
        {"TopRestY6", "24"},
        {"TopRestY7", "72"},
        {"TopRestY8", "72"},
        {"TopRestY9", "0"},
        {"BottomRestY0", "-104"},
        {"BottomRestY1", "-72"},
        {"BottomRestY2", "-72"},
        {"BottomRestY3", "-72"},
        {"BottomRestY4", "-72"},
        {"BottomRestY5", "-72"},
        {"BottomRestY6", "-72"},
        {"BottomRestY7", "-24"},
        {"BottomRestY8", "-24"},
        {"BottomRestY9", "0"},
        {"Pitches", "80,90,100,110,118,128"},
        {"StemsUp", "false"},
        {"ArticulationsAbove", "true"},
        {"LevelBeams", "true"},
        {"StemsAboveOrBelowStave", "false"},
        {"WhiteBehindTabNotes", "false"},
        {"NumBeamsToAllowOnExtendedStem", "3"},
        {"ExtraGapToAllowOnExtendedStem", "14"},
        {"ClipExtendedStemsInsideExtraGap", "true"},
        {"AllVoice1StemsUp", "true"},
        {"AllVoice1StemsDown", "false"},
        {"DrawStemsBetweenTabChordNotes", "true"},
        {"Diats", "23,26,29,32,34,37"},
        {"BarlineBottomDy", "120"},
    };
    return kChildren;
}

/// The children of a row in the same form.
std::vector<std::pair<std::string, std::string>> ChildrenOf(const Nvr::TreeNode& row) {
    std::vector<std::pair<std::string, std::string>> children;
    for (int i = 0; i < row.GetChildCount(); ++i) {
        const Nvr::TreeNode& child = *row.GetChild(i);
        children.emplace_back(child.GetLabel().View(), child.GetChildCount() == 0
                                                           ? std::string(child.GetValue().View())
                                                           : ValuesOf(child));
    }
    return children;
}

/// The name of the diatonic step that a pitch is played on, counted from C 0.
int StepOf(int chrom2) {
    constexpr int kStepOfKey[] = {0, 0, 1, 2, 2, 3, 3, 4, 4, 5, 6, 6};
    return chrom2 / 24 * 7 + kStepOfKey[chrom2 / 2 % 12];
}

} // namespace

TEST(TemplateStaveTypes, TabRowsStandInTheirOrder) {
    const auto root = LoadTemplate();
    ASSERT_NE(root, nullptr);
    const std::vector<const Nvr::TreeNode*> rows = RowsOfCategory(*root, kTabCategory);
    ASSERT_EQ(rows.size(), std::size(kTabRows));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(ValueOf(*rows[i], "Id"), std::string("stafftype.tab.") + kTabRows[i].Id);
        EXPECT_EQ(ValuesOf(*rows[i]->FindChild("Pitches")), kTabRows[i].Pitches) << kTabRows[i].Id;
        EXPECT_EQ(ValueOf(*rows[i], "ShowRhythms"), kTabRows[i].HasRhythms ? "true" : "false")
            << kTabRows[i].Id;
    }
}

TEST(TemplateStaveTypes, TheStandardGuitarHasItsChildren) {
    const auto root = LoadTemplate();
    ASSERT_NE(root, nullptr);
    const Nvr::TreeNode* const list = FindPath(*root, {"Music", "StaveTypes"});
    ASSERT_NE(list, nullptr);
    const Nvr::TreeNode* const plain = FindRow(*list, "Id", "stafftype.tab.6.guitar.standard");
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(ChildrenOf(*plain), StandardGuitar());

    const Nvr::TreeNode* const withRhythms = FindRow(*list, "Id", "stafftype.tab.6.rhythms.guitar.standard");
    ASSERT_NE(withRhythms, nullptr);
    std::map<std::string, std::string> differences;
    const auto children = ChildrenOf(*withRhythms);
    ASSERT_EQ(children.size(), StandardGuitar().size());
    for (std::size_t i = 0; i < children.size(); ++i) {
        EXPECT_EQ(children[i].first, StandardGuitar()[i].first);
        if (children[i] != StandardGuitar()[i])
            differences.insert(children[i]);
    }
    EXPECT_EQ(differences,
              (std::map<std::string, std::string>{{"Name", "Guitar tab  (standard tuning, with rhythms)"},
                                                  {"Id", "stafftype.tab.6.rhythms.guitar.standard"},
                                                  {"ShowRhythms", "true"},
                                                  {"StemsAboveOrBelowStave", "true"},
                                                  {"WhiteBehindTabNotes", "true"}}));
}

TEST(TemplateStaveTypes, TabRowsFollowFromTheirStrings) {
    const auto root = LoadTemplate();
    ASSERT_NE(root, nullptr);
    for (const Nvr::TreeNode* row : RowsOfCategory(*root, kTabCategory)) {
        const std::string id = ValueOf(*row, "Id");
        const Nvr::TreeNode& pitches = *row->FindChild("Pitches");
        const Nvr::TreeNode& steps = *row->FindChild("Diats");
        const int strings = pitches.GetChildCount();
        const int halfHeight = (strings - 1) * row->GetChildValue("StaveLineSeparation", 0) / 2;
        EXPECT_EQ(row->GetChildCount(), 64) << id;
        EXPECT_EQ(row->GetChildValue("StaveLines", 0), strings) << id;
        EXPECT_EQ(row->GetChildValue("BarlineDy", 0), halfHeight) << id;
        EXPECT_EQ(row->GetChildValue("BarlineBottomDy", 0), halfHeight) << id;
        ASSERT_EQ(steps.GetChildCount(), strings) << id;
        for (int i = 0; i < strings; ++i)
            EXPECT_EQ(steps.GetChildIntAtIndex(i), StepOf(pitches.GetChildIntAtIndex(i))) << id;
    }
}

TEST(TemplateStaveTypes, ComeInThreeCategories) {
    const auto root = LoadTemplate();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(RowsOfCategory(*root, "0").size(), 11U);
    EXPECT_EQ(RowsOfCategory(*root, "1").size(), 121U);
    EXPECT_EQ(RowsOfCategory(*root, kTabCategory).size(), 104U);
    for (const char* category : {"0", "1"}) {
        for (const Nvr::TreeNode* row : RowsOfCategory(*root, category)) {
            std::vector<std::string> expected;
            for (const auto& child : StandardGuitar())
                expected.push_back(child.first);
            std::vector<std::string> labels = LabelsOf(*row);
            ASSERT_GE(labels.size(), expected.size());
            labels.resize(expected.size());
            EXPECT_EQ(labels, expected) << ValueOf(*row, "Id");
        }
    }
}
