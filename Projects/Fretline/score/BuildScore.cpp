#include "Projects/Fretline/score/BuildScore.h"

#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreHolder.h"
#include "Projects/Fretline/score/ScoreItems.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Shared/NotaveraAPI/ConverterOutput.h"

namespace Fretline {

using Nvr::String;
using Nvr::TreeNode;

namespace {

// The part of the progress bar in which the bars of the text are read.
constexpr int kFirstPercentOfBars = 20;
constexpr int kPercentOfBars = 60;

// "MakesStaveVisible" of the lead-in bar and of the bars of the system stave.
constexpr int kBarWithoutMusic = 0;

// "Flags" of a bar spacing, and those of the bar before a section label.
constexpr int kSpacingFlags = 7;
constexpr int kSpacingFlagsBeforeLabel = 6;

constexpr int kNoSharps = 0;
constexpr int kKeySignatureFlags = 3;
constexpr int kNoBank = -1;

// Heights and gaps, in the host's units.
constexpr int kLabelHeight = 32;
constexpr int kLabelHeightAboveChords = 128;
constexpr int kGapForLabel = 400;
constexpr int kGapForChords = 256;

constexpr const char* kRhythmStaveType = "stafftype.tab.6.rhythms.guitar.standard";
constexpr const char* kPlainStaveType = "stafftype.tab.6.guitar.standard";

struct InstrumentKind {
    const char* DefaultName;
    const char* FullName;
    const char* ShortName;
    int MidiProgram;
};

constexpr InstrumentKind kBass = {"Bass guitar", "Bass Guitar", "Bass", 33};
constexpr InstrumentKind kGuitar = {"Guitar", "Guitar", "Gtr.", 25};

TreeNode* FindIn(const TreeNode* parent, const char* label) {
    return parent != nullptr ? parent->FindChild(label) : nullptr;
}

Nvr::TVAList<int> CopyOf(const std::vector<int>& tuning) {
    Nvr::TVAList<int> pitches(static_cast<int>(tuning.size()));
    for (const int pitch : tuning)
        pitches.Add(pitch);
    return pitches;
}

// What one pass over the score bars leaves for the next.
struct FormerBar {
    TreeNode* Spacing = nullptr;
    const TabTimeSignature* TimeSignature = nullptr;
};

// Writes one score: the instrument, the stave with its lead-in, the music, and what is known only when all
// bars have been read. Borrows everything; what the template lacks is left out.
class ScoreBuilder {
public:
    ScoreBuilder(TabAnalysis& analysis, ScoreHolder& score, Nvr::ConverterOutput& output, TreeNode& music)
        : m_Analysis(analysis), m_Score(score), m_Output(output), m_Music(music) {
        m_StaveIndices.Add(0);
    }

    // True when the score has a bar. Throws std::out_of_range when the text has none to read.
    bool Build() {
        AddBoolChild(&m_Music, "ReBeamAll", true);
        const TabBar& firstBar = *m_Analysis.GetReadableBars().at(0);
        const InstrumentKind& instrument = firstBar.GetLineCount() == kStringsOfABass ? kBass : kGuitar;
        WriteInstrument(instrument);
        ClearLeadInSpacing();
        WriteStave(instrument);
        WriteLeadIn();
        WriteMusic();
        ChooseStaveType(CopyOf(firstBar.GetTuning()), m_Analysis.HasRhythms());
        return WriteScoreBars();
    }

private:
    void WriteInstrument(const InstrumentKind& kind) {
        AddInstrument(GetSection(&m_Music, SectionInstruments), m_StaveIndices, kind.DefaultName,
                      kind.FullName, kind.ShortName, "GuitarBracket", String(), 0, 0, 0, 0);
        AddBarline(GetSection(&m_Music, SectionBarlines), m_StaveIndices);
    }

    // The template's own entry stands for the lead-in bar, which takes no time.
    void ClearLeadInSpacing() {
        m_BarSpacings = FindIn(&m_Music, "BarSpacings");
        if (m_BarSpacings != nullptr)
            SetIntChild(m_BarSpacings->GetChild(0), "BarLength", 0);
    }

    void WriteStave(const InstrumentKind& kind) {
        TreeNode* const stave = AddStave(GetSection(&m_Music, SectionStaves), false);
        AddStaveMidiData(stave, kind.MidiProgram, 0, kNoBank, kNoBank);
        m_Bars = GetSection(stave, SectionBars);
    }

    void WriteLeadIn() {
        m_LeadInItems = GetSection(AddBar(m_Bars, kBarWithoutMusic), SectionItems);
        AddKeySignature(m_LeadInItems, kNoSharps, kKeySignatureFlags);
        AddTransposition(m_LeadInItems, 0, 0);
        AddClef(m_LeadInItems, "clef.tab", 0);
    }

