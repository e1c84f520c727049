// What each step of the preparation makes of a text, with any line end.

#include "Projects/TabText/Preparation.h"

#include "tests/support/TabText.h"

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

// Four strings of a guitar, of which the first is given.
std::string UnderFirst(const std::string& first) {
    const std::string empty(first.size() - 2, '-');
    return first + "\nB|" + empty + "\nG|" + empty + "\nD|" + empty + "\n";
}

TEST(PreparationSteps, WriteOtherCharactersInAscii) {
    const Case rows[] = {
        {"ascii",
         "e|\xE2\x80\x94\xE2\x94\x80"
         "0\xE2\x80\x93|\xC2\xA0\xE2\x80\x9Cslow\xE2\x80\x9D\n",
         "e|--0-| \"slow\"\n", "dashes, blanks and quotes of UTF-8"},
        {"ascii", "caf\xC3\xA9 \xE2\x82\xAC \xE6\x97\xA5|\n", "cafe ? ??|\n", "as wide as before"},
        {"ascii",
         "e|\x96\x97"
         "0\x96\xA6 \x93slow\x94\n",
         "e|--0-| \"slow\"\n", "Windows"},
        {"ascii",
         "e\xB3\xC4\xC4"
         "0\xC4\xB3\n",
         "e|--0-|\n", "DOS"},
        {"ascii",
         "\xEF\xBB\xBF"
         "e|--0-|\n",
         "e|--0-|\n", "a mark before all"},
        {"ascii", "7\xE2\x88\xBF 5\xE2\x86\x97 7\xE2\x86\x98\n", "7~ 5/ 7\\\n", "waves and arrows"},
        {"ascii", "plain text\n", "plain text\n", "ASCII"},
    };
    for (const Case& row : rows)
        ExpectCase(row);
}

TEST(PreparationSteps, TellStavesFromTheirSurroundings) {
    const std::string kUnknown =
        UnderFirst("e|-7b?-7b?-7b1?-7~~~-|") + "A|--------------------\nE|--------------------\n";
    const Case rows[] = {
        {"prose",
         "A-las my love - you do me wrong\n-- to cast me off, dis-cour-teous-ly\n-- and I --\n-- have --\n",
         "A=las my love = you do me wrong\n== to cast me off, dis=cour=teous=ly\n== and I ==\n== have ==\n",
         "hyphens of words"},
        {"prose", kUnknown, kUnknown, "a string with signs that nobody knows"},
        {"prose", "#" + std::string(30, '-') + "\n", "#" + std::string(30, '=') + "\n",
         "a rule read as a string"},
        {"prose", "#" + std::string(30, '-') + "\n#", "#" + std::string(30, '=') + "\n#",
         "one between staves"},
        {"prose", std::string(300, '-') + "\n#", std::string(300, '=') + "\n#", "one that hides the stave"},
        {"prose", std::string(300, '-') + "\n|--0--|\n|-----|\n|-----|\n|-----|\n",
         std::string(300, '=') + "\n|--0--|\n|-----|\n|-----|\n|-----|\n", "and one without names"},
        {"prose", "--------\n\n#", "--------\n\n#", "one that is in nobody's way"},
        {"prose", "|--0--2--|\n|--------|\n----------\n|--------|\n",
         "|--0--2--|\n|--------|\n----------\n|--------|\n", "a string without barlines"},
        {"short", "#\nD|-0---|\nA|---2-|\n",
         "#\ne|-----|\nB|-----|\nG|-----|\nD|-0---|\nA|---2-|\nE|-----|\n", "two strings with names"},
        {"short", "#\n|-0---|\n|---2-|\n", "#\n|-0---|\n|---2-|\n", "without names nobody knows"},
        {"short", "#\nF|-0-|\nF|---|\n\nD|-0-|\nA|---|\n\n|-0-|\n|---|\n",
         "#\nF|-0-|\nF|---|\n\ne|---|\nB|---|\nG|---|\nD|-0-|\nA|---|\nE|---|\n\n|-0-|\n|---|\n",
         "names disagree where the one without belongs"},
        {"short", "e|-0-|\n\nB|---|\n\nG|---|\n\nD|---|\n", "e|-0-|\nB|---|\nG|---|\nD|---|\n",
         "blank lines between strings"},
        {"apart", "   PM----------------------------|\n#", "   PM----------------------------|\n\n#",
         "an annotation taken for a string"},
        {"apart", "   C\n   PM----------------------------|\n#",
         "   PM----------------------------|\n   C\n#", "chords stay beside the stave"},
        {"apart", "G|-0-|\nD|---|\nA|---|\nE|---|\nG|-2-|\nD|---|\nA|---|\nE|---|\n",
         "G|-0-|\nD|---|\nA|---|\nE|---|\n\nG|-2-|\nD|---|\nA|---|\nE|---|\n", "two staves of a bass"},
        {"apart", "#", "#", "nothing glued to it"},
    };
    for (const Case& row : rows)
        ExpectCase(row);
}

