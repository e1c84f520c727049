#include "Projects/TabText/Markings.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/Preparation.h"
#include "tests/Projects/TabText/ReadText.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

namespace {

using Score::Technique;
using TestSupport::ReadText;

const char* ShortName(Technique kind) {
    static const std::map<Technique, const char*> kNames{
        {Technique::HammerOn, "hammer"},
        {Technique::PullOff, "pull"},
        {Technique::Slide, "slide"},
        {Technique::SlideIn, "in"},
        {Technique::SlideOut, "out"},
        {Technique::Bend, "bend"},
        {Technique::Release, "release"},
        {Technique::Vibrato, "vibrato"},
        {Technique::Dead, "dead"},
        {Technique::NaturalHarmonic, "natural"},
        {Technique::ArtificialHarmonic, "artificial"},
        {Technique::Trill, "trill"},
        {Technique::Tap, "tap"},
        {Technique::Ghost, "ghost"},
        {Technique::PalmMute, "palm"},
        {Technique::LetRing, "ring"},
        {Technique::Accent, "accent"},
        {Technique::DownStroke, "down"},
        {Technique::UpStroke, "up"},
    };
    return kNames.at(kind);
}

// The line as the lowest of six, with what stands above them.
std::string With(const std::string& line, const std::string& above = {}) {
    std::string empty = line;
    for (char& c : empty)
        c = c == '|' ? '|' : '-';
    return above + TestSupport::Stave(empty, 5) + line + "\n";
}

// Each mark as the column of its note, counted from 0, its kind, and its amount unless that is 0.
std::string MarksOf(const std::string& text) {
    std::string found;
    const ReadText reading(text);
    for (const TabText::NoteMark& mark : TabText::ReadMarkings(*reading).Notes)
        found += (found.empty() ? "" : ", ") + std::to_string(mark.NoteColumn) + " " +
                 ShortName(mark.What.Kind) +
                 (mark.What.Amount == 0 ? "" : " " + std::to_string(mark.What.Amount));
    return found;
}

struct Case {
    std::string Text;
    const char *Marks, *Why;
};

TEST(Markings, OfNotes) {
    const Case kCases[] = {
        {With("|-5---7-12-|"), "", "frets alone"},
        {With("|-5h7-----|"), "2 hammer", "hammer-on"},
        {With("|-5-h-7---|"), "2 hammer", "with dashes around the sign"},
        {With("|-12h14p12-|"), "2 hammer, 5 pull", "a chain"},
        {With("|-5^7^5---|"), "2 hammer, 4 pull", "up is hammered, down is pulled"},
        {With("|-h7------|"), "", "hammered from nothing"},
        {With("|-7h------|"), "", "hammered to nothing"},
        {With("|-7h-|-9--|"), "2 hammer", "over a barline"},
        {With("|-9--|-p7-|"), "2 pull", "the sign after it"},
        {With("|-7-x|-h9-|"), "4 dead", "not from a dead note"},
        {With("|-7-/||-9-|"), "2 slide", "over a double one"},
        {With("|-7-/|9----|"), "", "into the first note: its bar has no sign"},
        {With("|-7/--|-9--|"), "2 out 1", "a sign at one note belongs to that"},
        {With("|-7t|12----|"), "", "tapped over there: no place for it"},
        {With("|-5-5-5-7-|", "  D   U d\n\n"), "2 down, 6 up, 8 down", "strokes"},
        {With("|-5-5-5-7-|\n  U D\n"), "", "strokes below"},
        {With("|-5-5-5-7-|", "  D   D\n\n"), "", "two chords"},
        {With("|-5-5-5-7-|", "  u  d\n\n"), "", "one of them over no note"},
        {With("|-5-5-5-7-|", " u d\n\n"), "2 up, 4 down", "all one column off"},
        {With("|-5-5-12--|", "      >\n\n"), "6 accent", "an accent"},
        {With("|-5-5-12--|", "  u   >\n\n"), "", "a line of both is neither"},
        {With("|-5/7\\5---|"), "2 slide, 4 slide", "there and back"},
        {With("|-5s7-----|"), "2 slide", "slide by letter"},
        {With("|-/7------|"), "3 in 1", "into the note from below"},
        {With("|-\\7------|"), "3 in -1", "and from above"},
        {With("|-7\\------|"), "2 out -1", "out of the note"},
        {With("|-5---/7--|"), "7 in 1", "a sign at one note belongs to that"},
        {With("|-5/---7--|"), "2 out 1", "or to the other"},
        {With("|-5-/-7---|"), "2 slide", "a sign in the middle connects"},
        {With("|-7b------|"), "2 bend 4", "by a tone"},
        {With("|-7b8-----|"), "2 bend 2", "to a fret"},
        {With("|-7b(9)---|"), "2 bend 4", "to a fret in brackets, which is no ghost note"},
        {With("|-7b9r7---|"), "2 bend 4, 4 release", "and back"},
        {With("|-7b1/2---|"), "2 bend 2", "by an amount, and no slide"},
        {With("|-7b1-----|"), "2 bend 4", "by one tone"},
        {With("|-7bfull--|"), "2 bend 4", "in words"},
        {With("|-7b(1/2)-|"), "2 bend 2", "in brackets, and no slide"},
        {With("|-7b3/4---|"), "2 bend 3", "three quarters"},
        {With("|-7b1.5---|"), "2 bend 6", "with a point"},
        {With("|-7b.5-9b0.25-|"), "2 bend 2, 7 bend 1", "of a half and of a quarter"},
        {With("|-7b[1 1/2]--|"), "2 bend 6", "a whole one and a half"},
        {With("|-2b3-7b12-|"), "2 bend 2, 6 bend 10", "higher frets"},
        {With("|-7b5-|"), "2 bend 4", "nobody bends down"},
        {With("|-7b9b7---|"), "2 bend 4, 4 release", "and back"},
        {With("|-10b12b13-|"), "2 bend 4, 5 bend 2", "and farther"},
        {With("|-10b12^13-|"), "2 bend 4, 5 bend 2", "by the other sign"},
        {With("|-10b12--^13-|"), "2 bend 4, 5 hammer", "apart from it"},
        {With("|-7pb9----|"), "2 bend 4", "bent before it is struck"},
        {With("|-7---b9--|"), "2 bend 4", "up to that"},
        {With("|-7---b5--|"), "", "nothing says what is bent"},
        {With("|-7b8r(7)-|"), "2 bend 2, 4 release", "released to a fret in brackets"},
        {With("|-7b----7b8--7b--|", "   1/2  full   1 1/2\n\n"), "2 bend 2, 8 bend 2, 13 bend 6",
         "over it, where it says nothing itself"},
        {With("|-7b------7--|", "  1/2     ~~\n\n"), "2 bend 2, 10 vibrato", "beside another sign"},
        {With("|-7b------|", "  1/2 step\n\n"), "2 bend 4", "a remark"},
        {With("|-7b------|", "  3/4\n\n"), "2 bend 4", "a time signature"},
        {With("|-5H7-5S7-7B9-|"), "2 hammer, 6 slide, 10 bend 4", "capitals"},
        {With("|-7TR9-7-HARM-|"), "2 trill 9", "but no words"},
        {With("|-7~~~~-9v|"), "2 vibrato, 8 vibrato", "a wave is one mark"},
        {With("|-7-~~----|"), "2 vibrato", "apart from its note"},
        {With("|-x--X----|"), "2 dead, 5 dead", "dead notes"},
        {With("|-xh7-----|"), "2 dead", "nobody hammers from a dead note"},
        {With("|-<12>----|"), "3 natural", "harmonic"},
        {With("|-12*-----|"), "2 natural", "with a star"},
        {With("|-5-*12*--|"), "5 natural", "with two"},
        {With("|-<7--12>-|"), "3 natural, 6 natural", "two in one pair of brackets"},
        {With("|-7tr9----|"), "2 trill 9", "with the fret it goes to"},
        {With("|-t12p7---|"), "3 tap, 3 pull", "tapped"},
        {With("|-T<12>-12t-|"), "4 tap, 4 natural", "a tapped harmonic; a sign of nothing"},
        {With("|-(7)-----|"), "3 ghost", "in brackets"},
        {With("|-(5h7~)-9|"), "3 ghost, 3 hammer, 5 ghost, 5 vibrato", "several in brackets"},
        {With("|-(5-(7)--|"), "6 ghost", "brackets that are not closed"},
        {With("|-7(-----9)|"), "", "brackets that do not hold a fret"},
        {With("|-x/7-9\\x--|"), "2 dead, 4 in 1, 6 out -1, 8 dead", "no slide has a dead note"},
        {With("|-5^5-----|"), "", "nor does one lead from a fret to itself"},
        {With("|-5-5-5-7-|", "PM-----\n\n"), "2 palm, 4 palm, 6 palm", "over its dashes"},
        {With("|-5-5-5-7-|", "  P.M. - - -|\n\n"), "2 palm, 4 palm, 6 palm, 8 palm", "with points and gaps"},
        {With("|-5-5-5-7-|", "  let ring\n\n"), "2 ring, 4 ring, 6 ring, 8 ring", "over its letters"},
        {With("|-5-12----|", "    N.H.\n\n"), "4 natural", "harmonics from above"},
        {With("|-5-12----|", "  Phil phones\n\n"), "", "words are no signs"},
        {With("|-5-12----|", "  Ah, ah\n\n"), "", "nor is what is sung"},
        {With("|-5-12----|", "  PM = palm mute\n\n"), "", "nor a legend"},
        {With("|-5-7--12-|", "  tr~~ harm.\n\n"), "2 trill, 4 trill, 7 natural", "a trill, harmonics"},
        {With("|-5-7--12-|", "  palm mute\n\n"), "2 palm, 4 palm, 7 palm", "in words"},
        {With("|-5----12-|", "     ~~\n\n"), "2 vibrato", "a wave after its note"},
        {With("|-5----12-|", " ~ Verse ~~\n\n"), "", "and around a title"},
        {With("|-5----12-|", "~~~~~~~~~\n\n"), "", "and under one"},
        {With("|-5-12-7--|", "  N.H. AH  Am\n\n"), "2 natural, 4 natural, 7 artificial",
         "among others and chords"},
        {With("|-5-5-5-7-|", "  |--PM|\n\n"), "4 palm, 6 palm", "dashes before the word"},
        {With("|-5-5-5-7-|", "   PM\n\n"), "4 palm", "over its letters"},
        {With("|-5-----7-|", "   PM----\n\n"), "8 palm", "as far as its dashes"},
        {With("|-5-----7-|", "   PM--\n\n"), "2 palm", "a column right of its only note"},
        {TestSupport::Stave("|-5-|", 4) + "  PM\n\n" + TestSupport::Stave("|-5-|", 3) + "|---|\n",
         "2 palm, 2 palm, 2 palm, 2 palm", "right below a stave, a blank line before the next"},
        {TestSupport::Stave("|-5-|", 4) + "\n  PM\n" + TestSupport::Stave("|-5-|", 3) + "|---|\n",
         "2 palm, 2 palm, 2 palm", "right above the other"},
        {TestSupport::Stave("|-5-|", 4) + "  PM\n" + TestSupport::Stave("|-5-|", 3) + "|---|\n",
         "2 palm, 2 palm, 2 palm", "between two that nothing separates"},
        {"h = slide\n\n" + With("|-5h7-----|"), "2 slide", "the legend says otherwise"},
        {"s = slap\nT = slide\n\n" + With("|-5S7T9-12t-t5-|"), "4 slide, 13 tap", "capitals of its signs"},
        {"v: slap with the thumb\n\n" + With("|-7v------|"), "", "no technique that is known"},
        {"h - hammer on\nv = accent\n\n" + With("|-5h7v----|"), "2 hammer, 4 accent", "two entries"},
        {"(h = hammer-on, p = pull-off, v=slide)\n\n" + With("|-5v7h9-|"), "2 slide, 4 hammer",
         "several in a line"},
        {"Key:  | v  bend   + harmonic\n\n" + With("|-5v-12+-|"), "2 bend 4, 5 natural",
         "nothing between them"},
        {"T = thumb, h = slap\n\n" + With("|-T5h7-|"), "", "both are no techniques"},
        {"~~~ = let ring\n\n" + With("|-5~~-|"), "2 ring", "a wave"},
        {"play it with a slide, h of course\n\n" + With("|-5h7-|"), "2 hammer", "no legend"},
        {"* = palm mute\n\n" + With("|-7*-----|"), "2 palm", "palm mute of one note"},
    };
    for (const Case& row : kCases)
        EXPECT_EQ(row.Marks, MarksOf(row.Text)) << row.Why << "\n" << row.Text;
}

TEST(Markings, KnowTheBendsOfAPreparedText) {
    const TabText::PreparedText prepared =
        TabText::Prepare("e|-000-7b8r7~-7b1/2-5^7-7b-9b11^12-9b10b1-|\n" +
                         TestSupport::Stave("-|----------------------------------------|", 5));
    const ReadText reading(prepared.Text);
    std::string bends;
    for (const TabText::NoteMark& mark : TabText::ReadMarkings(*reading, &prepared.Map).Notes)
        if (mark.What.Kind == Technique::Bend)
            bends += prepared.Text.substr(static_cast<std::size_t>(mark.NoteColumn), 2) +
                     std::to_string(mark.What.Amount) + " ";
    EXPECT_EQ("7b2 7b2 5b4 7b4 9b4 9b2 9b2 ", bends) << prepared.Text;
    EXPECT_TRUE(prepared.Text.starts_with("e|-0-0-0-")) << "the signs have other columns";
}

// Each marked bar as its index, "[" for a start, "]" and the times for an end.
std::string RepeatsOf(const std::string& text) {
    std::string found;
    const ReadText reading(text);
    for (const TabText::BarMark& mark : TabText::ReadMarkings(*reading).Bars)
        found += (found.empty() ? "" : ", ") + std::to_string(mark.Bar) + (mark.Repeats.IsStart ? "[" : "") +
                 (mark.Repeats.IsEnd ? "]" + std::to_string(mark.Repeats.Times) : "");
    return found;
}

TEST(Markings, OfBars) {
    const std::string outer = "||---|-----||\n";
    const std::string dotted = "||*--|----*||\n";
    const Case kCases[] = {
        {With("|-5---|-7---|"), "", "nothing is repeated"},
        {outer + dotted + outer + outer + dotted + "||-5-|--7--||\n", "0[, 1]2", "stars on two lines"},
        {TestSupport::Stave("|:-5-|--7-:|", 4), "0[, 1]2", "dots on all lines"},
        {TestSupport::Stave("|-5-|--7-:|", 4), "1]2", "from the beginning"},
        {TestSupport::Stave("|-5-|--7--|", 4) + "", "", "no dots"},
        {TestSupport::Stave("|-5-|--7--| x4", 4), "0[, 1]4", "a whole stave"},
        {"    (2x)\n" + TestSupport::Stave("|-5-|--7--|", 4), "0[, 1]2", "above it"},
        {TestSupport::Stave("|:-5-|--7-:| x3", 4), "0[, 1]3", "how often the signs mean"},
        {TestSupport::Stave("|-5-|--7--|", 4) + "(play 4 times)\n", "0[, 1]4", "right below it"},
        {TestSupport::Stave("|-5-|--7--|", 4) + "x 3\n" + TestSupport::Stave("|-5-|--7--|", 4), "2[, 3]3",
         "right above the next"},
        {"Intro (x3)\nsoftly\n\n" + TestSupport::Stave("|-5-|", 4), "0[]3", "beside a label"},
        {TestSupport::Stave("|-5-|", 4) + "x3\n\n" + TestSupport::Stave("|-5-|", 4), "0[]3",
         "right below the other"},
        {"played twice\n" + TestSupport::Stave("|-5-|", 4), "0[]2", "in words"},
        {"3 times\n" + TestSupport::Stave("|-5-|", 4), "0[]3", "alone"},
        {"we did this 3 times\n" + TestSupport::Stave("|-5-|", 4), "", "a tale"},
        {"repeat 3 times\n" + TestSupport::Stave("|-5-|", 4), "", "four in all or three"},
        {"  x3     x2\n" + TestSupport::Stave("|:-5-:|:-7-:|", 4), "0[]3, 1[]2", "each over its own"},
        {"  x3     x2\n" + TestSupport::Stave("|--5--|--7--|", 4), "", "but nothing says from where on"},
        {outer + "||o--|-----||\n" + outer + outer + outer + "||-5-|--7--||\n", "", "a lone sign"},
    };
    for (const Case& row : kCases)
        EXPECT_EQ(row.Marks, RepeatsOf(row.Text)) << row.Why << "\n" << row.Text;
}

// Each bar with an ending or a sign of the way: its index, the times of the ending, the signs.
std::string WayOf(const std::string& text) {
    std::string found;
    const ReadText reading(text);
    const TabText::Markings markings = TabText::ReadMarkings(*reading);
    for (const TabText::BarMark& mark : markings.Bars) {
        std::string signs;
        for (const int time : mark.Repeats.Endings)
            signs += " " + std::to_string(time) + ".";
        const Score::ModelWay& way = mark.Way;
        signs += way.HasSegno ? " segno" : "";
        signs += way.HasCoda ? " coda" : "";
        signs += way.HasToCoda ? " to" : "";
        signs += way.HasFine ? " fine" : "";
        signs += way.To == Score::Jump::None ? "" : " " + JumpText(way);
        signs += mark.Tempo == 0 ? "" : " q=" + std::to_string(mark.Tempo);
        if (!signs.empty())
            found += (found.empty() ? "" : ", ") + std::to_string(mark.Bar) + signs;
    }
    for (const TabText::UnclearSign& sign : markings.Unclear)
        found += (found.empty() ? "" : ", ") + std::string("? ") + sign.Why;
    return found;
}

TEST(Markings, OfTheWay) {
    const std::string repeat = TestSupport::Stave("|-5---|-7--:|-9---|-9---|", 4);
    const std::string plain = TestSupport::Stave("|-5---|-7---|-9---|-9---|", 4);
    const Case kCases[] = {
        {repeat, "", "no signs"},
        {"       1.    2.\n" + repeat, "1 1., 2 2.", "numbers with points"},
        {"      |1.---|2.---------|\n\n" + repeat, "1 1., 2 2., 3 2.", "drawn, the second over two bars"},
        {"      __1__ __2__\n" + repeat, "1 1., 2 2.", "drawn without points"},
        {"  1st time 2nd\n" + TestSupport::Stave("|-5---:|-7---|", 4), "0 1., 1 2.", "in words"},
        {"Segno 1st time 2nd time Am7\n" + TestSupport::Stave("|-5---------:|-7---|", 4), "0 1., 1 2.",
         "among other words"},
        {"      1.-3. 4.\n" + repeat, "1 1. 2. 3., 2 4.", "a range"},
        {"      1,2.  3.\n" + repeat, "1 1. 2., 2 3.", "a list"},
        {"      (1)   (2)\n" + repeat, "1 1., 2 2.", "in brackets"},
        {"      |1,2  |3\n" + repeat, "1 1. 2., 2 3.", "without an end"},
        {"(1)   (2)   (3)   (4)\n" + plain, "", "which count bars as well"},
        {"      1.\n" + repeat, "? there is no second ending after it", "the first alone"},
        {"            2.\n" + repeat, "? there is no first ending before it", "the second alone"},
        {"      1.    2.\n" + plain,
         "? no repeat sign says where the first ending ends, ? no repeat sign says where the first ending "
         "ends",
         "nothing is repeated"},
        {"      1     2\n" + repeat, "", "numbers alone could be anything"},
        {"|1--2-|3--4-|\n\n" + repeat, "", "counts of beats"},
        {"      1. Bridge\n" + repeat, "", "an item of a list"},
        {"             Fine\n" + TestSupport::Stave("|-5---------|-7---------|", 4) + "D.C. al Fine\n",
         "? no single bar ends with the Fine", "it may end the bar before"},
        {"        Fine\n" + plain + "                    D.C. al Fine\n", "1 fine, 3 D.C. al Fine",
         "to the fine"},
        {"        Fine\n" + TestSupport::Stave("|-5---|-7---|", 3) + "|-5---|-7---| D.C. al Fine\n",
         "1 fine D.C. al Fine", "after the stave"},
        {"Segno\n" + plain + "\nDal Segno\n\n" + plain, "0 segno, 3 D.S.", "between two staves"},
        {"      %\n" + plain + "D.S.\n", "1 segno, 3 D.S.", "its symbol"},
        {"Segno %    %\n" + plain + "D.S.\n", "0 segno, 3 D.S.", "which is nothing beside the word"},
        {"%     %    %\n" + plain, "", "and without a jump"},
        {plain + "Dal Segno\n", "? no single bar begins with the Segno", "its segno is missing"},
        {"Segno   To Coda\n" + plain + "D.S. al Coda\n\n\nCoda\n" + plain,
         "0 segno, 1 to, 3 D.S. al Coda, 4 coda", "to the coda"},
        {"Fine\n" + plain + "D.C.\n", "3 D.C.", "a word that no jump needs"},
        {plain + "D.S.\n\n\nSegno\n" + plain, "? the signs that it leads to stand in another order",
         "a segno after the jump"},
        {plain + "D.C. al Fine\n\n\n        Fine\n" + plain,
         "? the signs that it leads to stand in another order", "a fine after the jump"},
        {"we play D.C. later\n" + plain, "", "words among others"},
        {plain + "D.C.\n\n" + plain + "D.C.\n", "? the text has another jump, ? the text has another jump",
         "two jumps"},
        {"Tempo: 90\n\n" + plain + "\nTempo: 120\n\n" + plain, "4 q=120", "the tempo changes"},
        {plain + "\nslower  Tempo: 60\n" + plain, "5 q=60", "it is stated late, and over the second bar"},
        {"Tempo: 90\nq=120\n" + plain + "\n90 bpm\n\n" + plain, "", "it does not"},
    };
    for (const Case& row : kCases)
        EXPECT_EQ(row.Marks, WayOf(row.Text)) << row.Why << "\n" << row.Text;
}

// One table of signs, in the README as in the program.
TEST(Markings, StandInTheReadme) {
    constexpr std::size_t kWidth = 34;
    std::string table;
    for (const TabText::SignRow& row : TabText::SignTable())
        table += "    " + row.Shown + std::string(kWidth - row.Shown.size(), ' ') + std::string(row.Meaning) +
                 "\n";
    std::ostringstream readme;
    readme << std::ifstream(FRETLINE_SOURCE_DIR "/README.md").rdbuf();
    EXPECT_NE(std::string::npos, readme.str().find("\n\n" + table + "\n")) << table;
}

TEST(Markings, ReachOverTheirBrackets) {
    const ReadText reading(With("|-(5)7------|"));
    const TabText::Markings markings = TabText::ReadMarkings(*reading);
    ASSERT_EQ(1U, markings.Notes.size());
    EXPECT_EQ(2, markings.Notes[0].Column);
    EXPECT_EQ(5, markings.Notes[0].EndColumn) << "also where a note follows";
}

TEST(Markings, NameTheSignsOfAText) {
    const auto signsOf = [](const std::string& text) {
        const ReadText reading(text);
        std::string shown;
        for (const TabText::SignRow& row : TabText::SignsOf(*reading, TabText::ReadMarkings(*reading)))
            shown += row.Shown + " = " + std::string(row.Meaning) + "; ";
        return shown;
    };
    EXPECT_EQ("", signsOf(With("|-5---7-12-|")));
    EXPECT_EQ(
        "5h7 = hammer-on; 5^7 = hammer-on upward, pull-off downward; 5\\7 = slide down; <7> = harmonic; ",
        signsOf(With("|7\\5h7^5-<12>-|")));
    EXPECT_EQ("|:  :|, ||*  *|| = repeat; x4, (2x), play 3 times = after, above or below a stave: played so "
              "many times; ",
              signsOf(TestSupport::Stave("|:-5--:| x3", 4)));
    EXPECT_EQ("", signsOf("v = palm mute\n\n" + With("|-7v-------|"))) << "the legend's own sign";
}

TEST(Markings, OfTheWholePiece) {
    const auto headingOf = [](const std::string& words) {
        const ReadText reading(words + "\n\n\n" + With("|-5---|"));
        return TabText::ReadMarkings(*reading).Heading;
    };
    EXPECT_EQ((Score::ModelHeading{"Blue Bird", "A Trio", 120, 2, false}),
              headingOf("Title: Blue Bird\nArtist:  A Trio\nTempo: 120\nCapo on fret 2"));
    EXPECT_EQ((Score::ModelHeading{"BLUE BIRD", "THE TRIO"}),
              headingOf("* \"BLUE BIRD\" by THE TRIO *\nsomething"));
    EXPECT_EQ((Score::ModelHeading{"Blue Bird", "A Trio"}), headingOf("Blue Bird\n\nby A Trio\n"));
    for (const char* words : {"Tabbed by Somebody", "Words and music by A Trio", "Blue Bird\ntabbed by me",
                              "by A Trio", "Blue Bird - A Trio", "Key: low\nby a tone"})
        EXPECT_EQ(Score::ModelHeading{}, headingOf(words)) << words;
    EXPECT_EQ(4, headingOf("Capo: IV").Capo);
    EXPECT_EQ(1, headingOf("(Capo I)").Capo);
    EXPECT_EQ(0, headingOf("no capo, I think").Capo);
    EXPECT_EQ(2, headingOf("Capo=2nd fret").Capo);
    EXPECT_EQ(2, headingOf("capo II, swing 8ths").Capo);
    EXPECT_EQ(0, headingOf("no capo, swing 8ths").Capo);
    EXPECT_EQ(96, headingOf("q=96").Tempo);
    EXPECT_EQ(132, headingOf("played at 132 bpm").Tempo);
    EXPECT_EQ(0, headingOf("Tempo: 5000").Tempo) << "nobody plays that";
    EXPECT_EQ(72, headingOf("tempo: quarter = 72, 3/4 time").Tempo);
    EXPECT_EQ(100, headingOf("Quarter note = 100").Tempo);
    EXPECT_EQ(90, headingOf("J=90").Tempo);
    EXPECT_EQ(0, headingOf("a quarter step up, = 50 cents").Tempo);
    EXPECT_TRUE(headingOf("with a shuffle feel").IsSwung);
    EXPECT_EQ(Score::ModelHeading{}, headingOf("Just a song, no capo"));
}

TEST(Markings, OfATextBarThatGaveSeveral) {
    std::string line;
    for (int note = 0; note < 24; ++note)
        line += "--5-";
    const ReadText reading("4/4\nTempo: 90\n" + TestSupport::Stave(line, 4) + "Fine\n",
                           Fretline::kRhythmsAlways);
    const auto count = static_cast<std::size_t>(reading->GetBars().front().Bar->ScoreBarCount());
    ASSERT_GT(count, 1U);
    TabText::Markings markings;
    markings.Bars.resize(1);
    markings.Bars.front().Repeats = {true, true, 3, {1}};
    markings.Bars.front().Way = {true, false, false, true, Score::Jump::DalSegno, Score::JumpEnd::Fine};
    Score::ScoreModel score;
    score.Bars.resize(count);
    TabText::JoinMarkings(*reading, markings, score);
    EXPECT_EQ((Score::ModelRepeats{true, false, 2, {1}}), score.Bars.front().Repeats);
    EXPECT_EQ((Score::ModelRepeats{false, true, 3, {1}}), score.Bars.back().Repeats);
    EXPECT_EQ((Score::ModelWay{true}), score.Bars.front().Way);
    EXPECT_EQ((Score::ModelWay{false, false, false, true, Score::Jump::DalSegno, Score::JumpEnd::Fine}),
              score.Bars.back().Way);
}

TEST(Markings, GiveEachStaveItsStringsAndFrets) {
    const auto stave = [](const std::string& letters, const std::string& lowest) {
        std::string text;
        for (std::size_t line = 0; line < letters.size(); ++line)
            text += letters[line] + (line + 1 == letters.size() ? lowest : "|-----|") + "\n";
        return text + "\n";
    };
    const ReadText reading(stave("eBGDAE", "|-3---|") + stave("eBGDAD", "|-0---|") +
                           stave("eBGDAD", "|-5---|") + stave("BGDAD", "|-1---|") + stave("GDAE", "|-2---|"));
    Score::ScoreModel score;
    score.Tuning = {40, 45, 50, 55, 59, 64};
    score.Bars.resize(5);
    // As a score alone has them: frets from the first tuning.
    score.Bars[0].Events = {{0, 128, {{0, 3, 43, 25, false}}}};
    score.Bars[1].Events = {{0, 128, {{0, -2, 38, 22, false}}}};
    score.Bars[2].Events = {{0, 128, {{0, 3, 43, 25, false}}}};
    score.Bars[3].Events = {{0, 128, {{0, -1, 39, 23, false}}}};
    score.Bars[4].Events = {{0, 128, {{0, -10, 30, 17, false}}}};
    TabText::JoinTunings(*reading, score);
    const std::optional<std::vector<int>> none;
    EXPECT_EQ(none, score.Bars[0].Tuning) << "the score says it";
    EXPECT_EQ((std::vector{38, 45, 50, 55, 59, 64}), score.Bars[1].Tuning);
    EXPECT_EQ(none, score.Bars[2].Tuning) << "nothing changes";
    EXPECT_EQ(none, score.Bars[3].Tuning) << "the highest line is missing";
    EXPECT_EQ((std::vector{28, 33, 38, 43}), score.Bars[4].Tuning);
    const int kFrets[] = {3, 0, 5, 1, 2};
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar)
        EXPECT_EQ(kFrets[bar], score.Bars[bar].Events[0].Notes[0].Fret) << "bar " << bar;
}

