// Parts that sound together: which they are, and when their notes sound.

#include "Projects/TabText/SplitParts.h"

#include "Projects/Score/Timeline.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/NotePlaces.h"
#include "tests/Projects/TabText/ConvertedText.h"
#include "tests/Projects/TabText/ReadText.h"
#include "tests/support/TabBook.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace {

using Fretline::kRhythmsAlways;
using Fretline::kRhythmsNever;
using Fretline::kRhythmsWhenIndicated;
using TestSupport::Repeat;

// Everything about one text, joined and split.
struct SplitText {
    explicit SplitText(const std::string& text, int level = kRhythmsWhenIndicated)
        : Reading(text, level), Markings(TabText::ReadMarkings(*Reading)) {
        std::optional<Score::ScoreModel> score = TestSupport::ConvertText(text, level);
        if (!score)
            return;
        Joined = std::move(*score);
        TabText::JoinMarkings(*Reading, Markings, Joined);
        Split = TabText::SplitParts(*Reading, Joined);
    }

    TestSupport::ReadText Reading;
    TabText::Markings Markings;
    Score::ScoreModel Joined;
    TabText::SplitScore Split;
};

// A stave of a guitar, or of a bass, with these characters on its lowest string but one.
std::string Stave(int lines, const std::string& played, const std::string& before = "") {
    std::string empty = played;
    for (char& c : empty)
        c = c == '|' || c == ':' ? c : '-';
    return Repeat(before + "|" + empty + "|\n", static_cast<std::size_t>(lines) - 2) + before + "|" + played +
           "|\n" + before + "|" + empty + "|\n";
}
std::string Guitar(const std::string& played) {
    return Stave(6, played);
}
std::string Bass(const std::string& played) {
    return Stave(4, played);
}

// "Guitar 3@0 5@128~ /512 | 7@0 /128; Bass ...": of each bar its notes, by fret and time, tied on or not, and
// its length.
std::string Heard(const TabText::SplitScore& split) {
    std::string text;
    for (const Score::ScoreModel& part : split.Parts) {
        text += (text.empty() ? "" : "; ") + part.InstrumentName;
        for (const Score::ModelBar& bar : part.Bars) {
            text += &bar == &part.Bars.front() ? "" : " |";
            for (const Score::ModelEvent& event : bar.Events)
                for (const Score::ModelNote& note : event.Notes)
                    text += " " + std::to_string(note.Fret) + "@" + std::to_string(event.Position) +
                            (note.TiedToNext ? "~" : "");
            text += " /" + std::to_string(bar.Length);
        }
    }
    return text;
}