TEST(PreparationSteps, TakeAwayWhatMailsAndPagesPutAround) {
    const Case rows[] = {
        {"markup",
         "Ann:\n> > Hi\n> >\n> > G|-0-----|\n> > D|-------|\n> > A|-------|\n> > E|-------|\n> no\n",
         "Ann:\nHi\n\nG|-0-----|\nD|-------|\nA|-------|\nE|-------|\nno\n", "answered twice"},
        {"markup", ">   > >\n>G|-0-----|\n>D|-------|\n>A|-------|\n>E|-------|\n",
         "   > >\nG|-0-----|\nD|-------|\nA|-------|\nE|-------|\n", "without blanks, and with accents"},
        {"markup", "  > >\nG|-0-----|\n>|-------|\nA|-------|\nE|-------|\n",
         "  > >\nG|-0-----|\n>|-------|\nA|-------|\nE|-------|\n", "no answer"},
        {"markup", ">G|-0-----|\n>D|-------|\n>A|-------|\n", ">G|-0-----|\n>D|-------|\n>A|-------|\n",
         "no stave"},
        {"markup", "<PRE class=\"tab\"><b>Riff</b>\nG|-<i>0</i>-<12>-|\n</PRE><br/> a<3 &lt;b>\n",
         "Riff\nG|-0-<12>-|\n a<3 <b>\n", "tags, and what is none"},
        {"markup", "<b>Riff\n|-<12>-|\n", "<b>Riff\n|-<12>-|\n", "nothing ends"},
        {"markup", "Tom &amp; I&nbsp;&ndash; &copy; AT&T;\n", "Tom & I - &copy; AT&T;\n",
         "characters by name"},
    };
    for (const Case& row : rows)
        ExpectCase(row);
    const std::vector steps{TabText::FindPreparationStep("markup")};
    EXPECT_EQ("a,-- &#8211 &#99999999999; &#;",
              TabText::Prepare("a&#44;&#x2013;&#8212; &#8211 &#99999999999; &#;", steps).Text)
        << "characters by number";
    const TabText::PreparedText page = TabText::Prepare("<pre>a<b>&lt;c</b></pre>", steps);
    EXPECT_EQ("a<c", page.Text);
    for (const auto& [column, original] : {std::pair{0, 5}, {1, 9}, {2, 13}, {4, 15}})
        EXPECT_EQ((TabText::TextPlace{0, original}), page.Map.ToOriginal(0, column)) << column;
}

