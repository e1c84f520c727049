#include "tests/Projects/Fretline/template/LoadedTemplate.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

constexpr const char* kTabCategory = "2";

// In list order, which decides between rows with the same strings: the Id after "stafftype.tab.", the
// pitches, "*" when rhythms are shown.
constexpr const char* kTabRows =
    "3.balalaika.alto:104,128,138 3.balalaika.bass:80,114,124 3.balalaika.contrabass:56,90,100 "
    "3.balalaika.prima:128,152,162 3.balalaika.second:114,138,148 3.dulcimer.DAA:124,114,114 "
    "3.dulcimer.DAD:124,114,100 3.tres.adf:108,124,138 3.tres.gbe:104,118,134 3.tres.gce:104,120,134 "
    "4.bass.standard:56,66,76,86 4.cavaquinho:124,134,142,148 4.colombia.adfb:114,124,132,142 "
    "4.colombia.dgbe:124,134,142,152 4.cuatro.venezuela:114,124,132,142 "
    "4.mandolin.standard:110,124,138,152 4.rhythms.bass.standard:56,66,76,86* "
    "4.tiple.peru:114,128,142,156 4.ukulele:134,120,128,138* 5.bajo:72,80,90,100,110 "
    "5.banjo.aDADE:138,100,114,124,128* 5.banjo.aEADE:138,104,114,124,128* "
    "5.banjo.gCGBD:134,96,110,118,124* 5.banjo.gCGCD:134,96,110,120,124* "
    "5.banjo.gDF#AD:134,100,108,114,124* 5.banjo.gDGBD:134,100,110,118,124* "
    "5.banjo.gDGCD:134,100,110,120,124* 5.banjo.tenor:96,110,124,138* 5.bass.standard:46,56,66,76,86 "
    "5.bordonua:104,114,124,134,144 5.charango:110,120,128,138,152 "
    "5.cuatro.puerto.rico:118,128,138,148,158 5.guitarron:100,114,124,132,142 "
    "5.tiple.cuba:90,100,110,118,128 5.tiple.santo.domingo:96,106,116,124,134 "
    "5.vihuela:114,124,134,142,152 6.bajo:80,90,100,110,120,130 4.bajo:80,90,100,110 "
    "6.bandola:108,118,128,138,148,158 6.bandurria:112,122,132,142,152,162 "
    "6.bass.standard:46,56,66,76,86,96 6.dobro.open.A:86,98,104,114,122,128 "
    "6.dobro.open.B11:74,102,108,114,122,128 6.dobro.open.C#m:80,94,104,112,122,128 "
    "6.dobro.open.G:86,94,100,110,118,124 6.gamba:76,86,96,104,114,124 "
    "6.guitar.Bb.slack.key.mauna.loa:82,92,100,106,110,124 "
    "6.guitar.C.slack.key.mauna.loa:72,86,104,110,114,128 "
    "6.guitar.CGDGBD.slack.key.wahine:72,86,100,110,118,124 "
    "6.guitar.CGDGBE.slack.key.wahine:72,86,100,110,118,128 6.guitar.DADGAD:76,90,100,110,114,124 "
    "6.guitar.DGDF#BD.slack.key.wahine:76,86,100,108,118,124 "
    "6.guitar.G.slack.key.mauna.loa:76,86,100,100,110,124 "
    "6.guitar.G.slack.key.taro.patch:76,86,100,110,118,124 "
    "6.guitar.GCDGBE.slack.key.wahine:86,96,100,110,118,128 "
    "6.guitar.alternative.hawaiian:92,104,110,114,120,128 6.guitar.double.D:76,90,100,110,118,124 "
    "6.guitar.dropped.D:76,90,100,110,118,128 6.guitar.modal.D:76,90,100,110,114,124 "
    "6.guitar.nashville:80,90,124,134,142,152 6.guitar.open.A:80,90,98,104,114,128 "
    "6.guitar.open.C:72,86,96,110,120,128 6.guitar.open.D:76,90,100,108,114,124 "
    "6.guitar.open.Dm.cross-note:76,90,100,106,114,124 6.guitar.open.E:80,94,104,112,118,128 "
    "6.guitar.open.G:76,86,100,110,118,124 6.guitar.pedal.steel:70,76,80,84,88,94,102,104,108,112 "
    "6.guitar.standard:80,90,100,110,118,128 6.guitar.standard.hawaiian:96,104,110,114,120,128 "
    "6.guitarra.coimbra:96,110,114,124,134,138 6.guitarra.lisboa:100,114,118,128,138,142 "
    "6.laud:88,98,108,118,128,138 6.lute.bass.D.french.english:76,86,96,104,114,124* "
    "6.lute.bass.D.italian:124,114,104,96,86,76* 6.lute.bass.D.spanish:76,86,96,104,114,124* "
    "6.lute.tenor.A.french.english:90,100,110,118,128,138* "
    "6.lute.tenor.A.italian:138,128,118,110,100,90* 6.lute.tenor.A.spanish:90,100,110,118,128,138* "
    "6.lute.tenor.G.french.english:86,96,106,114,124,134* "
    "6.lute.tenor.G.italian:134,124,114,106,96,86* 6.lute.tenor.G.spanish:86,96,106,114,124,134* "
    "6.lute.treble.D.french.english:100,110,120,128,138,148* "
    "6.lute.treble.D.italian:148,138,128,120,110,100* "
    "6.lute.treble.D.spanish:100,110,120,128,138,148* 6.oud:76,86,94,104,114,124 "
    "6.requinto:86,96,106,118,124,134 6.rhythms.guitar.standard:80,90,100,110,118,128* "
    "6.tiple.argentina:86,90,100,110,118,128 6.tiple.uruguay:94,114,128,148,132,166 "
    "7.bandolon:82,106,118,128,138,148,158 7.guitar.low.A:66,80,90,100,110,118,128 "
    "7.guitar.low.B:70,80,90,100,110,118,128 7.sitar.sunada:106,96,86,72,110,120,144 "
    "7.sitar.tarang:106,86,72,110,120,144 8.dobro.A6:84,90,98,104,108,114,120,128 "
    "8.dobro.C#m7:94,100,104,112,118,122,128,136 8.dobro.C6:86,90,96,104,110,114,120,128 "
    "8.dobro.C6+A7:90,96,98,104,110,114,120,128 8.dobro.C6+highG:90,96,104,110,114,120,128,134 "
    "8.dobro.E13.hawaiian:80,88,94,100,104,112,122,128 "
    "8.dobro.E13.western:80,88,100,108,112,118,122,128 "
    "8.guitar.alternative.hawaiian:68,80,96,104,110,114,120,128 "
    "8.guitar.standard.hawaiian:72,80,96,104,110,114,120,128 "
    "8.guitarra.portuguesa:96,100,104,114,124,134,142,152 ";

