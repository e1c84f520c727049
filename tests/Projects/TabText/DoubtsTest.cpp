#include "Projects/TabText/Doubts.h"

#include "Projects/TabText/Markings.h"

#include "tests/Projects/TabText/ReadText.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace {

using TestSupport::Stave;

// Line and column of each doubt, counted from 1, and its kind: "3:5 glued-digits".
std::string DoubtsOf(const std::string& text, int rhythmLevel = Fretline::kRhythmsWhenIndicated) {
    std::string found;
    const TestSupport::ReadText reading(text, rhythmLevel);
    for (const TabText::Doubt& doubt : TabText::FindDoubts(*reading, TabText::ReadMarkings(*reading)))
        found += (found.empty() ? "" : ", ") + std::to_string(doubt.Line + 1) + ":" +
                 std::to_string(doubt.Column + 1) + " " + TabText::NameOf(doubt.Kind).Id;
    return found;
}

std::string Named(const std::string& letters, const std::string& line) {
    std::string stave;
    for (const char letter : letters)
        stave += letter + line + "\n";
    return stave;
}

struct Case {
    std::string Text;
    const char *Doubts, *Why;
};

const std::string kStave = Named("eBGDA", "|---------|---------|") + "E|-0---1---|-2---3---|\n";

// A stave of six lines under `above`, with `line` as its lowest.
std::string With(const std::string& line, const std::string& above = {}) {
    std::string empty = line;
    for (char& c : empty)
        c = c == '|' ? '|' : '-';
    return above + Stave(empty, 5) + line + "\n";
}

void ExpectDoubts(std::initializer_list<Case> cases, int rhythmLevel = Fretline::kRhythmsWhenIndicated) {
    for (const Case& row : cases)
        EXPECT_EQ(row.Doubts, DoubtsOf(row.Text, rhythmLevel)) << row.Why << "\n" << row.Text;
}

TEST(Doubts, OfStaves) {
    ExpectDoubts({
        {kStave, "", "a tidy stave"},
        {kStave + "\n" + Stave("|-0---1---|", 4), "8:1 stave-size", "a bass under a guitar"},
        {kStave + "\n" + Stave("|-0---1---|", 4) + "\n" + Stave("|-0---1---|", 4), "8:1 stave-size",
         "said once for staves in a row"},
        {Stave("|-0---1---|", 7), "7:1 cut-run", "the seventh line stands alone"},
        {Stave("|-0---1---|", 12), "", "two staves without a gap"},
        {Stave("|-0---1---|", 3), "1:1 short-run", "three strings"},
        {"E|--3--0--3--|\n\n" + kStave, "1:1 short-run", "a riff on one string"},
        {"-----------------\n\n" + kStave, "", "a rule is no string"},
        {"My song -- by me - 2015-04-03\n\n\n" + kStave, "", "nor are words with hyphens"},
        {"so -  long and - far a\n" + kStave, "", "lyrics are rightly cut off a stave"},
        {Stave("|-0---1---|-2---3---|", 6) + "|-0--|\n", "7:1 cut-line", "a string drawn too short"},
        {"PM-----------------|\n" + Stave("|---0---1---2---3-|", 4),
         "1:1 annotation, 1:1 broken-barline, 1:19 broken-barline",
         "five strings, one of them none, and no barline goes through it"},
        {"PM-----------------|\n" + Stave("|-0-1-|-2-3-|-0-1-|", 4), "1:1 short-run",
         "beside a line of so many dashes the strings look like none"},
        {With("|-0-1---2-3-|") + "\n" + Stave("|-0-1-|-2-3-|", 3) + "|-0-1---2-3-|\n" +
             Stave("|-0-1-|-2-3-|", 2),
         "8:7 broken-barline", "one line without the barline"},
        {Stave("---0-1-2-3-0-1-2-3-0---", 6), "1:1 no-barlines", "nine notes and no barline"},
        {Stave("|---0-1-2-3-0-1-2-3-0---|", 6), "", "one long bar between barlines"},
        {Stave("---0-1-2---", 6), "", "a short phrase needs no barline"},
    });
}

