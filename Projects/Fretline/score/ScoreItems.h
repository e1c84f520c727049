#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/VAList.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <cstdint>

/// The vocabulary of a written score: one operation a kind of item. Each appends to the section it is given
/// and gives back the item, or null when there is no section; the order of the children is the stored order.
/// Times are in score units (1024 to the whole note), distances in the host's units.
namespace Fretline {

/// Sorts before every position of a bar.
constexpr int kPositionBeforeBar = -1;
/// Sorts after every position of a bar.
constexpr int kPositionAfterBar = 32512;
/// Bit mask of all four voices.
constexpr int kAllVoices = 15;
/// The first voice only.
constexpr int kFirstVoice = 1;
/// Set in the "Flags" of a Note that is tied to the next.
constexpr int kNoteTied = 128;

/// What a NoteRest is made of. Fields that conversions never set stay at their defaults.
struct NoteRestRecord {
    std::int16_t Position = 0;
    int Voices = kFirstVoice;
    int Dx = 0;
    int Dy = 0;
    /// The duration is 1 << DurationExponent score units.
    int DurationExponent = 0;
    int DurationField = 0;
    bool DurationFlag = false;
    int TremoloA = 0;
    int TremoloB = 0;
    int TremoloC = 2;
    int Artic = 0;
    bool Flag0 = false;
    int FlagField = 0;
    bool Flag1 = false;
    bool Flag2 = false;
    bool Flag3 = false;
    bool Flag4 = false;
};

/// What a Note is made of: pitch as diatonic step and MIDI note number times 2, string from 0 at the lowest.
struct NoteRecord {
    int Diat = 0;
    int Chrom2 = 0;
    int StringNum = 0;
    bool Tied = false;
    int OtherFlags = 0;
    int Acc = 0;
};

/// "Sr", "Voices", "Dx", "Dy"; `sr` passes through 16 signed bits.
void WriteItemHeader(Nvr::TreeNode* item, int sr, int voices, int dx, int dy);
Nvr::TreeNode* AddStyledString(Nvr::TreeNode* parent, const Nvr::String& label, const Nvr::String& text,
                               const Nvr::String& style);
void AddStaveIndices(Nvr::TreeNode* item, const Nvr::TVAList<int>& indices);

/// `makesStaveVisible` is 1 for a bar of music, else 0.
Nvr::TreeNode* AddBar(Nvr::TreeNode* bars, int makesStaveVisible);
/// `barLength` passes through 16 signed bits.
Nvr::TreeNode* AddBarSpacing(Nvr::TreeNode* barSpacings, int barLength);
Nvr::TreeNode* AddStave(Nvr::TreeNode* staves, bool small);
/// A negative bank value means none.
Nvr::TreeNode* AddStaveMidiData(Nvr::TreeNode* stave, int program, int channel, int bankLow, int bankHigh);
/// An empty short name takes the full name.
Nvr::TreeNode* AddInstrument(Nvr::TreeNode* instruments, const Nvr::TVAList<int>& indices,
                             const Nvr::String& defaultName, const Nvr::String& fullName,
                             const Nvr::String& shortName, const Nvr::String& group,
                             const Nvr::String& partClef, int fullNameOffsetX, int fullNameOffsetY,
                             int shortNameOffsetX, int shortNameOffsetY);
Nvr::TreeNode* AddBarline(Nvr::TreeNode* barlines, const Nvr::TVAList<int>& indices);
Nvr::TreeNode* AddKeySignature(Nvr::TreeNode* items, int sharps, int flags);
Nvr::TreeNode* AddTransposition(Nvr::TreeNode* items, int partDiat, int partChrom2);
Nvr::TreeNode* AddClef(Nvr::TreeNode* items, const Nvr::String& style, int flags);
Nvr::TreeNode* AddStaveTypeChange(Nvr::TreeNode* items, const Nvr::String& staveType);
Nvr::TreeNode* AddTimeSignature(Nvr::TreeNode* items, int top, int logUnitLength);
Nvr::TreeNode* AddSystemText(Nvr::TreeNode* items, int sr, const Nvr::String& style, const Nvr::String& text,
                             int dx, int dy);
Nvr::TreeNode* AddText(Nvr::TreeNode* items, int sr, const Nvr::String& style, const Nvr::String& text,
                       int dx, int dy, bool drawAtStartOfSystem);
Nvr::TreeNode* AddNoteRest(Nvr::TreeNode* items, const NoteRestRecord& record);
Nvr::TreeNode* AddNote(Nvr::TreeNode* notes, const NoteRecord& record);

} // namespace Fretline