TEST(Markings, JoinTheNotesOfTheScore) {
    const ReadText reading(With("|-5h7-x---|-9~~---|", "(x2)\n"));
    Score::ScoreModel score;
    score.Tuning = {40, 45, 50, 55, 59, 64};
    score.Bars.resize(2);
    score.Bars[0].Events = {
        {0, 128, {{0, 5, 45, 26, false}}}, {128, 128, {{0, 7, 47, 27, false}}}, {256, 128, {}}};
    score.Bars[1].Events = {{0, 128, {{1, 9, 54, 31, false}, {0, 9, 49, 28, false}}}};
    TabText::JoinMarkings(*reading, TabText::ReadMarkings(*reading), score);
    using Techniques = std::vector<Score::ModelTechnique>;
    EXPECT_EQ((Techniques{{Technique::HammerOn, 0}}), score.Bars[0].Events[0].Notes[0].Techniques);
    EXPECT_TRUE(score.Bars[0].Events[1].Notes[0].Techniques.empty());
    ASSERT_EQ(1U, score.Bars[0].Events[2].Notes.size()) << "the rest holds a dead note now";
    EXPECT_EQ((Techniques{{Technique::Dead, 0}}), score.Bars[0].Events[2].Notes[0].Techniques);
    EXPECT_EQ(40, score.Bars[0].Events[2].Notes[0].Midi) << "on the open string";
    EXPECT_TRUE(score.Bars[1].Events[0].Notes[0].Techniques.empty()) << "another string";
    EXPECT_EQ((Techniques{{Technique::Vibrato, 0}}), score.Bars[1].Events[0].Notes[1].Techniques);
    EXPECT_EQ((Score::ModelRepeats{true, false, 2}), score.Bars[0].Repeats);
    EXPECT_EQ((Score::ModelRepeats{false, true, 2}), score.Bars[1].Repeats);
}