TEST(SplitParts, WhatStandsInOneColumnSoundsTogether) {
    const std::string quavers = " E E E E E E E E\n";
    const struct {
        const char* Why;
        std::string Text;
        int Level;
        const char* Heard;
    } rows[] = {
        {"without rhythms, all columns one after the other", Guitar("-1-2-3-4-") + "\n" + Bass("-5---6-7-"),
         kRhythmsNever, "Guitar 1@0 2@128 3@256 4@384 /512; Bass 5@0 6@256 7@384 /512"},
        {"each part has columns of its own", Guitar("-1-----4-") + "\n" + Bass("---5-6---"), kRhythmsNever,
         "Guitar 1@0 4@384 /512; Bass 5@128 6@256 /512"},
        {"numbers of two digits", Guitar("-10--12--3-") + "\n" + Bass("--5---7--9-"), kRhythmsNever,
         "Guitar 10@0 12@128 3@256 /384; Bass 5@0 7@128 9@256 /384"},
        {"in proportion", Guitar("1---2---3---4---") + "\n" + Bass("----5-----6-----"), kRhythmsAlways,
         "Guitar 1@0 2@256 3@512 4@768 /1024; Bass 5@256 6@640 /1024"},
        {"letters above the guitar alone",
         quavers + Guitar("1-2-3-4-5-6-7-8-") + "\n\n" + Bass("1---2-----34----"), kRhythmsWhenIndicated,
         "Guitar 1@0 2@128 3@256 4@384 5@512 6@640 7@768 8@896 /1024; Bass 1@0 2@256 3@640 4@704 /1024"},
        {"a first column that is not at the start",
         Guitar("----1---2---3---") + "\n" + Bass("----5-----6-----"), kRhythmsAlways,
         "Guitar 1@0 2@256 3@576 /1024; Bass 5@0 6@384 /1024"},
        {"no note is tied on that was cut before", Guitar("1--1-----------") + "\n" + Bass("-------5-------"),
         kRhythmsAlways, "Guitar 1@0 1@192 /1024; Bass 5@448 /1024"},
        {"two columns of one part are two times, also where a number of the other touches both",
         "|--3-|\n|12--|\n" + Repeat("|----|\n", 4) + "\n" + Bass("-10-"), kRhythmsNever,
         "Guitar 12@0 3@128 /256; Bass 10@0 /256"},
        {"letters above each, which keep their times",
         "  Q   H.\n" + Guitar("-1---2-----") + "\n  H.      Q\n" + Bass("-5-------6-"),
         kRhythmsWhenIndicated, "Guitar 1@0 2@256~ 2@768 /1024; Bass 5@0~ 5@512 6@768 /1024"},
        {"a stave that is cut into bars keeps its times",
         Guitar("1-2-3-4-1-2-3-4-1-2-3-4-1-2-3-4-1-2-") + "\n" + Bass("5-----------------------------------"),
         kRhythmsAlways,
         "Guitar 1@0 2@128 3@256 4@384 1@512 2@640 3@768 4@896 /1024 | 1@0 2@128 3@256 4@384 1@512 2@640 "
         "3@768 "
         "4@896 /1024 | 1@0 2@128~ 2@640~ 2@896 /1024; Bass 5@0 /1024 | /1024 | /1024"},
        {"the bass rests for a system",
         Guitar("-1-2-") + "\n" + Bass("-3---") + "\n" + Guitar("-4-5-") + "\n" + Guitar("-6---") + "\n" +
             Bass("-7-8-"),
         kRhythmsNever,
         "Guitar 1@0 2@128 /256 | 4@0 5@128 /256 | 6@0 /256; Bass 3@0 /256 | /256 | 7@0 8@128 /256"},
        {"a stave of both",
         "Gtr I\n" + Guitar("-1-2-") + "Gtr II\n" + Guitar("-3---") + "\nGtrs I & II\n" + Guitar("-4-5-"),
         kRhythmsNever, "Gtr I 1@0 2@128 /256 | 4@0 5@128 /256; Gtr II 3@0 /256 | 4@0 5@128 /256"},
        {"a solo above it",
         "Gtr I\n" + Guitar("-1-2---------") + "\nGtr II (solo)\n" + Guitar("-3-----------"), kRhythmsNever,
         "Gtr I 1@0 2@128 /256; Gtr II 3@0 /256"},
        {"bars one place wider, and lines that begin two places farther",
         Guitar("-1-2-|-3-4-") + "\n" + Stave(4, "-5---|-6-7--", "E "), kRhythmsNever,
         "Guitar 1@0 2@128 /256 | 3@0 4@128 /256; Bass 5@0 /256 | 6@0 7@128 /256"},
        {"one system of three lacks a barline: nothing in it is aligned",
         Guitar("-1-2-") + "\n" + Bass("-3---") + "\n" + Guitar("-4-5-") + "\n" + Bass("-6---") + "\n" +
             Guitar("-7-8-|-9---") + "\n" + Bass("-1---------"),
         kRhythmsNever,
         "Guitar 1@0 2@128 /256 | 4@0 5@128 /256 | 7@0 8@128 /256 | 9@0 /128; "
         "Bass 3@0 /256 | 6@0 /256 | 1@0 /256 | /128"},

        {"barlines stand elsewhere in one system of two",
         Guitar("-1-2-") + "\n" + Bass("-3---") + "\n" + Guitar("-1-2-|-3-4-") + "\n" + Bass("-5-----|-6-7-"),
         kRhythmsNever, ""},
        {"barlines stand elsewhere", Guitar("-1-2-|-3-4-") + "\n" + Bass("-5-----|-6-7-"), kRhythmsNever, ""},
        {"one part after the other",
         "Gtr I\n" + Guitar("-1-2-") + "\n" + Guitar("-1-2-") + "\nGtr II\n" + Guitar("-3---"), kRhythmsNever,
         ""},
        {"the lower stave is another section",
         "Gtr I\n" + Guitar("-1-2-") + "\n Chorus\nGtr II\n" + Guitar("-3-4-"), kRhythmsNever, ""},
        {"the names say that they are of two sections",
         "Gtr I (verse)\n" + Guitar("-1-2---------") + "\nGtr II (chorus)\n" + Guitar("-3-4---------"),
         kRhythmsNever, ""},
        {"one part", Guitar("-1-2-") + "\n" + Guitar("-3-4-"), kRhythmsNever, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Heard, Heard(SplitText(row.Text, row.Level).Split)) << row.Why << "\n" << row.Text;
}

TEST(SplitParts, EachHasItsOwnStringsAndSound) {
    const SplitText text("Capo 2\n\n  Verse\nGtr. 1\n" + Stave(6, "-1-2-", "") + "Bass\n" +
                         "G|-----|\nD|-----|\nA|-3-5-|\nE|-----|\n\nGtr. 1\n" + Stave(6, "-4-6-") + "Bass\n" +
                         "G|-----|\nD|-----|\nA|-3---|\nD|---2-|\n");
    ASSERT_EQ(2U, text.Split.Parts.size());
    const Score::ScoreModel& guitar = text.Split.Parts[0];
    const Score::ScoreModel& bass = text.Split.Parts[1];
    EXPECT_EQ("Gtr 1", guitar.InstrumentName);
    EXPECT_EQ(25, guitar.Program);
    EXPECT_EQ(33, bass.Program);
    EXPECT_EQ(2, guitar.Heading.Capo);
    EXPECT_EQ(0, bass.Heading.Capo);
    EXPECT_EQ((std::vector<int>{28, 33, 38, 43}), bass.Tuning);
    EXPECT_FALSE(guitar.Bars[1].Tuning);
    EXPECT_EQ((std::vector<int>{26, 33, 38, 43}), bass.Bars[1].Tuning);
    EXPECT_EQ(2, bass.Bars[1].Events.back().Notes.front().Fret) << "in the tuning of its stave";
    EXPECT_EQ(std::vector<std::string>{"Verse"}, guitar.Bars[0].Labels);
    EXPECT_TRUE(bass.Bars[0].Labels.empty()) << "it is of all parts, and said once";
}

TEST(SplitParts, KeepTheRestsOfARhythmLine) {
    const SplitText text("  Q  Q  Q  Q\n" + Guitar("-1-----2----") + "\n\n\n" + Bass("-5----------"));
    ASSERT_EQ("Guitar 1@0 2@512 /1024; Bass 5@0 /1024", Heard(text.Split));
    EXPECT_EQ(256, text.Split.Parts[0].Bars[0].Events[0].Duration);
    EXPECT_EQ(1024, text.Split.Parts[1].Bars[0].Events[0].Duration);
}

TEST(SplitParts, MoveChordSymbolsWithTheirColumns) {
    const SplitText text("     Am      G\n" + Guitar("----1-------2-") + "\n" + Bass("-5------6-----"));
    ASSERT_EQ("Guitar 1@128 2@384 /512; Bass 5@0 6@256 /512", Heard(text.Split));
    std::string chords;
    for (const Score::ModelText& chord : text.Split.Parts[0].Bars[0].ChordSymbols)
        chords += chord.Text + "@" + std::to_string(chord.Position) + " ";
    EXPECT_EQ("Am@128 G@384 ", chords);
}

// What is said of one part, or of both, all go by: the endings, the ways and the tempos.
TEST(SplitParts, GoOneWay) {
    const std::string first = Guitar("-1-2-|-3-4:");
    const std::string second = Guitar("-1-2-|-3-4-");
    const std::string bass = Bass("-5---|-6---");
    for (const auto& above : {std::pair("\n", "\n"), std::pair("         1.\n", " 2.\n")}) {
        const SplitText text("Tempo: 120\n\n         1.\n" + first + above.first + bass +
                             "\nTempo: 90\n 2.\n" + second + above.second + bass + "       D.C.\n");
        ASSERT_EQ(2U, text.Split.Parts.size());
        EXPECT_TRUE(text.Markings.Unclear.empty());
        std::string ways;
        for (const Score::ScoreModel& part : text.Split.Parts)
            for (const Score::ModelBar& bar : part.Bars)
                ways += (bar.Repeats.Endings.empty() ? "-" : std::to_string(bar.Repeats.Endings.front())) +
                        std::string(bar.Repeats.IsEnd ? "]" : "") +
                        (bar.Way.To == Score::Jump::DaCapo ? "D.C." : "") +
                        (bar.Tempo > 0 ? "q=" + std::to_string(bar.Tempo) : "") + " ";
        EXPECT_EQ("- 1] 2q=90 -D.C. - 1] 2 -D.C. ", ways) << above.first;
    }
}

// Systems of a guitar and a bass, a note in about every third place of each; now and then one is alone, and
// letters say the rhythm above some.
std::string MadeUpParts(std::uint32_t seed) {
    TestSupport::Dice dice(seed);
    constexpr int kWidth = 16;
    const auto stave = [&](int lines) {
        std::string text;
        for (int line = 0; line < lines; ++line) {
            text += '|';
            for (int place = 0; place < 2 * (kWidth + 1); ++place) {
                const bool isBarline = place % (kWidth + 1) == kWidth;
                const bool isNote = place % 2 == 0 && dice.Roll(3 * lines / 2) == 0;
                text += isBarline ? '|' : isNote ? static_cast<char>('0' + dice.Roll(10)) : '-';
            }
            text += '\n';
        }
        return text;
    };
    std::string text = stave(6) + "\n" + stave(4);
    for (int system = 0; system < 4; ++system) {
        text += dice.Roll(3) == 0 ? "\n E E E E E E E E   E E E E E E E E\n" : "\n";
        text += stave(6);
        if (dice.Roll(4) != 0)
            text += "\n" + stave(4);
    }
    return text;
}

TEST(SplitParts, HaveTheNotesOfTheTextAtTheTimesOfItsColumns) {
    constexpr std::uint32_t kTexts = 60;
    std::size_t notes = 0;
    std::size_t together = 0;
    for (std::uint32_t seed = 0; seed < kTexts; ++seed) {
        const std::string made = MadeUpParts(seed);
        const SplitText text(made, static_cast<int>(seed % 3));
        ASSERT_EQ(2U, text.Split.Parts.size()) << made;
        using Strike = std::tuple<int, int, int>;
        std::multiset<Strike> struck;
        for (int part = 0; part < 2; ++part)
            for (const Score::SoundingNote& note :
                 Score::SoundingNotes(text.Split.Parts[static_cast<std::size_t>(part)]))
                struck.emplace(part, note.Start, note.String);
        std::multiset<Strike> inText;
        std::map<std::pair<int, int>, int> tickOfColumn;
        for (const TabText::NotePlace& place : TabText::PlacesInParts(
                 TabText::NotePlaces(*text.Reading, text.Markings, text.Joined), text.Split)) {
            inText.emplace(place.Part, place.Tick, place.String);
            const auto [column, isNew] = tickOfColumn.emplace(std::pair(place.Bar, place.Column), place.Tick);
            EXPECT_EQ(column->second, place.Tick) << "column " << place.Column << " of\n" << made;
            together += isNew ? 0 : 1;
        }
        EXPECT_EQ(struck, inText) << made;
        EXPECT_EQ(Score::SoundingNotes(text.Joined).size(), struck.size()) << "nothing is lost of\n" << made;
        notes += struck.size();
    }
    EXPECT_GT(notes, 4000U);
    EXPECT_GT(together, 1000U);
}

} // namespace
