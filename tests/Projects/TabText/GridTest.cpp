// Rhythm lines made of the spacing of the notes.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/Preparation.h"
#include "tests/Projects/TabText/ReadText.h"
#include "tests/Projects/TabText/UntidyTabs.h"
#include "tests/support/TabBook.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace {

using TestSupport::Repeat;

std::string WithGrid(const std::string& text) {
    const auto* grid = TabText::FindPreparationStep("grid");
    return TabText::Prepare(text, {&grid, 1}).Text;
}

// A stave of four strings, the lowest of which is played.
std::string BassStave(const std::string& string) {
    std::string empty = string;
    for (char& c : empty)
        if (c != '|' && c != ':')
            c = '-';
    return Repeat(empty + "\n", 3) + string + "\n";
}

TEST(Grid, WritesARhythmLineOverEqualDistances) {
    const struct {
        const char* Why;
        const char* Above;
        const char* String;
        const char* Rhythm;
    } rows[] = {
        {"crotchets, one column before the first", "", "|-0---2---3---0---|", "  1   2   3   4"},
        {"quavers and longer notes", "", "|-0-2-3---0-------|", "  1 + 2 + 3 + 4 +"},
        {"semiquavers", "", "|-0-0-0-0-2-0-0-0-0-0-0-0-3-0-0-0-|", "  1   +   2   +   3   +   4   +"},
        {"no column before the first", "", "|0---2---3---0---|3---2---0---0---|",
         " 1   2   3   4    1   2   3   4"},
        {"as many columns before the first as between", "", "|---0---2---3---0---|", "    1   2   3   4"},
        {"the last note is cut short", "", "|-0---2---3---0-|", "  1   2   3   4"},
        {"the last note has a column too many", "", "|-0---2---3---0----|", "  1   2   3   4"},
        {"a rest at the start, where other bars begin sooner", "", "|-0---2---3---0---|-----2---3---0---|",
         "  1   2   3   4     1   2   3   4"},
        {"numbers of two digits on a grid that has room for them", "", "|-10-12-9--10-|", "  1  2  3  4"},
        {"numbers of two digits that widen the bar", "", "|-7-9-10-12-10-9-7-7-|", "  1 + 2  +  3  + 4 +"},
        {"dots of a repetition instead of dashes, and besides", "", "|:0---2---3---0--:|-0---2---3---0---:|",
         "  1   2   3   4     1   2   3   4"},
        {"a bar of rests among others", "", "|-0---2---3---0---|-----------------|",
         "  1   2   3   4     1   2   3   4"},
        {"a pickup before it", "", "|-2-------|-0---2---3---0---2---3---0---3---|",
         "            1   +   2   +   3   +   4   +"},
        {"quavers without a column between", "", "|-0--2-3--|", "  1 2 3 4"},
        {"a metre that is stated", "3/4\n", "|-0---2---3---|-0-2-3-2-3-2-|", "  1   2   3     1 + 2 + 3 +"},
        {"so few beats that halves are counted", "2/4\n", "|-0---2---|-0-2-3-2-|", "  1 + 2 +   1 + 2 +"},
        {"more beats than digits", "12/8\n", "|-0-2-3-0-2-3-0-2-3-0-2-3-|", "  1 2 3 1 2 3 1 2 3 1 2 3"},
        {"sixths without a metre are quavers", "", "|-0-2-3-0-2-3-|-0-2-3-0-----|-----0-2-3---|",
         "  E E E E E E   E E E Q.      Q   E E Q"},
        {"twelfths", "", "|-0-2-3-0-2-3-0-2-3-0-2-3-|", "  E E E E E E E E E E E E"},
        {"a line above is free where the nearest is not", "", "|-0---2---3---0---|", "  1   2   3   4"},
    };
    for (const auto& row : rows) {
        const std::string stave = BassStave(row.String);
        EXPECT_EQ(row.Above + std::string(row.Rhythm) + "\n" + stave, WithGrid(row.Above + ("\n" + stave)))
            << row.Why;
    }
}