TEST(Doubts, OfTunings) {
    const std::string low = Named("eBGDA", "|-----|") + "D|-0-3-|\n";
    const std::string high = Named("eBGDA", "|-----|") + "D|-5-3-|\n";
    ExpectDoubts({
        {low, "", "the first stave tunes the score"},
        {kStave + "\n" + low, "13:4 no-fret", "the open string lies below the score's"},
        {kStave + "\n" + high, "13:1 other-tuning", "high enough to have a fret, but another one"},
        {kStave + "\n" + low + "\n" + low, "13:4 no-fret", "said once for staves in a row"},
        {"Eb|-0-1-|\nBb|-----|\nGb|-----|\nDb|-----|\nAb|-----|\nEb|-----|\n", "1:1 sharp-tuning",
         "all a semitone down"},
        {"Tuning: DADGAD\n\n\n" + kStave, "1:9 stated-tuning", "letters in words"},
        {"Tuned to D A D G A D\n\n\n" + kStave, "1:10 stated-tuning", "with blanks"},
        {"Tuning: EADGBE\n\n\n" + kStave, "", "what the stave has"},
        {"Tuning: E B G D A E\n\n\n" + kStave, "", "written from the highest"},
        {"I tune a bad egg\n\n\n" + kStave, "", "words, not strings"},
        {"Drop D\n\n\n" + kStave, "1:1 stated-tuning", "the stave says E"},
        {"Drop D\n\n\n" + low, "", "the stave says it too"},
        {"Tune down a half step\n\n\n" + kStave, "1:6 stated-tuning", "letters cannot say that"},
        {"Capo 2nd fret\n\nCapo 2\n\n\n" + kStave, "1:1 stated-capo", "once for each fret"},
        {"No capo\n\n\n" + kStave, "", "none"},
        {"For ukulele\n\n\n" + Stave("|-0---1---|", 4), "1:5 stated-instrument",
         "four lines are read as a bass"},
        {"For bass\n\n\n" + Stave("|-0---1---|", 4), "", "as it was read"},
    });
}

TEST(Doubts, OfNotes) {
    ExpectDoubts({
        {With("|-12-10-|"), "", "frets of two digits"},
        {With("|-1111--|"), "6:3 glued-digits", "four notes or two"},
        {With("|-1111-00-|"), "6:3 glued-digits", "said once a bar"},
        {With("|-24----|"), "6:3 glued-digits", "a fret that many guitars have, read as two notes"},
        {With("|-1-11-1-|"), "6:5 glued-digits", "beside lone ones"},
        {With("|-9-11-12-|"), "", "beside other high frets"},
        {With("|-1111-12-|-12-|"), "6:3 glued-digits", "a bar stands for itself"},
        {With("|-7b9-----|"), "6:5 bend-target", "nobody strikes it"},
        {With("|-9r7-7b(9)-|"), "6:5 bend-target, 6:10 bend-target", "release, and a target in brackets"},
        {With("|-7tr9-7tr(9)-|"), "6:6 bend-target, 6:12 bend-target", "nor what a trill goes to"},
        {With("|-7h9-7-9-|"), "", "hammered on is played"},
        {With("|-0---1---|-2---3---|", "  H   H     W\n"), "", "no doubt: letters alone, no signature"},
        {With("|-01------|-2---3---|", "  W        W\n"), "7:3 glued-digits", "two digits in one"},
        {With("|0-1-----|", " Q   Q   \n"), "", "a note between two letters"},
        {With("|0--------1|", " Q   Q     \n"), "", "and one after them"},
    });
}

