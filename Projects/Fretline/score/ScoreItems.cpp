#include "Projects/Fretline/score/ScoreItems.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreTime.h"

namespace Fretline {

using Nvr::FixedString;
using Nvr::String;
using Nvr::TreeNode;

namespace {

// The labels of properties and records.
constinit const FixedString kSr("Sr");
constinit const FixedString kVoices("Voices");
constinit const FixedString kDx("Dx");
constinit const FixedString kDy("Dy");
constinit const FixedString kText("Text");
constinit const FixedString kTextStyle("TextStyle");
constinit const FixedString kMakesStaveVisible("MakesStaveVisible");
constinit const FixedString kHasStaveTypeChanges("HasStaveTypeChanges");
constinit const FixedString kBarNum("BarNum");
constinit const FixedString kBarLength("BarLength");
constinit const FixedString kSmall("Small");
constinit const FixedString kProgram("Program");
constinit const FixedString kChannel("Channel");
constinit const FixedString kBank("Bank");
constinit const FixedString kMIDIflags("MIDIflags");
constinit const FixedString kGroup("Group");
constinit const FixedString kPartClef("PartClef");
constinit const FixedString kFullNameOffsetX("FullNameOffsetX");
constinit const FixedString kFullNameOffsetY("FullNameOffsetY");
constinit const FixedString kShortNameOffsetX("ShortNameOffsetX");
constinit const FixedString kShortNameOffsetY("ShortNameOffsetY");
constinit const FixedString kDefaultInstrumentName("DefaultInstrumentName");
constinit const FixedString kSharps("Sharps");
constinit const FixedString kFlags("Flags");
constinit const FixedString kPartDiat("PartDiat");
constinit const FixedString kPartChrom2("PartChrom2");
constinit const FixedString kClefStyle("ClefStyle");
constinit const FixedString kStaveType("StaveType");
constinit const FixedString kTop("Top");
constinit const FixedString kLogUnitLength("LogUnitLength");
constinit const FixedString kBeatGroups("BeatGroups");
constinit const FixedString kTimeSignatureString("TimeSignatureString");
constinit const FixedString kVisible("Visible");
constinit const FixedString kY("Y");
constinit const FixedString kDrawAtStartOfSystem("DrawAtStartOfSystem");
constinit const FixedString kDurn("Durn");
constinit const FixedString kTrem("Trem");
constinit const FixedString kArtic("Artic");
constinit const FixedString kDiat("Diat");
constinit const FixedString kChrom2("Chrom2");
constinit const FixedString kAcc("Acc");
constinit const FixedString kStringNum("StringNum");
constinit const FixedString kFullName("FullName");
constinit const FixedString kShortName("ShortName");
constinit const FixedString kStyledString("StyledString");
constinit const FixedString kMIDIData("MIDIData");
constinit const FixedString kYPositions("YPositions");

// The kinds of items and records.
constinit const FixedString kStaveMIDIData("StaveMIDIData");
constinit const FixedString kBar("Bar");
constinit const FixedString kBarSpacing("BarSpacing");
constinit const FixedString kStave("Stave");
constinit const FixedString kInstrument("Instrument");
constinit const FixedString kBarline("Barline");
constinit const FixedString kKeySignature("KeySignature");
constinit const FixedString kTransposition("Transposition");
constinit const FixedString kClef("Clef");
constinit const FixedString kStaveTypeChange("StaveTypeChange");
constinit const FixedString kTimeSignature("TimeSignature");
constinit const FixedString kSystemTextItem("SystemTextItem");
constinit const FixedString kYPosition("YPosition");
constinit const FixedString kNoteRest("NoteRest");
constinit const FixedString kNote("Note");

constinit const FixedString kNoLabel("");
constexpr const char* kInstrumentNameStyle = "text.instrumentname";
// "Flags" of a time signature that a conversion writes.
constexpr int kTimeSignatureFlags = 7;
// A system text keeps its height for each of the places where a system may show it.
constexpr int kYPositionCount = 5;
// Bits of "MIDIflags".
constexpr int kNoBankHigh = 1;
constexpr int kNoBankLow = 2;

// `childCount`: how many children the item will have, its "Type" among them.
TreeNode* AddItem(TreeNode* parent, const FixedString& kind, int childCount) {
    return AddTypedChild(parent, kNoLabel, kind, childCount);
}

// An item of the lead-in bar, which stands after every position and belongs to all voices.
TreeNode* AddLeadInItem(TreeNode* items, const FixedString& kind, int childCount) {
    TreeNode* const item = AddItem(items, kind, childCount);
    WriteItemHeader(item, kPositionAfterBar, kAllVoices, 0, 0);
    return item;
}

int PackBank(int bankLow, int bankHigh) {
    constexpr int kSevenBits = 127;
    const int high = bankHigh < 0 ? 0 : (bankHigh & kSevenBits) << 7;
    const int low = bankLow < 0 ? 0 : bankLow & kSevenBits;
    return high | low;
}

int PackMidiFlags(int bankLow, int bankHigh) {
    return (bankHigh < 0 ? kNoBankHigh : 0) | (bankLow < 0 ? kNoBankLow : 0);
}

int PackDuration(const NoteRestRecord& record) {
    return (record.DurationExponent & 15) | (record.DurationField & 3) << 4 |
           (record.DurationFlag ? 1 << 6 : 0);
}

int PackTremolo(const NoteRestRecord& record) {
    return (record.TremoloA * 8 + record.TremoloB) * 4 + record.TremoloC;
}

// The fields from bit 0 up in the order of the record, the number two bits wide. Conversions leave all at 0.
int PackNoteRestFlags(const NoteRestRecord& record) {
    return (record.Flag0 ? 1 : 0) | (record.FlagField & 3) << 1 | (record.Flag1 ? 1 << 3 : 0) |
           (record.Flag2 ? 1 << 4 : 0) | (record.Flag3 ? 1 << 5 : 0) | (record.Flag4 ? 1 << 6 : 0);
}

// Top and bottom with the host's line mark between them: a backslash, "n" and a backslash, not a line end.
String TimeSignatureText(int top, int logUnitLength) {
    return String::FromInt(top) + "\\n\\" + String::FromInt(kUnitsPerWholeNote >> logUnitLength);
}

} // namespace

void WriteItemHeader(TreeNode* item, int sr, int voices, int dx, int dy) {
    AddIntChildren(item, {{kSr, NarrowTo16Bits(sr)}, {kVoices, voices}, {kDx, dx}, {kDy, dy}});
}

TreeNode* AddStyledString(TreeNode* parent, const String& label, const String& text, const String& style) {
    TreeNode* const record = AddTypedChild(parent, label, kStyledString.Interned(), false);
    AddStringChild(record, kText, text);
    AddStringChild(record, kTextStyle, style);
    return record;
}

void AddStaveIndices(TreeNode* item, const Nvr::TVAList<int>& indices) {
    TreeNode* const staves = GetSection(item, SectionStaves);
    for (int place = 0; place < indices.Count(); ++place)
        AddIntChild(staves, "StaveIndex" + String::FromInt(place), indices.GetAt(place));
}

TreeNode* AddBar(TreeNode* bars, int makesStaveVisible) {
    TreeNode* const bar = AddItem(bars, kBar, 4);
    AddIntChildren(bar, {{kMakesStaveVisible, makesStaveVisible}, {kHasStaveTypeChanges, 0}});
    return bar;
}

TreeNode* AddBarSpacing(TreeNode* barSpacings, int barLength) {
    if (barSpacings == nullptr)
        return nullptr;
    const int barNumber = barSpacings->GetChildCount();
    TreeNode* const spacing = AddItem(barSpacings, kBarSpacing, 4);
    AddIntChildren(spacing, {{kBarNum, barNumber}, {kBarLength, NarrowTo16Bits(barLength)}});
    return spacing;
}

TreeNode* AddStave(TreeNode* staves, bool small) {
    TreeNode* const stave = AddItem(staves, kStave, 4);
    AddBoolChild(stave, kSmall, small);
    return stave;
}

TreeNode* AddStaveMidiData(TreeNode* stave, int program, int channel, int bankLow, int bankHigh) {
    TreeNode* const midi = AddTypedChild(stave, kMIDIData, kStaveMIDIData, 5);
    AddIntChildren(midi, {{kProgram, program},
                          {kChannel, channel},
                          {kBank, PackBank(bankLow, bankHigh)},
                          {kMIDIflags, PackMidiFlags(bankLow, bankHigh)}});
    return midi;
}

TreeNode* AddInstrument(TreeNode* instruments, const Nvr::TVAList<int>& indices, const String& defaultName,
                        const String& fullName, const String& shortName, const String& group,
                        const String& partClef, int fullNameOffsetX, int fullNameOffsetY,
                        int shortNameOffsetX, int shortNameOffsetY) {
    TreeNode* const instrument = AddItem(instruments, kInstrument, 12);
    AddStyledString(instrument, kFullName.Interned(), fullName, kInstrumentNameStyle);
    AddStyledString(instrument, kShortName.Interned(), shortName.IsEmpty() ? fullName : shortName,
                    kInstrumentNameStyle);
    AddStringChild(instrument, kGroup, group);
    AddStringChild(instrument, kPartClef, partClef);
    AddIntChildren(instrument, {{kFullNameOffsetX, fullNameOffsetX},
                                {kFullNameOffsetY, fullNameOffsetY},
                                {kShortNameOffsetX, shortNameOffsetX},
                                {kShortNameOffsetY, shortNameOffsetY}});
    AddStaveIndices(instrument, indices);
    AddStringChild(instrument, kDefaultInstrumentName, defaultName);
    return instrument;
}

TreeNode* AddBarline(TreeNode* barlines, const Nvr::TVAList<int>& indices) {
    TreeNode* const barline = AddItem(barlines, kBarline, 2);
    AddStaveIndices(barline, indices);
    return barline;
}

TreeNode* AddKeySignature(TreeNode* items, int sharps, int flags) {
    TreeNode* const signature = AddLeadInItem(items, kKeySignature, 7);
    AddIntChildren(signature, {{kSharps, sharps}, {kFlags, flags}});
    return signature;
}

TreeNode* AddTransposition(TreeNode* items, int partDiat, int partChrom2) {
    TreeNode* const transposition = AddLeadInItem(items, kTransposition, 7);
    AddIntChildren(transposition, {{kPartDiat, partDiat}, {kPartChrom2, partChrom2}});
    return transposition;
}

TreeNode* AddClef(TreeNode* items, const String& style, int flags) {
    TreeNode* const clef = AddLeadInItem(items, kClef, 7);
    AddIntChildren(clef, {{kFlags, flags}});
    AddStringChild(clef, kClefStyle, style);
    return clef;
}

TreeNode* AddStaveTypeChange(TreeNode* items, const String& staveType) {
    TreeNode* const change = AddLeadInItem(items, kStaveTypeChange, 6);
    AddStringChild(change, kStaveType, staveType);
    return change;
}

TreeNode* AddTimeSignature(TreeNode* items, int top, int logUnitLength) {
    TreeNode* const signature = AddItem(items, kTimeSignature, 10);
    WriteItemHeader(signature, kPositionBeforeBar, kAllVoices, 0, 0);
    AddIntChildren(signature, {{kTop, top}, {kLogUnitLength, logUnitLength}, {kBeatGroups, 0}});
    AddStringChild(signature, kTimeSignatureString, TimeSignatureText(top, logUnitLength));
    AddIntChildren(signature, {{kFlags, kTimeSignatureFlags}});
    return signature;
}

TreeNode* AddSystemText(TreeNode* items, int sr, const String& style, const String& text, int dx, int dy) {
    TreeNode* const item = AddItem(items, kSystemTextItem, 7);
    WriteItemHeader(item, sr, kAllVoices, dx, dy);
    AddStyledString(item, kStyledString.Interned(), text, style);
    TreeNode* const positions = AddTypedChild(item, kYPositions.Interned(), String(), false);
    for (int position = 0; position < kYPositionCount; ++position) {
        TreeNode* const record = AddItem(positions, kYPosition, 3);
        AddBoolChild(record, kVisible, true);
        AddIntChildren(record, {{kY, dy}});
    }
    return item;
}

TreeNode* AddText(TreeNode* items, int sr, const String& style, const String& text, int dx, int dy,
                  bool drawAtStartOfSystem) {
    TreeNode* const item = AddItem(items, kText, 7);
    WriteItemHeader(item, sr, kAllVoices, dx, dy);
    AddStyledString(item, kStyledString.Interned(), text, style);
    AddBoolChild(item, kDrawAtStartOfSystem, drawAtStartOfSystem);
    return item;
}

TreeNode* AddNoteRest(TreeNode* items, const NoteRestRecord& record) {
    TreeNode* const noteRest = AddItem(items, kNoteRest, 10);
    WriteItemHeader(noteRest, record.Position, record.Voices, record.Dx, record.Dy);
    AddIntChildren(noteRest, {{kDurn, PackDuration(record)},
                              {kTrem, PackTremolo(record)},
                              {kArtic, record.Artic},
                              {kFlags, PackNoteRestFlags(record)}});
    return noteRest;
}

TreeNode* AddNote(TreeNode* notes, const NoteRecord& record) {
    TreeNode* const note = AddItem(notes, kNote, 6);
    AddIntChildren(note, {{kDiat, record.Diat},
                          {kChrom2, record.Chrom2},
                          {kAcc, record.Acc},
                          {kStringNum, record.StringNum},
                          {kFlags, (record.Tied ? kNoteTied : 0) | record.OtherFlags}});
    return note;
}

} // namespace Fretline