std::vector<const Nvr::TreeNode*> RowsOfCategory(const Nvr::TreeNode& root, std::string_view category) {
    std::vector<const Nvr::TreeNode*> rows;
    const Nvr::TreeNode* const list = FindPath(root, {"Music", "StaveTypes"});
    for (int i = 0; list != nullptr && i < list->GetChildCount(); ++i) {
        if (ValueOf(*list->GetChild(i), "Category") == category)
            rows.push_back(list->GetChild(i));
    }
    return rows;
}

// The children of the row of standard guitar tuning as "label=value;", lists as their values.
const std::string kStandardGuitar =
    "Type=StaveType;Name=Guitar tab  (standard tuning, no rhythms);"
    "Id=stafftype.tab.6.guitar.standard;Compulsory=true;Category=2;AsNumbers=true;"
    "NotesOnSpaces=false;ShowRhythms=false;Hiding=false;Default=false;StaveLines=6;"
    "StaveLineSeparation=48;BarlineDy=120;LegerLines=true;KeySignatures=false;InitialClef=true;"
    "Bracket=true;InitBarline=true;BarRests=true;Barlines=true;RestY0=24;RestY1=24;RestY2=24;"
    "RestY3=24;RestY4=24;RestY5=24;RestY6=-24;RestY7=24;RestY8=24;RestY9=24;TopRestY0=104;"
    "TopRestY1=104;TopRestY2=72;TopRestY3=72;TopRestY4=40;TopRestY5=56;TopRestY6=24;TopRestY7=72;"
    "TopRestY8=72;TopRestY9=0;BottomRestY0=-104;BottomRestY1=-72;BottomRestY2=-72;BottomRestY3=-72;"
    "BottomRestY4=-72;BottomRestY5=-72;BottomRestY6=-72;BottomRestY7=-24;BottomRestY8=-24;"
    "BottomRestY9=0;Pitches=80,90,100,110,118,128;StemsUp=false;ArticulationsAbove=true;"
    "LevelBeams=true;StemsAboveOrBelowStave=false;WhiteBehindTabNotes=false;"
    "NumBeamsToAllowOnExtendedStem=3;ExtraGapToAllowOnExtendedStem=14;"
    "ClipExtendedStemsInsideExtraGap=true;AllVoice1StemsUp=true;AllVoice1StemsDown=false;"
    "DrawStemsBetweenTabChordNotes=true;Diats=23,26,29,32,34,37;BarlineBottomDy=120;";

