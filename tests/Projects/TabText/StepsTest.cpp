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

// Two bars of 3/4 without a barline between them, under their counts.
std::string Waltz(const std::string& counts, const std::string& first = "-",
                  const std::string& time = "3/4") {
    return time + "\n" + counts + "\ne|-0---1---3--" + first + "3---1---0---|\n" + "B|------------" + first +
           "------------|\n" + "G|------------" + first + "------------|\n" + "D|------------" + first +
           "------------|\n";
}

TEST(PreparationSteps, MakeRhythmLinesPlain) {
    const Case rows[] = {
        {"rhythm", "   q   q   q   q    w\n#", "   Q   Q   Q   Q    W\n#", "small letters over notes"},
        {"rhythm", "   q   e.  s   h    w\n#", "   Q   E.  S   H    W\n#", "with dots"},
        {"rhythm", "   q   q   e        h\n#", "   q   q   e        h\n#", "no bar is full"},
        {"rhythm", "     q   q   q   q    w\n#", "     q   q   q   q    w\n#", "not over the notes"},
        {"rhythm", "       h   h   \n#", "       h   h   \n#", "hammer-ons"},
        {"rhythm", "   q   q   p   q    w\n#", "   q   q   p   q    w\n#", "a letter that is no length"},
        {"rhythm", "   d   u   d   u    d   u   d\n#", Blank("   d   u   d   u    d   u   d\n#"), "strokes"},
        {"rhythm", "   ^   v   ^   v    ^   v   ^\n#", Blank("   ^   v   ^   v    ^   v   ^\n#"), "arrows"},
        {"rhythm", "   D   U   D U D    D U D U\n#", Blank("   D   U   D U D    D U D U\n#"),
         "read as chords"},
        {"rhythm", "   D       D        D       D\n#", "   D       D        D       D\n#", "chords"},
        {"rhythm", "   p   i   m   i    p   i   p\n#", Blank("   p   i   m   i    p   i   p\n#"), "fingers"},
        {"rhythm", "   T   1   2   1    T   1   2\n#", Blank("   T   1   2   1    T   1   2\n#"),
         "of numbers"},
        {"rhythm", "   1   2   3   4    1   2   3   4\n#", "   1   2   3   4    1   2   3   4\n#", "counts"},
        {"rhythm", Waltz("   1   2   3   1   2   3"), Waltz("   1   2   3   1   2   3", "|"),
         "else six quavers"},
        {"rhythm", Waltz("   1 & 2 & 3 & 1 & 2 & 3 &"), Waltz("   1 & 2 & 3 & 1 & 2 & 3 &", "|"),
         "else one bar too long"},
        {"rhythm", Waltz("   1   2   3   1   2   3", "-", "a waltz"),
         Waltz("   1   2   3   1   2   3", "-", "a waltz"), "no metre stated"},
        {"rhythm", Waltz("   1   2   3   1   2  "), Waltz("   1   2   3   1   2  "),
         "not counted to the end"},
        {"rhythm", Waltz("   1   2   3   1   2   3", "5"), Waltz("   1   2   3   1   2   3", "5"),
         "no room for a barline"},
    };
    for (const Case& row : rows)
        ExpectCase(row);
}

} // namespace