    void WriteMusic() {
        TreeNode* lastNoteRest = nullptr;
        const std::vector<TabBar*>& bars = m_Analysis.GetReadableBars();
        const auto count = static_cast<std::int64_t>(bars.size());
        for (std::int64_t index = 0; index < count; ++index) {
            bars[static_cast<std::size_t>(index)]->ImportToScore(m_Bars, lastNoteRest);
            m_Output.SetProgress(kFirstPercentOfBars + static_cast<int>(index * kPercentOfBars / count),
                                 String());
        }
    }

    // Puts the stave on a stave type with the tuning of the text, one of the template's or a new one.
    void ChooseStaveType(const Nvr::TVAList<int>& pitches, bool hasRhythms) {
        String id;
        if (m_Score.FindStaveType(pitches, hasRhythms, id)) {
            AddStaveTypeChange(m_LeadInItems, id);
            return;
        }
        const String base(hasRhythms ? kRhythmStaveType : kPlainStaveType);
        String digits;
        for (const int pitch : pitches)
            digits += String::FromInt(pitch);
        const String newId = base + ".fretline." + digits;
        if (m_Score.CreateStaveType(newId, "tab " + digits, pitches, base))
            AddStaveTypeChange(m_LeadInItems, newId);
    }

    bool WriteScoreBars() {
        TreeNode* const systemBars = FindIn(FindIn(&m_Music, "SystemStave"), "Bars");
        const int count = m_Analysis.ScoreBarCount();
        FormerBar former;
        for (int scoreBar = 1; scoreBar <= count; ++scoreBar)
            former = WriteScoreBar(scoreBar, AddBar(systemBars, kBarWithoutMusic), former);
        return count > 0;
    }

    FormerBar WriteScoreBar(int scoreBar, TreeNode* systemBar, const FormerBar& former) {
        TreeNode* const spacing = AddBarSpacing(m_BarSpacings, m_Analysis.BarLengthOf(scoreBar));
        SetIntChild(spacing, "Flags", kSpacingFlags);
        WriteLabel(scoreBar, systemBar, former.Spacing);
        if (const int gap = GapAbove(scoreBar); gap > 0)
            AddIntChild(systemBar, "GapBelowStave", gap);
        const TabTimeSignature* const timeSignature = m_Analysis.TimeSignatureOf(scoreBar);
        WriteTimeSignature(systemBar, timeSignature, former.TimeSignature);
        return {spacing, timeSignature};
    }

    void WriteLabel(int scoreBar, TreeNode* systemBar, TreeNode* formerSpacing) {
        const RiffLabel* const label = m_Analysis.LabelOf(scoreBar);
        if (label == nullptr)
            return;
        SetIntChild(formerSpacing, "Flags", kSpacingFlagsBeforeLabel);
        // A section label takes the tempo style whatever it says.
        AddSystemText(GetSection(systemBar, SectionItems), kPositionBeforeBar, "text.system.tempo",
                      label->GetText(), 0,
                      m_Analysis.BarHasChords(scoreBar) ? kLabelHeightAboveChords : kLabelHeight);
    }

    // Room for the label and the chords of a bar; 0 for none.
    int GapAbove(int scoreBar) const {
        if (m_Analysis.LabelOf(scoreBar) != nullptr)
            return kGapForLabel;
        return m_Analysis.BarHasChords(scoreBar) ? kGapForChords : 0;
    }

    static void WriteTimeSignature(TreeNode* systemBar, const TabTimeSignature* signature,
                                   const TabTimeSignature* former) {
        if (signature == nullptr || (former != nullptr && former->IsSameAs(*signature)))
            return;
        AddTimeSignature(GetSection(systemBar, SectionItems), signature->m_Numerator,
                         signature->GetLogUnitLength());
    }

    TabAnalysis& m_Analysis;
    ScoreHolder& m_Score;
    Nvr::ConverterOutput& m_Output;
    TreeNode& m_Music;
    Nvr::TVAList<int> m_StaveIndices;
    TreeNode* m_BarSpacings = nullptr;
    TreeNode* m_Bars = nullptr;
    TreeNode* m_LeadInItems = nullptr;
};

} // namespace

bool BuildScore(TabAnalysis& analysis, ScoreHolder& score, Nvr::ConverterOutput& output) {
    TreeNode* const music = score.Music();
    return music != nullptr && ScoreBuilder(analysis, score, output, *music).Build();
}

} // namespace Fretline
