// Texts that show several parts.

#include "Projects/TabText/PartLabels.h"
#include "Projects/TabText/Preparation.h"
#include "tests/Projects/TabText/UntidyTabs.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

namespace {

using TestSupport::Repeat;

std::vector<TabText::PreparedPart> PartsOf(const std::string& text) {
    const auto* parts = TabText::FindPreparationStep("parts");
    return TabText::PrepareParts(text, {&parts, 1});
}

// A stave of a guitar or of a bass in which the lowest string has one fret.
std::string Guitar(char fret) {
    return Repeat("|-----|\n", 5) + "|-" + fret + "---|\n";
}
std::string Bass(char fret) {
    return Repeat("|-----|\n", 3) + "|-" + fret + "---|\n";
}

// "Gtr I: 12 Gtr II: 3", the name of each part with its frets, in order; what it plays alone for one part.
std::string Played(const std::string& text) {
    std::string all;
    for (const TabText::PreparedPart& part : PartsOf(text)) {
        all += (all.empty() ? "" : " ") + part.Name + (part.Name.empty() ? "" : ": ");
        for (const std::string& note : TestSupport::PlayedOf(part.Text.Text).Notes)
            all += note.substr(note.find('/') + 1);
    }
    return all;
}

TEST(Parts, AreToldByLabelsAndPlaces) {
    const std::string g1 = Guitar('1');
    const std::string g2 = Guitar('2');
    const std::string g3 = Guitar('3');
    const std::string g4 = Guitar('4');
    const std::string b5 = Bass('5');
    const std::string b6 = Bass('6');
    const struct {
        const char* Why;
        std::string Text;
        const char* Played;
    } rows[] = {
        {"a label over each stave", "Gtr I\n" + g1 + "Gtr II\n" + g2 + "\nGtr I\n" + g3 + "Gtr II\n" + g4,
         "Gtr I: 13 Gtr II: 24"},
        {"spelled in several ways",
         "Gtr. 1:\n" + g1 + "\nGuitar II\n" + g2 + "\n[Guitar 1]\n" + g3 + "\ngtr 2\n" + g4,
         "Gtr 1: 13 Guitar II: 24"},
        {"a stave of both", "Gtr I\n" + g1 + "Gtr II\n" + g2 + "\nGtrs I & II\n" + g3,
         "Gtr I: 13 Gtr II: 23"},
        {"one rests", "Gtr I\n" + g1 + "Gtr II\n" + g2 + "\nGtr II\n" + g3, "Gtr I: 1 Gtr II: 23"},
        {"labels over the first system alone", "Gtr I\n" + g1 + "Gtr II\n" + g2 + "\n\n" + g3 + "\n" + g4,
         "Gtr I: 13 Gtr II: 24"},
        {"one after the other, a label over the first stave of each",
         "Guitar 1\n" + g1 + "\n" + g2 + "\n\nGuitar 2\n" + g3 + "\n" + g4, "Guitar 1: 12 Guitar 2: 34"},
        {"a bass by its label, and then by its size",
         "Guitar:\n" + g1 + "\nBass:\n" + b5 + "\n" + g2 + "\n" + g3 + "\n" + b6, "Guitar: 123 Bass: 56"},
        {"pairs of sizes without a label", g1 + "\n" + b5 + "\n" + g2 + "\n" + b6, "Guitar: 12 Bass: 56"},
        {"one pair is all there is", b5 + "\n" + g1, "Bass: 5 Guitar: 1"},
        {"the bass rests for once", g1 + "\n" + b5 + "\n" + g2 + "\n" + g3 + "\n" + b6,
         "Guitar: 123 Bass: 56"},
        {"a remark after the name", "Gtr 1 (clean)\n" + g1 + "Gtr 2 - dist.\n" + g2, "Gtr 1: 1 Gtr 2: 2"},

        {"one label is no second part", "Gtr I\n" + g1 + "\n" + g2, "12"},
        {"a third stave of nobody knows whom", "Gtr I\n" + g1 + "Gtr II\n" + g2 + "\n" + g3, "123"},
        {"staves before the first label", g3 + "\nGtr I\n" + g1 + "Gtr II\n" + g2, "312"},
        {"pairs that stand no nearer than others", "Gtr I\n" + g1 + "Gtr II\n" + g2 + "\n" + g3 + "\n\n" + g4,
         "1234"},
        {"a part for bass after one for guitar, without a label",
         g1 + "\n" + g2 + "\n" + g3 + "\n" + b5 + "\n" + b6, "12356"},
        {"a stave without label after one that plays alone, where others play together",
         "Gtr I\n" + g1 + "Gtr II\n" + g2 + "\nGtr I\n" + g3 + "\n" + g4, "1234"},
        {"too few pairs among staves of both sizes",
         g1 + "\n" + b5 + "\n" + g2 + "\n" + b6 + "\n" + g3 + "\n" + g4 + "\n\n\n\n\n" + b5 + "\n" + b6,
         "15263456"},
        {"words that begin like a label", "Guitar tabbed by me\n" + g1 + "\nBass line of the verse\n" + g2,
         "12"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Played, Played(row.Text)) << row.Why;
}

TEST(Parts, ReadLabels) {
    const struct {
        const char* Line;
        const char* Keys;
    } rows[] = {
        {"Gtr I", "guitar 1"},
        {"  [Guitar 2]", "guitar 2"},
        {"gtr.1:", "guitar 1"},
        {"Gtr3", "guitar 3"},
        {"Guitar #2", "guitar 2"},
        {"Gtrs. I, II", "guitar 1;guitar 2"},
        {"Gtr 1 & 2", "guitar 1;guitar 2"},
        {"Gtrs I and IV    let ring", "guitar 1;guitar 4"},
        {"Bass guitar:", "bass"},
        {"Lead Guitar", "lead guitar"},
        {"Rhythm:", "rhythm"},
        {"Acoustic gtr. II", "acoustic guitar 2"},
        {"Gtr I    4/4", "guitar 1"},
        {"Lead", "lead"},
        {"Lead   Am   G", ""},
        {"Rhy. Fig. 1", ""},
        {"Bass solo", ""},
        {"Guitarists", ""},
        {"Gtr 123", ""},
        {"G  tr", ""},
        {"(lead)", ""},
        {"[Lead]", "lead"},
        {"", ""},
        {"(", ""},
    };
    for (const auto& row : rows) {
        std::string keys;
        for (const TabText::PartName& name : TabText::ReadPartLabel(row.Line))
            keys += (keys.empty() ? "" : ";") + name.Key;
        EXPECT_EQ(row.Keys, keys) << row.Line;
    }
}

TEST(Parts, KeepTheLinesOfTheWhole) {
    const std::string text = "Tune  4/4\r\nRiff\r\nGtr I\r\n|-1-|\r\n|---|\r\n|---|\r\n|---|\r\n"
                             "Gtr II\r\n  PM\r\n|-2-|\r\n|---|\r\n|---|\r\n|---|\r\n\r\n"
                             "Chorus\r\nGtr I\r\n|-3-|\r\n|---|\r\n|---|\r\n|---|\r\nthe end";
    const std::vector<TabText::PreparedPart> parts = PartsOf(text);
    ASSERT_EQ(2U, parts.size());
    EXPECT_EQ("Tune  4/4\r\nRiff\r\n\r\n|-1-|\r\n|---|\r\n|---|\r\n|---|\r\n"
              "\r\n\r\n\r\n\r\n\r\n\r\n\r\n"
              "Chorus\r\n\r\n|-3-|\r\n|---|\r\n|---|\r\n|---|\r\nthe end",
              parts[0].Text.Text);
    // What stands over a system in which it rests is not the part's.
    EXPECT_EQ("Tune  4/4\r\nRiff\r\n\r\n\r\n\r\n\r\n\r\n"
              "\r\n  PM\r\n|-2-|\r\n|---|\r\n|---|\r\n|---|\r\n\r\n"
              "\r\n\r\n\r\n\r\n\r\n\r\nthe end",
              parts[1].Text.Text);
    for (const TabText::PreparedPart& part : parts) {
        EXPECT_EQ((TabText::TextPlace{9, 2}), part.Text.Map.ToOriginal(9, 2));
        EXPECT_EQ(part.Text.Text, PartsOf(part.Text.Text).front().Text.Text);
    }
}

TEST(Parts, ArePreparedEachByItself) {
    const auto stave = [](const char* lowest) { return Repeat("|-----------------|\n", 5) + lowest + "\n"; };
    const std::string text =
        "Gtr I\n" + stave("|-0---2---3---0---|") + "Gtr II\n" + stave("|-11-1------------|");
    std::vector<const TabText::PreparationStep*> steps = TabText::DefaultPreparationSteps();
    steps.push_back(TabText::FindPreparationStep("grid"));
    steps.push_back(TabText::FindPreparationStep("parts"));
    const std::vector<TabText::PreparedPart> parts = TabText::PrepareParts(text, steps);
    ASSERT_EQ(2U, parts.size());
    // The line of the label is free for the rhythm once the label has named the part.
    EXPECT_TRUE(parts[0].Text.Text.starts_with("  1   2   3   4\n|--")) << parts[0].Text.Text;
    EXPECT_EQ(std::string::npos, parts[0].Text.Text.find("11"));
}

// Beside each tab of tests/untidy-parts lies a file for each of its parts.
TEST(Parts, OfUntidyTabsAreReadAsMeant) {
    std::vector<const TabText::PreparationStep*> steps = TabText::DefaultPreparationSteps();
    steps.push_back(TabText::FindPreparationStep("parts"));
    int tabs = 0;
    std::set<std::filesystem::path> wanted;
    std::set<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(FRETLINE_SOURCE_DIR "/tests/untidy-parts")) {
        if (entry.path().extension() == ".want") {
            wanted.insert(entry.path());
            continue;
        }
        ++tabs;
        std::ostringstream text;
        text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        for (const TabText::PreparedPart& part : TabText::PrepareParts(text.str(), steps)) {
            std::filesystem::path file = entry.path();
            file.replace_filename(file.stem().string() + " - " + part.Name + ".want");
            found.insert(file);
            const TestSupport::PlayedText meant = TestSupport::ReadWanted(file);
            const TestSupport::PlayedText played = TestSupport::PlayedOf(part.Text.Text);
            EXPECT_EQ(meant.Notes, played.Notes) << file << "\n" << part.Text.Text;
            EXPECT_EQ(meant.Tuning, played.Tuning) << file;
            EXPECT_EQ(static_cast<int>(meant.Chords.size()),
                      TestSupport::CountInOrder(meant.Chords, played.Chords))
                << file;
        }
    }
    EXPECT_EQ(2, tabs);
    EXPECT_EQ(wanted, found);
}

} // namespace