TEST(PreparationSteps, MakeNotesPlain) {
    const Case rows[] = {
        {"tuning", "Tuning: D G C F\n\nG|-0-|\nD|---|\nA|---|\nE|---|\n",
         "Tuning: D G C F\n\nF|-0-|\nC|---|\nG|---|\nD|---|\n", "in place of the usual names"},
        {"tuning", "tuned to DADGAD\n\n|-0-|\n|---|\n|---|\n|---|\n|---|\n|---|\n",
         "tuned to DADGAD\n\nD|-0-|\nA|---|\nG|---|\nD|---|\nA|---|\nD|---|\n", "where there are no names"},
        {"tuning", "Tuning: Eb Ab Db Gb\n\nG|-0-|\nD|---|\nA|---|\nE|---|\n",
         "Tuning: Eb Ab Db Gb\n\nG|-0-|\nD|---|\nA|---|\nE|---|\n", "flats have no letter"},
        {"tuning", "Tuning: B E A D G B E\n\n|-0-|\n|---|\n|---|\n|---|\n|---|\n|---|\n",
         "Tuning: B E A D G B E\n\n|-0-|\n|---|\n|---|\n|---|\n|---|\n|---|\n", "seven strings are not six"},
        {"tuning", "Tune to D A D G B E a fifth down\n\n|-0-|\n|---|\n|---|\n|---|\n|---|\n|---|\n",
         " Tune to D A D G B E a fifth down\n\nE|-0-|\nB|---|\nG|---|\nD|---|\nA|---|\nD|---|\n",
         "words go on after it"},
        {"bends", UnderFirst("e|-7b9--9r7-7b9r7-7b(8)-|"), UnderFirst("e|-7b---9r--7b-r--7b----|"),
         "bends and releases"},
        {"bends", UnderFirst("e|-7b1.5-7bfull-7b9b7r(5)-|"), UnderFirst("e|-7b----7bfull-7b-r-r----|"),
         "amounts, and back by the same sign"},
        {"bends", UnderFirst("e|-5^7^5-5^7p5-5^7-7^5-|"), UnderFirst("e|-5^7^5-5^7p5-5b--7^5-|"),
         "hammered is what goes on to another fret"},
        {"bends", UnderFirst("e|-7b1/2-10b12^13-7b14-|"), UnderFirst("e|-7b----10b--b---7b14-|"),
         "and what is none"},
        {"bends", "7b9\n", "7b9\n", "no stave"},
        {"digits", UnderFirst("e|-000-2-00-00-000-|"), UnderFirst("e|-0-0-0-2-0-0-0-0-0-0-0-|"),
         "open strings"},
        {"digits", UnderFirst("e|-00-02-03-00-05-|"), UnderFirst("e|-00-02-03-00-05-|"),
         "every number has two digits"},
        {"digits", UnderFirst("e|-1-11-1111-12-|"), UnderFirst("e|-1-11-1111-12-|"),
         "frets 11 and 12 are near"},
        {"digits", UnderFirst("e|-1-11-111-3-1-|"), UnderFirst("e|-1-1-1-111-3-1-|"), "struck twice"},
        {"digits", "   C    G\n" + UnderFirst("e|-00-2-00-2-|"),
         "   C     G\n" + UnderFirst("e|-0-0-2-0-0-2-|"), "chords keep their place"},
    };
    for (const Case& row : rows)
        ExpectCase(row);
}

TEST(PreparationSteps, TakeWordsOutOfTheWay) {
    const std::string words = TestSupport::Repeat("   Go a-b c-d\n", 4);
    const std::string named = TestSupport::Repeat("E|" + std::string(37, '-') + "|\n", 4);
    const std::string lastString = words + named + " |" + std::string(22, '-') + "|\n";
    const Case rows[] = {
        {"text", "\n   Alas my Love, you Do me wrong\n#", Blank("\n   Alas my Love, you Do me wrong\n#"),
         "lyrics"},
        {"text", "   Riff B\n#", "   Riff b\n#", "the name of a section"},
        {"text", "   Riff B  Em\n#", "   Riff B  Em\n#", "chords of a section"},
        {"text", "C     A man\n#", "C     a man\n#", "an article beside a chord"},
        {"text", "   C     A     G     D   hold\n#", "   C     A     G     D   hold\n#", "chords"},
        {"text", "   Am7/G  (Dm7b5)  E-A  Fade  N.C.\n#", "   Am7/G  (Dm7b5)  E-A  fade  N.c.\n#",
         "remarks among chords"},
        {"text", "   Dm7/b5  Co7  C\xCE\x94  C*\n#", "   Dm7/b5  Co7  C\xCE\x94  C*\n#",
         "chords of odd spelling"},
        {"text", "   Csus2/4    G7/4\n#", "   Csus2      G7\x20\x20\n#", "a fourth of a chord is no metre"},
        {"text", "   Capo 2, Drop D\n#", "   capo 2, drop d\n#", "stated, and still readable"},
        {"text", "   Dark Bridge now\n#", "   dark bridge now\n#", "a label"},
        {"text", "Intro  is what I play now and then\n\n\n#",
         Blank("Intro  is what I play now and then\n\n\n#"), "a sentence with a gap"},
        {"text", "somebody plays the old intro (slow)\n\n\n#",
         Blank("somebody plays the old intro (slow)\n\n\n#"), "a sentence with a remark"},
        {"text", lastString, lastString, "the last line is a string only beside so many blanks"},
        {"text", "  Tuning: D A D G A D\n#", "  Tuning: d a d g a d\n#", "strings, not chords"},
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
        {"rhythm", "   q   q   q   q    h\n#", "   Q   Q   Q   Q    H\n#", "one bar of two is full"},
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