TEST(Doubts, OfRhythms) {
    ExpectDoubts({
        {With("|-0---1---|-2---3---|-2---3---|", "3/4\n  Q   Q     Q   Q     Q   Q\n"), "3:12 bar-length",
         "a pickup, a short bar, and what may answer the pickup"},
        {With("|-0---1---|-2---3---|", "2/4\n  Q   Q     Q   Q\n"), "", "two of two"},
        {With("|-0-1-2-3-|", "  Q Q Q X.\n"), "2:9 short-notes", "a dot at a 64th"},
        {With("|-0-1-2-3-|", "  Q Q Q X\n"), "", "a 64th"},
        {With("|-0--1--2-|", "  H  H H\n"), "2:9 short-notes", "a letter that stands over no note"},
        {With("|-0-1-2-3-|", "  1 2 3 4\n"), "", "counts"},
        {With("|-0-1-2-3-|", "  v ^ v ^\n"), "1:2 rhythm-line", "strokes"},
        {With("|-0-1-2-3-|", "  1 3 2 4\n"), "1:2 rhythm-line", "fingers"},
        {With("|-0--1--2--3-|", "  E5 E6 E5 E6\n"), "1:2 rhythm-line", "chords"},
    });
    ExpectDoubts(
        {{With("|-0--1--2--3-|"), "1:2 uneven-lengths", "twelve columns for four crotchets"},
         {With("|-0---1---2---3---|"), "", "sixteen"},
         {With("|-0-1-2-3-|-0---1---|", "  v ^ v ^\n"), "1:2 rhythm-line", "and a bar without such a line"}},
        Fretline::kRhythmsAlways);
}

TEST(Doubts, OfSigns) {
    ExpectDoubts({
        {With("|-5h7p5-7bfull-7b1-7~-(5h7)-|"), "6:18 bend-target", "all of them have their notes"},
        {With("|-7h--|"), "6:4 left-out-sign", "hammered to nothing"},
        {With("|-7w-7w-x~-|"), "6:4 left-out-sign, 6:10 left-out-sign", "each text once"},
        {With("|-[7]-{7-9}-|"), "6:3 left-out-sign, 6:7 left-out-sign", "a pair of brackets once"},
        {With("|-7~-|-~~-9-|"), "", "a wave goes on over a barline"},
        {With("|-HARM-ONIC-7-|"), "6:3 left-out-sign", "words of one line"},
        {"w = vibrato\n\n" + With("|-7w--|"), "", "the legend says it"},
        {Stave("|:-5--:|", 4), "", "dots of a repeat"},
        {With("|-7b------7---|", "          full\n\n"), "1:11 unclear-sign", "an amount of no bend"},
        {Stave("|-----|", 3) + "|-/-5\\|x2\n", "4:3 left-out-sign", "a slide that touches no note"},
        {Stave("|----|", 3) + "|---\\| x2\n", "4:5 left-out-sign", "no dot of a repeat either"},
        {With("|o-5---|"), "6:2 left-out-sign", "one alone is none"},
    });
}