TEST(Markings, JoinNumbersThatEndInOneColumn) {
    // They sound together, and the longer one begins left of their column.
    const ReadText reading("e|-12~---|\nB|--3----|\nG|-------|\nD|-------|\nA|-------|\nE|-------|\n");
    Score::ScoreModel score;
    score.Tuning = {40, 45, 50, 55, 59, 64};
    score.Bars.resize(1);
    score.Bars[0].Events = {{0, 1024, {{4, 3, 62, 36, false}, {5, 12, 76, 44, false}}}};
    TabText::JoinMarkings(*reading, TabText::ReadMarkings(*reading), score);
    EXPECT_TRUE(score.Bars[0].Events[0].Notes[0].Techniques.empty());
    EXPECT_EQ((std::vector<Score::ModelTechnique>{{Technique::Vibrato, 0}}),
              score.Bars[0].Events[0].Notes[1].Techniques);
}

TEST(Markings, JoinBendsThatGoOn) {
    const struct {
        const char *Line, *Why;
        std::vector<Score::ModelTechnique> Expected;
    } rows[] = {
        {"|-9b11b12r9-|",
         "one release of both",
         {{Technique::Bend, 4}, {Technique::Bend, 2}, {Technique::Release}}},
        {"|-9b11r9b11-|",
         "a bend after the release is none of the note's",
         {{Technique::Bend, 4}, {Technique::Release}}},
    };
    for (const auto& row : rows) {
        const std::string line = row.Line;
        const TabText::PreparedText prepared = TabText::Prepare(
            TestSupport::Stave("|" + std::string(line.size() - 2, '-') + "|", 5) + line + "\n");
        const ReadText reading(prepared.Text);
        Score::ScoreModel score;
        score.Tuning = {40, 45, 50, 55, 59, 64};
        score.Bars.resize(1);
        score.Bars[0].Events = {{0, 1024, {{0, 9, 49, 28, false}}}};
        TabText::JoinMarkings(*reading, TabText::ReadMarkings(*reading, &prepared.Map), score);
        EXPECT_EQ(row.Expected, score.Bars[0].Events[0].Notes[0].Techniques) << row.Why << "\n"
                                                                             << prepared.Text;
    }
}

} // namespace