// The children of a row in the same form.
std::string TextOfChildren(const Nvr::TreeNode& row) {
    std::string children;
    for (int i = 0; i < row.GetChildCount(); ++i) {
        const Nvr::TreeNode& child = *row.GetChild(i);
        children.append(child.GetLabel().View()).append("=");
        children.append(child.GetChildCount() == 0 ? child.GetValue().CStr() : ValuesOf(child)).append(";");
    }
    return children;
}

std::string Replaced(std::string text, const std::string& old, const std::string& by) {
    return text.replace(text.find(old), old.size(), by);
}

// The name of the diatonic step that a pitch is played on, counted from C 0.
int StepOf(int chrom2) {
    constexpr int kStepOfKey[] = {0, 0, 1, 2, 2, 3, 3, 4, 4, 5, 6, 6};
    return chrom2 / 24 * 7 + kStepOfKey[chrom2 / 2 % 12];
}

} // namespace

TEST(TemplateStaveTypes, TabRowsStandInTheirOrder) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    const std::vector<const Nvr::TreeNode*> rows = RowsOfCategory(*root, kTabCategory);
    std::istringstream expected(kTabRows);
    for (const Nvr::TreeNode* row : rows) {
        std::string word;
        expected >> word;
        EXPECT_EQ(ValueOf(*row, "Id") + ":" + ValuesOf(*row->FindChild("Pitches")) +
                      (ValueOf(*row, "ShowRhythms") == "true" ? "*" : ""),
                  "stafftype.tab." + word);
    }
    EXPECT_EQ(rows.size(), 104U);
}

TEST(TemplateStaveTypes, TheStandardGuitarHasItsChildren) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    const Nvr::TreeNode* const list = FindPath(*root, {"Music", "StaveTypes"});
    ASSERT_NE(list, nullptr);
    const Nvr::TreeNode* const plain = FindRow(*list, "Id", "stafftype.tab.6.guitar.standard");
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(TextOfChildren(*plain), kStandardGuitar);

    const Nvr::TreeNode* const withRhythms = FindRow(*list, "Id", "stafftype.tab.6.rhythms.guitar.standard");
    ASSERT_NE(withRhythms, nullptr);
    std::string expected = Replaced(kStandardGuitar, "no rhythms", "with rhythms");
    expected = Replaced(expected, "tab.6.guitar", "tab.6.rhythms.guitar");
    for (const std::string label : {"ShowRhythms", "StemsAboveOrBelowStave", "WhiteBehindTabNotes"})
        expected = Replaced(expected, label + "=false", label + "=true");
    EXPECT_EQ(TextOfChildren(*withRhythms), expected);
}

TEST(TemplateStaveTypes, TabRowsFollowFromTheirStrings) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    for (const Nvr::TreeNode* row : RowsOfCategory(*root, kTabCategory)) {
        const std::string id = ValueOf(*row, "Id");
        const Nvr::TreeNode& pitches = *row->FindChild("Pitches");
        const Nvr::TreeNode& steps = *row->FindChild("Diats");
        const int strings = pitches.GetChildCount();
        EXPECT_EQ(row->GetChildCount(), 64) << id;
        EXPECT_EQ(row->GetChildValue("StaveLines", 0), strings) << id;
        ASSERT_EQ(steps.GetChildCount(), strings) << id;
        for (int i = 0; i < strings; ++i)
            EXPECT_EQ(steps.GetChildIntAtIndex(i), StepOf(pitches.GetChildIntAtIndex(i))) << id;
    }
}

TEST(TemplateStaveTypes, BarlinesReachFromTheFirstLineToTheLast) {
    for (const Nvr::TreeNode* row : ChildrenOf(FindPath(*LoadTemplate(), {"Music", "StaveTypes"}))) {
        const int halfHeight = (IntOf(*row, "StaveLines") - 1) * IntOf(*row, "StaveLineSeparation") / 2;
        EXPECT_EQ(IntOf(*row, "BarlineDy"), halfHeight) << ValueOf(*row, "Id");
        EXPECT_EQ(IntOf(*row, "BarlineBottomDy"), halfHeight) << ValueOf(*row, "Id");
    }
}

TEST(TemplateStaveTypes, ComeInThreeCategories) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    EXPECT_EQ(RowsOfCategory(*root, "0").size(), 11U);
    EXPECT_EQ(RowsOfCategory(*root, "1").size(), 121U);
    EXPECT_EQ(RowsOfCategory(*root, kTabCategory).size(), 104U);
    const std::string labels = LabelsOf(
        *FindRow(*FindPath(*root, {"Music", "StaveTypes"}), "Id", "stafftype.tab.6.guitar.standard"));
    for (const char* category : {"0", "1"})
        for (const Nvr::TreeNode* row : RowsOfCategory(*root, category))
            EXPECT_EQ(LabelsOf(*row), category[0] == '1' ? labels + "Drums," : labels) << ValueOf(*row, "Id");
}
