#include "Projects/Fretline/score/ScoreItems.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreTime.h"

namespace Fretline {

using Nvr::String;
using Nvr::TreeNode;

namespace {

constexpr const char* kInstrumentNameStyle = "text.instrumentname";
// "Flags" of a time signature that a conversion writes.
constexpr int kTimeSignatureFlags = 7;
// A system text keeps its height for each of the places where a system may show it.
constexpr int kYPositionCount = 5;
// Bits of "MIDIflags".
constexpr int kNoBankHigh = 1;
constexpr int kNoBankLow = 2;

TreeNode* AddItem(TreeNode* parent, const char* kind) {
    return AddTypedChild(parent, String(), kind, false);
}

// An item of the lead-in bar, which stands after every position and belongs to all voices.
TreeNode* AddLeadInItem(TreeNode* items, const char* kind) {
    TreeNode* const item = AddItem(items, kind);
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
    AddIntChild(item, "Sr", NarrowTo16Bits(sr));
    AddIntChild(item, "Voices", voices);
    AddIntChild(item, "Dx", dx);
    AddIntChild(item, "Dy", dy);
}

TreeNode* AddStyledString(TreeNode* parent, const String& label, const String& text, const String& style) {
    TreeNode* const record = AddTypedChild(parent, label, "StyledString", false);
    AddStringChild(record, "Text", text.CStr());
    AddStringChild(record, "TextStyle", style.CStr());
    return record;
}

void AddStaveIndices(TreeNode* item, const Nvr::TVAList<int>& indices) {
    TreeNode* const staves = GetSection(item, SectionStaves);
    for (int place = 0; place < indices.Count(); ++place)
        AddIntChild(staves, "StaveIndex" + String::FromInt(place), indices.GetAt(place));
}

TreeNode* AddBar(TreeNode* bars, int makesStaveVisible) {
    TreeNode* const bar = AddItem(bars, "Bar");
    AddIntChild(bar, "MakesStaveVisible", makesStaveVisible);
    AddIntChild(bar, "HasStaveTypeChanges", 0);
    return bar;
}

TreeNode* AddBarSpacing(TreeNode* barSpacings, int barLength) {
    if (barSpacings == nullptr)
        return nullptr;
    const int barNumber = barSpacings->GetChildCount();
    TreeNode* const spacing = AddItem(barSpacings, "BarSpacing");
    AddIntChild(spacing, "BarNum", barNumber);
    AddIntChild(spacing, "BarLength", NarrowTo16Bits(barLength));
    return spacing;
}

TreeNode* AddStave(TreeNode* staves, bool small) {
    TreeNode* const stave = AddItem(staves, "Stave");
    AddBoolChild(stave, "Small", small);
    return stave;
}

TreeNode* AddStaveMidiData(TreeNode* stave, int program, int channel, int bankLow, int bankHigh) {
    TreeNode* const midi = AddTypedChild(stave, "MIDIData", "StaveMIDIData", false);
    AddIntChild(midi, "Program", program);
    AddIntChild(midi, "Channel", channel);
    AddIntChild(midi, "Bank", PackBank(bankLow, bankHigh));
    AddIntChild(midi, "MIDIflags", PackMidiFlags(bankLow, bankHigh));
    return midi;
}

TreeNode* AddInstrument(TreeNode* instruments, const Nvr::TVAList<int>& indices, const String& defaultName,
                        const String& fullName, const String& shortName, const String& group,
                        const String& partClef, int fullNameOffsetX, int fullNameOffsetY,
                        int shortNameOffsetX, int shortNameOffsetY) {
    TreeNode* const instrument = AddItem(instruments, "Instrument");
    AddStyledString(instrument, "FullName", fullName, kInstrumentNameStyle);
    AddStyledString(instrument, "ShortName", shortName.IsEmpty() ? fullName : shortName,
                    kInstrumentNameStyle);
    AddStringChild(instrument, "Group", group.CStr());
    AddStringChild(instrument, "PartClef", partClef.CStr());
    AddIntChild(instrument, "FullNameOffsetX", fullNameOffsetX);
    AddIntChild(instrument, "FullNameOffsetY", fullNameOffsetY);
    AddIntChild(instrument, "ShortNameOffsetX", shortNameOffsetX);
    AddIntChild(instrument, "ShortNameOffsetY", shortNameOffsetY);
    AddStaveIndices(instrument, indices);
    AddStringChild(instrument, "DefaultInstrumentName", defaultName.CStr());
    return instrument;
}

TreeNode* AddBarline(TreeNode* barlines, const Nvr::TVAList<int>& indices) {
    TreeNode* const barline = AddItem(barlines, "Barline");
    AddStaveIndices(barline, indices);
    return barline;
}

TreeNode* AddKeySignature(TreeNode* items, int sharps, int flags) {
    TreeNode* const signature = AddLeadInItem(items, "KeySignature");
    AddIntChild(signature, "Sharps", sharps);
    AddIntChild(signature, "Flags", flags);
    return signature;
}

TreeNode* AddTransposition(TreeNode* items, int partDiat, int partChrom2) {
    TreeNode* const transposition = AddLeadInItem(items, "Transposition");
    AddIntChild(transposition, "PartDiat", partDiat);
    AddIntChild(transposition, "PartChrom2", partChrom2);
    return transposition;
}

TreeNode* AddClef(TreeNode* items, const String& style, int flags) {
    TreeNode* const clef = AddLeadInItem(items, "Clef");
    AddIntChild(clef, "Flags", flags);
    AddStringChild(clef, "ClefStyle", style.CStr());
    return clef;
}

TreeNode* AddStaveTypeChange(TreeNode* items, const String& staveType) {
    TreeNode* const change = AddLeadInItem(items, "StaveTypeChange");
    AddStringChild(change, "StaveType", staveType.CStr());
    return change;
}

TreeNode* AddTimeSignature(TreeNode* items, int top, int logUnitLength) {
    TreeNode* const signature = AddItem(items, "TimeSignature");
    WriteItemHeader(signature, kPositionBeforeBar, kAllVoices, 0, 0);
    AddIntChild(signature, "Top", top);
    AddIntChild(signature, "LogUnitLength", logUnitLength);
    AddIntChild(signature, "BeatGroups", 0);
    AddStringChild(signature, "TimeSignatureString", TimeSignatureText(top, logUnitLength).CStr());
    AddIntChild(signature, "Flags", kTimeSignatureFlags);
    return signature;
}

TreeNode* AddSystemText(TreeNode* items, int sr, const String& style, const String& text, int dx, int dy) {
    TreeNode* const item = AddItem(items, "SystemTextItem");
    WriteItemHeader(item, sr, kAllVoices, dx, dy);
    AddStyledString(item, "StyledString", text, style);
    TreeNode* const positions = AddTypedChild(item, "YPositions", String(), false);
    for (int position = 0; position < kYPositionCount; ++position) {
        TreeNode* const record = AddItem(positions, "YPosition");
        AddBoolChild(record, "Visible", true);
        AddIntChild(record, "Y", dy);
    }
    return item;
}

TreeNode* AddText(TreeNode* items, int sr, const String& style, const String& text, int dx, int dy,
                  bool drawAtStartOfSystem) {
    TreeNode* const item = AddItem(items, "Text");
    WriteItemHeader(item, sr, kAllVoices, dx, dy);
    AddStyledString(item, "StyledString", text, style);
    AddBoolChild(item, "DrawAtStartOfSystem", drawAtStartOfSystem);
    return item;
}

TreeNode* AddNoteRest(TreeNode* items, const NoteRestRecord& record) {
    TreeNode* const noteRest = AddItem(items, "NoteRest");
    WriteItemHeader(noteRest, record.Position, record.Voices, record.Dx, record.Dy);
    AddIntChild(noteRest, "Durn", PackDuration(record));
    AddIntChild(noteRest, "Trem", PackTremolo(record));
    AddIntChild(noteRest, "Artic", record.Artic);
    AddIntChild(noteRest, "Flags", PackNoteRestFlags(record));
    return noteRest;
}

TreeNode* AddNote(TreeNode* notes, const NoteRecord& record) {
    TreeNode* const note = AddItem(notes, "Note");
    AddIntChild(note, "Diat", record.Diat);
    AddIntChild(note, "Chrom2", record.Chrom2);
    AddIntChild(note, "Acc", record.Acc);
    AddIntChild(note, "StringNum", record.StringNum);
    AddIntChild(note, "Flags", (record.Tied ? kNoteTied : 0) | record.OtherFlags);
    return note;
}

} // namespace Fretline
