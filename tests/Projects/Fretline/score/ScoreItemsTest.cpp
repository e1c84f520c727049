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

Nvr::TVAList<int> Indices(std::initializer_list<int> values) {
    Nvr::TVAList<int> indices;
    for (const int value : values)
        indices.Add(value);
    return indices;
}

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
    {"a bar of music", [](TreeNode* p) { return AddBar(p, 1); },
     "Type=Bar MakesStaveVisible=1 HasStaveTypeChanges=0"},
    {"a bar without music", [](TreeNode* p) { return AddBar(p, 0); },
     "Type=Bar MakesStaveVisible=0 HasStaveTypeChanges=0"},
    {"the number of a spacing is the count before it", [](TreeNode* p) { return AddBarSpacing(p, 1536); },
     "Type=BarSpacing BarNum=0 BarLength=1536"},
    {"a bar length wraps at 16 signed bits", [](TreeNode* p) { return AddBarSpacing(p, 32768); },
     "Type=BarSpacing BarNum=0 BarLength=-32768"},
    {"a word, not a number", [](TreeNode* p) { return AddStave(p, false); }, "Type=Stave Small=False"},
    {"no banks", [](TreeNode* p) { return AddStaveMidiData(p, 25, 0, -1, -1); },
     "Type=StaveMIDIData Program=25 Channel=0 Bank=0 MIDIflags=3"},
    {"both banks", [](TreeNode* p) { return AddStaveMidiData(p, 33, 4, 2, 1); },
     "Type=StaveMIDIData Program=33 Channel=4 Bank=130 MIDIflags=0"},
    {"banks have seven bits; only the low one is missing",
     [](TreeNode* p) { return AddStaveMidiData(p, 0, 0, -1, 129); },
     "Type=StaveMIDIData Program=0 Channel=0 Bank=128 MIDIflags=2"},
    {"an instrument with all its names",
     [](TreeNode* p) {
         return AddInstrument(p, Indices({0}), "Bass guitar", "Bass Guitar", "Bass", "GuitarBracket", "", 1,
                              2, 3, 4);
     },
     "Type=Instrument FullName(Type=StyledString Text=Bass Guitar TextStyle=text.instrumentname) "
     "ShortName(Type=StyledString Text=Bass TextStyle=text.instrumentname) Group=GuitarBracket PartClef= "
     "FullNameOffsetX=1 FullNameOffsetY=2 ShortNameOffsetX=3 ShortNameOffsetY=4 Staves(StaveIndex0=0) "
     "DefaultInstrumentName=Bass guitar"},
    {"without a short name the full name serves, and two staves are counted by place",
     [](TreeNode* p) {
         return AddInstrument(p, Indices({0, 2}), "D", "Full", "", "G", "clef", 0, 0, 0, 0);
     },
     "Type=Instrument FullName(Type=StyledString Text=Full TextStyle=text.instrumentname) "
     "ShortName(Type=StyledString Text=Full TextStyle=text.instrumentname) Group=G PartClef=clef "
     "FullNameOffsetX=0 "
     "FullNameOffsetY=0 ShortNameOffsetX=0 ShortNameOffsetY=0 Staves(StaveIndex0=0 StaveIndex1=2) "
     "DefaultInstrumentName=D"},
    {"a barline over one stave", [](TreeNode* p) { return AddBarline(p, Indices({0})); },
     "Type=Barline Staves(StaveIndex0=0)"},
    {"lead-in", [](TreeNode* p) { return AddKeySignature(p, 0, 3); },
     "Type=KeySignature Sr=32512 Voices=15 Dx=0 Dy=0 Sharps=0 Flags=3"},
    {"lead-in", [](TreeNode* p) { return AddTransposition(p, 0, 0); },
     "Type=Transposition Sr=32512 Voices=15 Dx=0 Dy=0 PartDiat=0 PartChrom2=0"},
    {"lead-in, flags before style", [](TreeNode* p) { return AddClef(p, "clef.tab", 0); },
     "Type=Clef Sr=32512 Voices=15 Dx=0 Dy=0 Flags=0 ClefStyle=clef.tab"},
    {"lead-in", [](TreeNode* p) { return AddStaveTypeChange(p, "some.id"); },
     "Type=StaveTypeChange Sr=32512 Voices=15 Dx=0 Dy=0 StaveType=some.id"},
    {"6/8, with a mark that is no line end", [](TreeNode* p) { return AddTimeSignature(p, 6, 7); },
     "Type=TimeSignature Sr=-1 Voices=15 Dx=0 Dy=0 Top=6 LogUnitLength=7 BeatGroups=0 "
     "TimeSignatureString=6\\n\\8 "
     "Flags=7"},
    {"five heights, each with its own copy",
     [](TreeNode* p) { return AddSystemText(p, -1, "text.system.tempo", "Verse 1", 0, 32); },
     "Type=SystemTextItem Sr=-1 Voices=15 Dx=0 Dy=32 StyledString(Type=StyledString Text=Verse 1 "
     "TextStyle=text.system.tempo) YPositions((Type=YPosition Visible=True Y=32) (Type=YPosition "
     "Visible=True Y=32) "
     "(Type=YPosition Visible=True Y=32) (Type=YPosition Visible=True Y=32) (Type=YPosition Visible=True "
     "Y=32))"},
    {"a chord symbol",
     [](TreeNode* p) { return AddText(p, 256, "text.staff.space.chordsymbol", "Am", 24, 256, false); },
     "Type=Text Sr=256 Voices=15 Dx=24 Dy=256 StyledString(Type=StyledString Text=Am "
     "TextStyle=text.staff.space.chordsymbol) DrawAtStartOfSystem=False"},
    {"a position wraps at 16 signed bits",
     [](TreeNode* p) { return AddText(p, 40000, "s", "t", 0, 0, true); },
     "Type=Text Sr=-25536 Voices=15 Dx=0 Dy=0 StyledString(Type=StyledString Text=t TextStyle=s) "
     "DrawAtStartOfSystem=True"},
    {"a rest has no Notes at all", [](TreeNode* p) { return AddNoteRest(p, Crotchet(512)); },
     "Type=NoteRest Sr=512 Voices=1 Dx=0 Dy=0 Durn=8 Trem=2 Artic=0 Flags=0"},
    {"duration in bits 0 to 6, tremolo in three fields",
     [](TreeNode* p) { return AddNoteRest(p, EveryFieldSet()); },
     "Type=NoteRest Sr=-1 Voices=1 Dx=0 Dy=0 Durn=120 Trem=43 Artic=5 Flags=0"},
    {"a note",
     [](TreeNode* p) {
         return AddNote(p, {23, 80, 0, false, 0, 0});
     },
     "Type=Note Diat=23 Chrom2=80 Acc=0 StringNum=0 Flags=0"},
    {"a tied note keeps its other flags",
     [](TreeNode* p) {
         return AddNote(p, {37, 128, 5, true, 1, 2});
     },
     "Type=Note Diat=37 Chrom2=128 Acc=2 StringNum=5 Flags=129"},
};

TEST(ScoreItems, StandChildForChildBehindWhatWasThere) {
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

TEST(ScoreItems, AreNotMadeWithoutASection) {
    for (const ItemCase& item : kItems)
        EXPECT_EQ(item.Add(nullptr), nullptr) << item.Why;
}

TEST(ScoreItems, CountTheSpacingsFromTheTemplatesOwnOn) {
    TreeNode spacings("BarSpacings");
    AddBarSpacing(&spacings, 1024);
    EXPECT_EQ(AddBarSpacing(&spacings, 768)->GetChildValue("BarNum", -1), 1);
    EXPECT_EQ(AddBarSpacing(&spacings, 768)->GetChildValue("BarNum", -1), 2);
}

TEST(ScoreItems, AreNamedByTheirKindAndOnlyRecordsHaveLabels) {
    TreeNode stave;
    EXPECT_EQ(AddStaveMidiData(&stave, 25, 0, -1, -1)->GetLabel(), "MIDIData");
    EXPECT_EQ(AddBar(&stave, 1)->GetLabel(), "");
    EXPECT_EQ(AddSystemText(&stave, -1, "style", "text", 0, 0)->FindChild("YPositions")->FindChild("Type"),
              nullptr);
}

} // namespace
