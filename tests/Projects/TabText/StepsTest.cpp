// What each step of the preparation makes of a text, with any line end.

#include "Projects/TabText/Preparation.h"

#include <gtest/gtest.h>

namespace {

using TabText::PreparedText;
using TabText::TextPlace;

// Two bars of six strings, in the place of "#" in a text of a case.
constexpr const char* kStave = "e|---------0---1---|-3---------------|\n"
                               "B|-----1-----------|-----------------|\n"
                               "G|-----------------|-----------------|\n"
                               "D|-----------------|-----------------|\n"
                               "A|-----------------|-----------------|\n"
                               "E|-----------------|-----------------|\n";

struct Case {
    const char* Step;
    std::string Text;
    // The same as the text where nothing is to change.
    std::string Prepared;
    const char* Why;
};

std::string WithStaves(const std::string& text) {
    std::string whole;
    for (const char c : text)
        whole += c == '#' ? std::string(kStave) : std::string(1, c);
    return whole;
}

// The same lines, with nothing in them but staves.
std::string Blank(std::string text) {
    for (char& c : text)
        c = c == '\n' || c == '#' ? c : ' ';
    return text;
}

std::string WithLineEnds(const std::string& text, const std::string& end) {
    std::string whole;
    for (const char c : text)
        whole += c == '\n' ? end : std::string(1, c);
    return whole;
}

void ExpectPrepared(const std::string& text, const std::string& expected, const Case& row) {
    const std::vector<const TabText::PreparationStep*> steps{TabText::FindPreparationStep(row.Step)};
    const PreparedText prepared = TabText::Prepare(text, steps);
    EXPECT_EQ(expected, prepared.Text) << row.Step << ": " << row.Why;
    EXPECT_EQ(prepared.Text, TabText::Prepare(prepared.Text, steps).Text) << row.Step << ": " << row.Why;
    EXPECT_EQ(text != expected, prepared.IsChanged()) << row.Step << ": " << row.Why;
}

void ExpectCase(const Case& row) {
    ASSERT_NE(nullptr, TabText::FindPreparationStep(row.Step)) << row.Step;
    const std::string text = WithStaves(row.Text);
    const std::string prepared = WithStaves(row.Prepared);
    for (const char* end : {"\n", "\r\n", "\r"})
        ExpectPrepared(WithLineEnds(text, end), WithLineEnds(prepared, end), row);
    if (text.ends_with('\n') && prepared.ends_with('\n'))
        ExpectPrepared(text.substr(0, text.size() - 1), prepared.substr(0, prepared.size() - 1), row);
}

TEST(PreparationSteps, TakeWordsOutOfTheWay) {
    const Case rows[] = {
        {"text", "\n   Alas my Love, you Do me wrong\n#", Blank("\n   Alas my Love, you Do me wrong\n#"),
         "lyrics"},
        {"text", "C     A man\n#", "C     a man\n#", "an article beside a chord"},
        {"text", "   C     A     G     D   hold\n#", "   C     A     G     D   hold\n#", "chords"},
        {"text", "   Am7/G  (Dm7b5)  E-A  Fade  N.C.\n#", "   Am7/G  (Dm7b5)  E-A  fade  N.c.\n#",
         "remarks among chords"},
        {"text", "   Csus2/4    G7/4\n#", "   Csus2      G7\x20\x20\n#", "a fourth of a chord is no metre"},
        {"text", "   Capo 2, Drop D\n#", "   capo 2, drop d\n#", "stated, and still readable"},
        {"text", "Alas my love\n#", "Alas my love\n#", "its only capital stands before the bars"},
        {"text", "   Be good\n\n\n#", "   Be good\n\n\n#", "too far above for a chord"},
        {"text", "   Q   Q   E E Q   H\n#", "   Q   Q   E E Q   H\n#", "note lengths"},
        {"text", "   So Quit His Show, His Hut W\n#", Blank("   So Quit His Show, His Hut W\n#"),
         "read as note lengths"},
        {"text", "This is the intro riff of it all\n\n\n#", Blank("This is the intro riff of it all\n\n\n#"),
         "a sentence is no label"},
        {"text", "Intro riff (play it four times)\n\n#", "Intro riff                     \n\n#",
         "the label stays"},
        {"text", "[Verse 1] sing it soft and low\n\n#", "[Verse 1]                     \n\n#",
         "so in brackets"},
        {"text", "Verse 2 sing it soft and low\n\n#", "Verse 2                     \n\n#",
         "and with a number"},
        {"text", "Intro: Am G F C Am\n\n#", "Intro: Am G F C Am\n\n#", "chords after a label"},
        {"text", "Title: The Bridge of some Town\n\n\n#", "Title: The Bridge of some Town\n\n\n#", "a title"},
        {"text", "Done 2015/04, tuned 1/2 step down\n\n\n#", "Done          tuned     step down\n\n\n#",
         "no time signatures"},
        {"text", "Waltz time, 3/4\n\n\n#", "Waltz time, 3/4\n\n\n#", "a time signature"},
        {"text", "   A-way, you Rol-ling Ri-ver, Do\n#", Blank("   A-way, you Rol-ling Ri-ver, Do\n#"),
         "hyphens that make it no string"},
        {"text", "Gone a-way so-long\n#", "Gone a-way so-long\n#", "said nowhere above a bar"},
    };
    for (const Case& row : rows)
        ExpectCase(row);
}

} // namespace