TEST(Doubts, OfSymbols) {
    ExpectDoubts({
        {With("|-0---1---|-2---3---|", "  Am        C/G\n"), "", "chords"},
        {With("|-0---1---|-2---3---|", "  A Dog came by\n"), "1:3 chord-from-words", "a sentence"},
        {With("|-0---1---|-2---3---|", "  Fill\n"), "1:3 chord-from-words", "a word"},
        {With("|-0---1---|-2---3---|", "  N.C.\n"), "1:3 chord-from-words", "no chord"},
        {With("|-0---1---|-2---3---|", "  Cm7b5\n"), "1:3 cut-chord", "two suffixes in one"},
        {With("|-0---1---|-2---3---|", "        Dmaj7\n"), "1:9 cut-chord", "over a barline"},
        {With("|-0---1---|-2---3---|", "Verse 1\n"), "", "a label"},
        {With("|-0---1---|-2---3---|", "so this is the verse that i wrote\n"), "1:9 cut-label",
         "words of a sentence"},
        {With("|-0---1---|-2---3---|", "Chorus   x2\n"), "", "room after the label"},
        {With("|-0---1---|-2---3---|", "3/4\n"), "", "a signature"},
        {With("|-0---1---|-2---3---|", "Csus2/4\n"), "1:5 time-in-words", "a chord"},
        {With("|-0---1---|-2---3---|", "see 2015/04\n\n\n"), "1:7 time-in-words", "a date"},
        {With("|-0---1---|-2---3---|", "bend 1/2 step\n\n\n"), "1:6 time-in-words", "an interval"},
        {With("|-0---1---|-2---3---|", "this one is played in 3/4 time\n\n\n"), "", "a sentence about it"},
        {With("|-0---1---|-2---3---|", "i wrote down about 3/4 from memory here\n\n\n"), "1:20 time-in-words",
         "and one that is not"},
        {With("|-0---1---|", "Fr\xC3\xA8re Jacques\n\n\n"), "", "a title that is not read"},
        {With("|-0---1---|", "Intro \xC3\xA8\n"), "1:7 other-bytes", "a label is"},
        {With("|-0---1---|-2---3---|", "   1.        2.\n\n"), "1:4 unclear-sign, 1:14 unclear-sign",
         "endings without a repeat"},
        {"repeat 3 times\n" + Stave("|-0---1---|", 4), "1:1 unclear-sign", "in all or more"},
        {Stave("|-0---1---|", 4) + "(repeat)\n", "5:1 unclear-sign", "so much, or more"},
        {" x3      x2\n" + Stave("|-0---1---|-2---3---|", 4), "1:2 unclear-sign, 1:10 unclear-sign",
         "of what"},
        {Stave("|-0---1---|", 4) + "\n(x2)\n", "6:1 unclear-sign", "of which stave"},
        {With("|-0---1---|", "        PM\n\n"), "1:9 unclear-sign", "palm mute of no note"},
        {With("|-0---1---|", "  (let ring)\n\n"), "1:4 unclear-sign", "perhaps the whole of it"},
        {With("|-0---1---|", " PM--| trem--|\n\n"), "1:8 unclear-sign", "no technique that is known"},
        {With("|-0---1---|", "Bridge -- softly\n\n"), "", "words"},
        {With("|-0---1---|", "  let ring throughout\n\n"), "1:3 unclear-sign", "who knows how long"},
        {With("|-0---1---|") + "\nPM = palm mute\n", "", "a legend"},
        {With("|-0---1---|", "  D   U  D\n\n"), "1:3 unclear-sign", "a stroke over no note"},
        {With("|-0---1---|-2---3---|") + "D.C. al Fine\n", "7:1 unclear-sign", "a jump without its end"},
    });
}

// Those that a player would agree with, and no others.
TEST(Doubts, OfTheExamples) {
    std::map<std::string, std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(FRETLINE_SOURCE_DIR "/examples")) {
        // Scores that somebody made there.
        if (entry.path().extension() == ".nvf")
            continue;
        std::ostringstream text;
        text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        if (const std::string doubts = DoubtsOf(text.str()); !doubts.empty())
            found[entry.path().filename().string()] = doubts;
    }
    const std::map<std::string, std::string> expected{
        {"canon-bass.btab", "1:1 chord-from-words, 3:1 no-barlines"},
        {"muted-riff.tab", "4:21 chord-from-words"},
        {"round-for-two.tab", "15:1 stave-size"},
        {"seven-strings.tab", "1:1 cut-label, 1:5 chord-from-words, 9:1 cut-run"},
        {"spider-exercise", "3:1 no-barlines"},
    };
    EXPECT_EQ(expected, found);
}

TEST(Doubts, HaveNamesOfTheirOwn) {
    std::set<std::string> ids;
    int number = 0;
    for (const TabText::DoubtName& name : TabText::AllDoubtNames()) {
        EXPECT_EQ(number++, static_cast<int>(name.Kind)) << name.Id;
        EXPECT_TRUE(ids.insert(name.Id).second) << name.Id;
    }
}

} // namespace