TEST(Grid, LeavesAlone) {
    const struct {
        const char* Why;
        const char* Above;
        const char* String;
    } rows[] = {
        {"no free line", "Riff\nslowly\n", "|-0---2---3---0---|"},
        {"a rhythm of the writer's own", "\n  Q   Q   H\n", "|-0---2---3-------|"},
        {"a stave between the lines", "", "|-0---2---3---0---|"},
        {"notes on no grid", "\n", "|-0--2-----3----0----|"},
        {"triplets in a stated metre", "4/4\n\n", "|-0-2-3-0-2-3-0-2-3-0-2-3-|"},
        {"numbers of two digits that leave no room", "\n", "|-12-12-12--10-10-|"},
        {"a note a bar, which shows no grid", "\n", "|-0---------------|-2---------------|"},
        {"five notes to a bar", "\n", "|-0-2-3-0-2-|"},
        {"a length that no letter says", "\n", "|-0---------2-3-0-2-3-0-2-|"},
        {"one bar in sixths among others on no grid", "\n", "|-0-2-3-0-2-3-|-0--2-3--0-2|-3--2-3--2-2|"},
        {"a metre whose beats cannot be counted", "1/4\n\n", "|-0---2---|"},
        {"a metre of nobody", "99/4\n\n", "|-0---2---3---0---|"},
    };
    for (const auto& row : rows) {
        const std::string text = row.Above + BassStave(row.String);
        EXPECT_EQ(text, WithGrid(text)) << row.Why;
    }
}

TEST(Grid, SharesALineWithTheStaveAboveOnlyWhereItFits) {
    const std::string even = BassStave("|-0---2---3---0---|");
    const std::string other = BassStave("|-0--2----3---0----|");
    const std::string counts = "  1   2   3   4\n";
    const std::string chords = "Riff\n  C   G\n";
    // The upper stave has no line of its own; the plug-in looks below it too.
    EXPECT_EQ(chords + even + counts + even, WithGrid(chords + even + "\n" + even));
    EXPECT_EQ(chords + other + "\n" + even, WithGrid(chords + other + "\n" + even));
    EXPECT_EQ(chords + other + "\n\n" + counts + even, WithGrid(chords + other + "\n\n\n" + even));
}

TEST(Grid, SharesTheLineOfALabelWhereThatHasRoom) {
    const struct {
        const char* Why;
        const char* Line;
        const char* Prepared;
    } rows[] = {
        {"over the first bar", "  Chorus", "  Chorus            1   2   3   4"},
        {"a time signature", " 4/4", " 4/4                1   2   3   4"},
        {"over the last bar", "                    Solo", "  1   2   3   4     Solo"},
        {"to the end of the first bar", "  Chorus, loud and fast", "  Chorus, loud and fast"},
        {"too close before the second bar", "          Chorus 2", "          Chorus 2"},
        {"words that are no label", "  softly", "  softly"},
    };
    const std::string chords = "  C                 G\n";
    const std::string stave = BassStave("|-0---2---3---0---|-3---2---0---0---|");
    for (const auto& row : rows)
        EXPECT_EQ(row.Prepared + ("\n" + chords) + stave, WithGrid(row.Line + ("\n" + chords) + stave))
            << row.Why;
    const std::string before =
        "                  Solo\n" + chords + BassStave("|---0---2---3---0|---3---2---0---0|");
    EXPECT_EQ(before, WithGrid(before)) << "the label would take in the count right before it";
}

TEST(Grid, KeepsLineEndsAndPlaces) {
    const std::string stave = Repeat("|---------|\r\n", 3) + "|-0-2-3-0-|";
    const auto* grid = TabText::FindPreparationStep("grid");
    const TabText::PreparedText prepared = TabText::Prepare("  \r\n" + stave, {&grid, 1});
    EXPECT_EQ("  1 2 3 4\r\n" + stave, prepared.Text);
    ASSERT_EQ(1U, prepared.Changes.size());
    EXPECT_EQ(0, prepared.Changes[0].OriginalLine);
    EXPECT_EQ(0, prepared.Changes[0].PreparedLine);
    EXPECT_EQ((TabText::TextPlace{4, 7}), prepared.Map.ToOriginal(4, 7));
}

// Bars in which two distances between neighbouring notes are equal, and those of them in which the times are
// not.
struct Evenness {
    int Bars = 0;
    int Uneven = 0;

    void Add(const std::string& text) {
        const TestSupport::ReadText reading(text, Fretline::kRhythmsAlways);
        for (const TabText::BarReading& bar : reading->GetBars())
            if (bar.Bar->ScoreBarCount() == 1)
                Add(*bar.Bar);
    }

