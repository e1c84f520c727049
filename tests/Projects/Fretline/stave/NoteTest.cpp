#include "tests/Projects/Fretline/stave/BarText.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreItems.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <gtest/gtest.h>

namespace Fretline {

TEST(Notes, HaveADiatonicStep) {
    const struct {
        int Chrom2, Stored, Diat;
        const char* Why;
    } rows[] = {
        {122, 122, 35, "C sharp counts with C"},
        {126, 126, 37, "E flat with E"},
        {254, 254, 74, "the highest"},
        {256 + 80, 80, 23, "only the low eight bits count"},
    };
    for (const auto& row : rows) {
        const TabNote note(3, row.Chrom2);
        EXPECT_EQ(note.m_String, 3);
        EXPECT_EQ(note.m_Chrom2, row.Stored) << row.Why;
        EXPECT_EQ(note.m_Diat, row.Diat) << row.Why;
    }
}

TEST(Notes, OfAColumn) {
    const struct {
        const char *First, *Second;
        int Chrom2OfFirst;
        const char *Items, *Why;
    } rows[] = {
        {"-0--", "-5--", 90, "| 0+128 0:5 1:0", "equal steps keep their order from the lowest string up"},
        {"-001--", "-2-9--", 92, "| 0+128 1:1 0:29", "digits under one wide column are one number"},
        {"-0000001--", "-9-9-9----", 30, "| 0+128 0:-25 1:1", "eight bits are kept"},
        {"-1--2-", "-x-x2-", 92, "| 0+128 1:1, 128+128 r, 256+128 0:2 1:2", "a muted string alone is a rest"},
    };
    for (const auto& row : rows) {
        BarText text({row.First, row.Second});
        const TabBar& bar = text.ReadAt(0, 2);
        EXPECT_EQ(ItemsOf(bar), row.Items) << row.First << ' ' << row.Second << ": " << row.Why;
        EXPECT_EQ(bar.GetScoreBars().at(0)->m_Items.at(0).m_Notes.at(0).m_Chrom2, row.Chrom2OfFirst)
            << row.Why;
    }
}

TEST(Notes, MarkTiedTiesEveryNote) {
    Nvr::TreeNode items(Nvr::String("Items"));
    Nvr::TreeNode* chord = AddNoteRest(&items, NoteRestRecord{});
    Nvr::TreeNode* notes = GetSection(chord, SectionNotes);
    AddNote(notes, NoteRecord{23, 80, 0, false, 1, 0});
    AddNote(notes, NoteRecord{26, 90, 1, true, 0, 0});
    AddTypedChild(notes, Nvr::String(), Nvr::String("Note"), false);
    MarkTied(chord);
    EXPECT_EQ(notes->GetChild(0)->GetChildValue(Nvr::String("Flags"), 0), 129) << "other bits stay";
    EXPECT_EQ(notes->GetChild(1)->GetChildValue(Nvr::String("Flags"), 0), 128) << "tied already";
    EXPECT_EQ(notes->GetChild(2)->GetChildCount(), 1) << "a note without flags gets none";

    Nvr::TreeNode* rest = AddNoteRest(&items, NoteRestRecord{});
    const Nvr::TreeNode before(*rest);
    MarkTied(rest);
    EXPECT_TRUE(rest->IsSameTree(before));
}

TEST(Notes, TieIntoTheBarBefore) {
    const struct {
        const char *Rhythm, *Notes;
        int Flags;
        const char* Why;
    } rows[] = {
        {"-H  H", "5---5--------", 128, "tied at the start"},
        {" H  H", "5---5--------", 0, "not tied"},
        {" H -H", "5---5--------", 0, "a tie further along the bar"},
        {"-H  H", "----5--------", 0, "the tied letter has no note"},
    };
    for (const auto& row : rows) {
        BarText text({row.Rhythm, row.Notes, "-------------"});
        Nvr::TreeNode items(Nvr::String("Items"));
        Nvr::TreeNode* last = AddNoteRest(&items, NoteRestRecord{});
        Nvr::TreeNode* note = AddNote(GetSection(last, SectionNotes), NoteRecord{});
        text.BarAt(1, 2).ReadBar(last);
        EXPECT_EQ(note->GetChildValue(Nvr::String("Flags"), 0), row.Flags) << row.Why;
    }
}

} // namespace Fretline
