#include "tests/Projects/TabText/UntidyTabs.h"

#include "Projects/TabText/Preparation.h"

#include <gtest/gtest.h>

namespace {

using TestSupport::CountInOrder;
using TestSupport::PlayedText;
using TestSupport::UntidyTab;

// Of the entries that were wanted and those that came, how many are right.
struct Score {
    int Wanted = 0;
    int Found = 0;
    int Right = 0;

    void Add(const std::vector<std::string>& wanted, const std::vector<std::string>& found) {
        Wanted += static_cast<int>(wanted.size());
        Found += static_cast<int>(found.size());
        Right += CountInOrder(wanted, found);
    }
    // Left out, or not there.
    int GetWrong() const { return Wanted + Found - 2 * Right; }
};

struct Result {
    Score Notes;
    Score Chords;
    int Tunings = 0;

    void Add(const PlayedText& wanted, const PlayedText& found) {
        Notes.Add(wanted.Notes, found.Notes);
        Chords.Add(wanted.Chords, found.Chords);
        Tunings += wanted.Tuning == found.Tuning ? 1 : 0;
    }
};

Result ResultOf(const PlayedText& wanted, const std::string& text) {
    Result result;
    result.Add(wanted, TestSupport::PlayedOf(text));
    return result;
}

// What the steps give that are on by default, and one more.
std::string PreparedWith(const char* step, const std::string& text) {
    std::vector<const TabText::PreparationStep*> steps = TabText::DefaultPreparationSteps();
    steps.push_back(TabText::FindPreparationStep(step));
    return TabText::Prepare(text, steps).Text;
}

TEST(UntidyTabs, HaveTheirChordsAloneWithoutWords) {
    Score before;
    Score after;
    for (const UntidyTab& tab : TestSupport::ReadUntidyTabs()) {
        const PlayedText prepared = TestSupport::PlayedOf(PreparedWith("text", tab.Text));
        before.Add(tab.Wanted.Chords, TestSupport::PlayedOf(TabText::Prepare(tab.Text).Text).Chords);
        after.Add(tab.Wanted.Chords, prepared.Chords);
        EXPECT_EQ(tab.Wanted.Notes, prepared.Notes) << tab.Name;
    }
    EXPECT_EQ(34, after.Wanted);
    EXPECT_EQ(41, before.Found);
    EXPECT_EQ(0, after.GetWrong());
}

TEST(UntidyTabs, AreReadAsMeantOncePrepared) {
    Result without;
    Result with;
    int tabs = 0;
    for (const UntidyTab& tab : TestSupport::ReadUntidyTabs()) {
        ++tabs;
        const TabText::PreparedText prepared = TabText::Prepare(tab.Text);
        const Result before = ResultOf(tab.Wanted, tab.Text);
        const Result after = ResultOf(tab.Wanted, prepared.Text);
        EXPECT_EQ(0, after.Notes.GetWrong()) << tab.Name << "\n" << TabText::ChangesText(prepared);
        EXPECT_EQ(1, after.Tunings) << tab.Name;
        EXPECT_GE(after.Chords.Right, before.Chords.Right) << tab.Name;
        EXPECT_EQ(prepared.Text, TabText::Prepare(prepared.Text).Text) << tab.Name;
        without.Add(tab.Wanted, TestSupport::PlayedOf(tab.Text));
        with.Add(tab.Wanted, TestSupport::PlayedOf(prepared.Text));
    }
    EXPECT_EQ(28, tabs);
    // They are untidy: without preparation half of the notes are lost.
    EXPECT_EQ(542, without.Notes.Wanted);
    EXPECT_EQ(250, without.Notes.Right);
    EXPECT_EQ(359, without.Notes.Found);
    EXPECT_EQ(13, without.Tunings);
    EXPECT_EQ(34, with.Chords.Wanted);
    EXPECT_EQ(34, with.Chords.Right);
}

} // namespace
