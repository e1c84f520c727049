#include "tests/Projects/Fretline/stave/BarText.h"

#include "Projects/Fretline/stave/ChordParser.h"

#include <gtest/gtest.h>

namespace Fretline {

namespace {

// Every chord of a line up to `endColumn`.
std::string ParseLine(const TabFile& file, int endColumn) {
    std::string text;
    int column = 0;
    while (const std::unique_ptr<TabChord> chord = ParseChordSymbol(file, 0, column, endColumn)) {
        AppendWord(text, std::string(GetChordText(*chord).View()));
        EXPECT_EQ(chord->m_End, column);
    }
    return text;
}

} // namespace

TEST(Chords, AreParsed) {
    struct Row {
        const char* Line;
        const char* Chords;
        const char* Why;
    };
    const Row rows[] = {
        {"Am7 ", "Am7", "minor and a number"},
        {"Fmin7 ", "Fm7", "min is written m"},
        {"Cmi ", "Cm", "and so is mi"},
        {"CM7 ", "Cm7", "and M, as case does not count"},
        {"Gmaj7 ", "Gmaj7", "major"},
        {"Gsus4 GSuS4 ", "Gsus4 Gsus4", "in any case"},
        {"GMAJ7 ", "G A", "unless a capital in it begins a chord"},
        {"C#m7/G# ", "C#m7/G#", "accidentals of root and bass"},
        {"Dsus4 ", "Dsus4", "suspended"},
        {"Dsus4add9 ", "Dsus4add9", "tokens end where the class of character changes"},
        {"Cdim7 Caug ", "Cdim7 Caug", "diminished and augmented"},
        {"Bb ", "Bb", "a root alone"},
        {"Abb ", "Ab", "an accidental alone is no token"},
        {"C#9 ", "C#9", "the sharp belongs to the root"},
        {"C #9 ", "C#9", "or to the number behind a blank"},
        {"C #m ", "C", "a sharp without a number"},
        {"C6/9 ", "C6/9", "six-nine is no bass"},
        {"C#6/9 ", "C#6/9", "nor behind an accidental"},
        {"Cm6/9 ", "Cm6/9", "nor behind another token"},
        {"C6/G ", "C6/G", "a bass behind a six"},
        {"C16/9 ", "C", "sixteen-nine is nothing"},
        {"C(add9) ", "C(add9)", "brackets"},
        {"C(#9) ", "C(#9)", "an altered note in them"},
        {"C(add9 ", "C", "cut back before the open bracket"},
        {"C) ", "C", "cut back before the close bracket"},
        {"C7) ", "C7", "what stands before it stays"},
        {"C(9)(b5) ", "C", "two brackets side by side are one token and fail, which leaves the first open"},
        {"C(9) (11 ", "C(9)", "only the open pair is cut"},
        {"C( ( 9 ", "C", "two open: cut before the first"},
        {"C( ( ( 9 ", "C(((9", "three open: nothing is cut"},
        {"C(add9E ", "C E", "what was cut off is read again"},
        {"C/x ", "C", "nothing behind the slash is taken"},
        {"C/xG ", "C G", "but looked at again"},
        {"Cfoo/G ", "C/G", "a failed token before the slash is lost, the bass is not"},
        {"D/  G ", "D/G", "blanks before the bass"},
        {"D/    G ", "D G", "four are too many"},
        {"Cm7b5 ", "Cm", "7b5 is one token, and fails"},
        {"C7#9 ", "C", "7#9 as well"},
        {"Chorus ", "C", "a capital A to G begins a chord anywhere"},
        {"Am G ", "Am G", "two chords"},
        {"AmG ", "A G", "mG is one token, and fails"},
        {"Am7G ", "Am7 G", "the root ends the chord before it"},
        {"EADGBE ", "E A D G B E", "roots side by side"},
        {"C   m ", "Cm", "three blanks do not end a symbol"},
        {"C    m ", "C", "four do"},
        {"C m m m ", "Cmmm", "blanks are counted afresh behind each character"},
        {"C\xE9 ", "C", "a letter beyond ASCII fails like any other sign"},
        {"Am", "A", "the token at the right edge is lost"},
        {"Hm x y", "", "no root"},
    };
    for (const Row& row : rows) {
        BarText text({row.Line});
        EXPECT_EQ(ParseLine(text.File(), text.File().GetLineLength(0)), row.Chords)
            << row.Line << ": " << row.Why;
    }
}

TEST(Chords, MayTakeAnAccidentalBehindTheRightEdge) {
    BarText text({"G#m"});
    EXPECT_EQ(ParseLine(text.File(), 1), "G#");
}

TEST(Chords, KnowTheirColumns) {
    BarText text({"  C#m7 (no  "});
    int column = 0;
    const std::unique_ptr<TabChord> chord = ParseChordSymbol(text.File(), 0, column, 12);
    EXPECT_EQ(chord->m_Start, 2);
    EXPECT_EQ(chord->m_End, 8) << "the bracket at column 7 is cut off, but was accepted";
    ASSERT_EQ(chord->m_Tokens.size(), 2U);
    EXPECT_EQ(chord->m_Tokens[0].m_Column, 4);
    EXPECT_EQ(chord->m_Tokens[1].m_Column, 5);
}

TEST(Chords, ComeFromTheLineThatHasMore) {
    struct Row {
        const char* Second;
        const char* First;
        const char* Chords;
        const char* Why;
    };
    const Row rows[] = {
        {"C  ", "G D  ", "G D", "more on the nearer line"},
        {"C F  ", "G  ", "C F", "more on the farther line"},
        {"C F  ", "G D  ", "G D", "as many: the nearer line"},
        {"", "hm", "", "none on either"},
        {"C  ", "E  E  E  E", "C", "a line of note lengths is no chord line"},
        {"E  E  E  E", "C  ", "C", "neither two lines above"},
    };
    for (const Row& row : rows) {
        for (const int level : {kRhythmsNever, kRhythmsWhenIndicated}) {
            BarText text({row.Second, row.First, "-----5----------", "----------------"}, level);
            TabBar& bar = text.BarAt(2, 2);
            bar.ReadBar(nullptr);
            EXPECT_EQ(ChordsOf(bar), row.Chords) << row.Why << ", level " << level;
            EXPECT_EQ(bar.HasChords(), *row.Chords != 0) << row.Why;
        }
    }
}

TEST(Chords, OfAStaveOnTheFirstLines) {
    BarText text({"C  ", "-----5----------", "----------------"});
    TabBar& bar = text.BarAt(1, 2);
    bar.ReadBar(nullptr);
    EXPECT_EQ(ChordsOf(bar), "C");
    BarText top({"E----5----------", "----------------"});
    TabBar& topBar = top.BarAt(0, 2);
    topBar.ReadBar(nullptr);
    EXPECT_EQ(ChordsOf(topBar), "");
}

TEST(Chords, AttachToTheNearestColumn) {
    struct Row {
        const char* Chords;
        const char* Notes;
        const char* Items;
        const char* Why;
    };
    const Row rows[] = {
        {"C       G ", "0-------1-------", "| 0+128 1:0 C, 128+128 1:1 G", "right above"},
        {"  C ", "0---1-----------", "| 0+128 1:0 C, 128+128 1:1", "half way goes left"},
        {"   C ", "0---1-----------", "| 0+128 1:0, 128+128 1:1 C", "nearer to the right"},
        {"            C ", "0---1-----------", "| 0+128 1:0, 128+128 1:1 C", "behind the last"},
        {" Gmaj7 ", "0--1------------", "| 0+128 1:0, 128+128 1:1 Gmaj7", "the middle of the symbol counts"},
        {"C D ", "--------5-------", "| 0+128 1:5 D", "the nearer one wins"},
        {"C   D ", "0---------------", "| 0+128 1:0 C", "the farther one loses"},
        {"      C   D ", "--------5-------", "| 0+128 1:5 D", "as far: the later one"},
        {"       Am    G ", "--------5-------", "| 0+128 1:5 G",
         "one behind the note beats one begun before it"},
        {"C ", "x-------5-------", "| 0+128 r C, 128+128 1:5", "a muted string's rest"},
        {"C ", "----------------", "", "no column"},
    };
    for (const Row& row : rows) {
        BarText text({row.Chords, row.Notes, "----------------"});
        TabBar& bar = text.BarAt(1, 2);
        bar.ReadBar(nullptr);
        EXPECT_EQ(ItemsOf(bar), row.Items) << row.Chords << ": " << row.Why;
        EXPECT_TRUE(bar.HasChords()) << row.Why;
    }
}

TEST(Chords, EndWithTheirBar) {
    BarText text({"     Gmaj7 ", "--1---|--2---", "------|------"});
    TabBar& first = text.BarAt(1, 2, 0);
    first.ReadBar(nullptr);
    EXPECT_EQ(ChordsOf(first), "G");
    TabBar& second = text.BarAt(1, 2, 1);
    second.ReadBar(nullptr);
    EXPECT_EQ(ChordsOf(second), "") << "its other half holds no root";
}

TEST(Chords, TellWhatBecameOfThem) {
    BarText text({" C D CD     G", "E  E  E  E  E", "--0--1-------", "------2------"});
    TabBar& bar = text.BarAt(2, 2);
    bar.ReadBar(nullptr);
    EXPECT_EQ(TimesOf(bar), "128+128 256+0 256+128");
    EXPECT_EQ(ItemsOf(bar), "| 0+128 r, 128+128 1:0 D, 256+128 0:2 1:1 C, 384+256 r");
    std::string fates;
    for (const ChordReading& reading : bar.GetChordReadings())
        fates += std::string(GetChordText(*reading.m_Chord).View()) + '@' +
                 std::to_string(reading.m_Column->m_Column) + (reading.m_Attached ? " attached" : " lost") +
                 (reading.m_Written ? " written; " : "; ");
    EXPECT_EQ(fates, "C@2 lost; D@2 attached written; C@5 attached written; D@6 attached; G@6 lost; ");
}

} // namespace Fretline
