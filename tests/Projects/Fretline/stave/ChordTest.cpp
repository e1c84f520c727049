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
    const struct {
        const char *Line, *Chords, *Why;
    } rows[] = {
        {"Fmin7 ", "Fm7", "min is written m"},
        {"CM7 ", "Cm7", "and M, as case does not count"},
        {"Gsus4 GSuS4 ", "Gsus4 Gsus4", "in any case"},
        {"GMAJ7 ", "G A", "unless a capital in it begins a chord"},
        {"C#m7/G# ", "C#m7/G#", "accidentals of root and bass"},
        {"Dsus4add9 ", "Dsus4add9", "tokens end where the class of character changes"},
        {"C#9 ", "C#9", "the sharp belongs to the root"},
        {"C #9 ", "C#9", "or to the number after a blank"},
        {"C6/9 ", "C6/9", "six-nine is no bass"},
        {"Cm6/9 ", "Cm6/9", "nor after another token"},
        {"C16/9 ", "C", "sixteen-nine is nothing"},
        {"C(#9) ", "C(#9)", "an altered note in them"},
        {"C(add9 ", "C", "cut back before the open bracket"},
        {"C(9)(b5) ", "C", "two brackets side by side are one token and fail"},
        {"C(9) (11 ", "C(9)", "only the open pair is cut"},
        {"C( ( ( 9 ", "C(((9", "three open: nothing is cut"},
        {"C(add9E ", "C E", "what was cut off is read again"},
        {"C/xG ", "C G", "but looked at again"},
        {"Cfoo/G ", "C/G", "a failed token before the slash is lost, the bass is not"},
        {"D/    G ", "D G", "four are too many"},
        {"Cm7b5 ", "Cm", "7b5 is one token, and fails"},
        {"Chorus ", "C", "a capital A to G begins a chord anywhere"},
        {"AmG ", "A G", "mG is one token, and fails"},
        {"Am7G ", "Am7 G", "the root ends the chord before it"},
        {"Cm   7 ", "Cm7", "three blanks do not end a chord"},
        {"C    m ", "C", "four do"},
        {"C m m m m ", "Cmmmm", "blanks are counted afresh after each character"},
        {"C\xE9 ", "C", "a letter beyond ASCII fails like any other sign"},
        {"Am", "A", "the token at the right edge is lost"},
    };
    for (const auto& row : rows) {
        BarText text({row.Line});
        EXPECT_EQ(ParseLine(text.File(), text.File().GetLineLength(0)), row.Chords)
            << row.Line << ": " << row.Why;
    }
}

TEST(Chords, ComeFromTheLineThatHasMore) {
    const struct {
        const char *Second, *First, *Chords, *Why;
    } rows[] = {
        {"C  ", "G D  ", "G D", "more on the nearer line"},
        {"C F  ", "G D  ", "G D", "as many: the nearer line"},
        {"C  ", "E  E  E  E", "C", "a line of note lengths is no chord line"},
    };
    for (const auto& row : rows) {
        for (const int level : {kRhythmsNever, kRhythmsWhenIndicated}) {
            BarText text({row.Second, row.First, "-----5----------", "----------------"}, level);
            const TabBar& bar = text.ReadAt(2, 2);
            EXPECT_EQ(ChordsOf(bar), row.Chords) << row.Why << ", level " << level;
            EXPECT_EQ(bar.HasChords(), *row.Chords != 0) << row.Why;
        }
    }
}

TEST(Chords, AttachToTheNearestColumn) {
    const struct {
        const char *Chords, *Notes, *Items, *Why;
    } rows[] = {
        {"  C ", "0---1-----------", "| 0+128 1:0 C, 128+128 1:1", "half way goes left"},
        {"            C ", "0---1-----------", "| 0+128 1:0, 128+128 1:1 C", "after the last"},
        {" Gmaj7 ", "0--1------------", "| 0+128 1:0, 128+128 1:1 Gmaj7", "the middle of the symbol counts"},
        {"      C   D ", "--------5-------", "| 0+128 1:5 D", "as far: the later one"},
        {"       Am    G ", "--------5-------", "| 0+128 1:5 G", "the later begins nearer"},
        {"C ", "x-------5-------", "| 0+128 r C, 128+128 1:5", "a muted string's rest"},
        {"C ", "----------------", "", "no column"},
    };
    for (const auto& row : rows) {
        BarText text({row.Chords, row.Notes, "----------------"});
        const TabBar& bar = text.ReadAt(1, 2);
        EXPECT_EQ(ItemsOf(bar), row.Items) << row.Chords << ": " << row.Why;
        EXPECT_TRUE(bar.HasChords()) << row.Why;
    }
}

TEST(Chords, TellWhatBecameOfThem) {
    BarText text({" C D CD     G", "E  E  E  E  E", "--0--1-------", "------2------"});
    const TabBar& bar = text.ReadAt(2, 2);
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
