#include "Projects/Fretline/score/ScoreItems.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "tests/Projects/Fretline/score/NodeText.h"

#include <gtest/gtest.h>

namespace {

using namespace Fretline;
using Nvr::TreeNode;
using ScoreTest::ChildrenText;

struct ItemCase {
    const char* Why;
    TreeNode* (*Add)(TreeNode* parent);
    const char* Expected;
};

NoteRestRecord Crotchet(std::int16_t position) {
    NoteRestRecord record;
    record.Position = position;
    record.DurationExponent = 8;
    return record;
}

NoteRestRecord EveryFieldSet() {
    NoteRestRecord record = Crotchet(-1);
    record.DurationField = 3;
    record.DurationFlag = true;
    record.TremoloA = 1;
    record.TremoloB = 2;
    record.TremoloC = 3;
    record.Artic = 5;
    return record;
}

const ItemCase kItems[] = {
    {"a bar length wraps at 16 signed bits", [](TreeNode* p) { return AddBarSpacing(p, 32768); },
     "Type=BarSpacing BarNum=0 BarLength=-32768"},
    {"banks have seven bits; only the low one is missing",
     [](TreeNode* p) { return AddStaveMidiData(p, 0, 0, -1, 129); },
     "Type=StaveMIDIData Program=0 Channel=0 Bank=128 MIDIflags=2"},
    {"without a short name the full name serves, and two staves are counted by place",
     [](TreeNode* p) {
         return AddInstrument(p, ScoreTest::Ints({0, 2}), "D", "Full", "", "G", "clef", 0, 0, 0, 0);
     },
     "Type=Instrument FullName(Type=StyledString Text=Full TextStyle=text.instrumentname) "
     "ShortName(Type=StyledString Text=Full TextStyle=text.instrumentname) Group=G PartClef=clef "
     "FullNameOffsetX=0 "
     "FullNameOffsetY=0 ShortNameOffsetX=0 ShortNameOffsetY=0 Staves(StaveIndex0=0 StaveIndex1=2) "
     "DefaultInstrumentName=D"},
    {"a position wraps at 16 signed bits",
     [](TreeNode* p) { return AddText(p, 40000, "s", "t", 0, 0, true); },
     "Type=Text Sr=-25536 Voices=15 Dx=0 Dy=0 StyledString(Type=StyledString Text=t TextStyle=s) "
     "DrawAtStartOfSystem=True"},
    {"a rest has no Notes at all", [](TreeNode* p) { return AddNoteRest(p, Crotchet(512)); },
     "Type=NoteRest Sr=512 Voices=1 Dx=0 Dy=0 Durn=8 Trem=2 Artic=0 Flags=0"},
    {"duration in bits 0 to 6, tremolo in three fields",
     [](TreeNode* p) { return AddNoteRest(p, EveryFieldSet()); },
     "Type=NoteRest Sr=-1 Voices=1 Dx=0 Dy=0 Durn=120 Trem=43 Artic=5 Flags=0"},
    {"a tied note keeps its other flags",
     [](TreeNode* p) {
         return AddNote(p, {37, 128, 5, true, 1, 2});
     },
     "Type=Note Diat=37 Chrom2=128 Acc=2 StringNum=5 Flags=129"},
};

TEST(ScoreItems, StandChildForChildAfterWhatWasThere) {
    for (const ItemCase& item : kItems) {
        TreeNode section("Section");
        const TreeNode* const added = item.Add(&section);
        ASSERT_NE(added, nullptr) << item.Why;
        EXPECT_EQ(ChildrenText(*added), item.Expected) << item.Why;
        EXPECT_EQ(section.GetChild(section.GetChildCount() - 1), added) << item.Why;
        item.Add(&section);
        EXPECT_EQ(section.GetChildCount(), 2) << item.Why;
    }
}

} // namespace