    void Add(const Fretline::TabBar& bar) {
        std::map<int, int> lengthOfDistance;
        const Fretline::TabColumn* before = nullptr;
        bool isJudged = false;
        bool isUneven = false;
        for (const Fretline::TabColumn& column : bar.GetColumns()) {
            if (before != nullptr) {
                const auto [entry, isNew] =
                    lengthOfDistance.emplace(column.m_Column - before->m_Column, before->m_Duration);
                isJudged = isJudged || !isNew;
                isUneven = isUneven || entry->second != before->m_Duration;
            }
            before = &column;
        }
        Bars += isJudged ? 1 : 0;
        Uneven += isUneven ? 1 : 0;
    }
};

// Staves with all strings, spaced in ways that people use.
std::string MadeUpTab(std::uint32_t seed) {
    TestSupport::Dice dice(seed);
    const int slots = std::array{4, 8, 8, 16, 6, 12}[static_cast<std::size_t>(dice.Roll(6))];
    const int step = 2 + dice.Roll(3);
    const int padding = std::array{0, 1, 1, 2, step - 1}[static_cast<std::size_t>(dice.Roll(5))];
    const int end = std::array{step - 1, step - 1, 1, step}[static_cast<std::size_t>(dice.Roll(4))];
    std::string text = dice.Roll(3) == 0 && slots % 3 == 0 ? "6/8\n" : "A tune\n";
    for (int stave = 0; stave < 4; ++stave) {
        std::vector<std::string> strings(6, "|");
        for (int bar = 0; bar < 3; ++bar) {
            for (std::string& string : strings)
                string += std::string(static_cast<std::size_t>(padding), '-');
            for (int slot = 0; slot < slots; ++slot) {
                const int played = dice.Roll(5) == 0 ? -1 : dice.Roll(6);
                const std::string fret = std::to_string(dice.Roll(step > 2 && dice.Roll(6) == 0 ? 15 : 9));
                const int rest = slot + 1 < slots ? step - 1 : end;
                for (int line = 0; line < 6; ++line) {
                    std::string& string = strings[static_cast<std::size_t>(line)];
                    const std::size_t size = string.size() + static_cast<std::size_t>(1 + rest);
                    string += line == played ? fret : "-";
                    string.resize(std::max(size, string.size()), '-');
                }
            }
            for (std::string& string : strings)
                string += '|';
        }
        text += "\n";
        for (const std::string& string : strings)
            text += string + "\n";
    }
    return text;
}

// The texts of a folder's files but for those with one of the extensions.
std::vector<std::string> TextsOf(const char* folder, const std::set<std::string>& without) {
    std::vector<std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (without.contains(entry.path().extension()))
            continue;
        std::ostringstream text;
        text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        texts.push_back(TabText::Prepare(text.str()).Text);
    }
    return texts;
}

TEST(Grid, GivesEqualDistancesEqualLengthsAndLosesNoNote) {
    std::vector<std::string> spaced;
    std::vector<std::string> odd;
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        spaced.push_back(MadeUpTab(seed));
        odd.push_back(TestSupport::MakeOddTab(seed));
    }
    const struct {
        const char* Name;
        std::vector<std::string> Texts;
        int LeastUnevenBefore;
        int MostPercentAfter;
    } rows[] = {
        {"examples, tidy already", TextsOf(FRETLINE_SOURCE_DIR "/examples", {".nvf"}), 0, 0},
        {"untidy tabs, in which few lines are free", TextsOf(FRETLINE_SOURCE_DIR "/tests/untidy", {".want"}),
         20, 60},
        {"spaced as people do", spaced, 200, 1},
        {"odd tabs, most of which state their rhythm", odd, 50, 95},
    };
    for (const auto& row : rows) {
        Evenness before;
        Evenness after;
        for (const std::string& text : row.Texts) {
            const std::string prepared = WithGrid(text);
            before.Add(text);
            after.Add(prepared);
            EXPECT_EQ(TestSupport::PlayedOf(text).Notes, TestSupport::PlayedOf(prepared).Notes) << prepared;
            EXPECT_EQ(prepared, WithGrid(prepared));
        }
        std::cout << row.Name << ": of " << before.Bars << " bars with equal distances " << before.Uneven
                  << " had unequal lengths, prepared " << after.Uneven << "\n";
        EXPECT_GE(before.Uneven, row.LeastUnevenBefore) << row.Name;
        EXPECT_LE(after.Uneven * 100, before.Uneven * row.MostPercentAfter) << row.Name;
    }
}

} // namespace
