#include "Projects/Fretline/score/BuildScore.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreHolder.h"
#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "tests/Projects/Fretline/score/NodeText.h"
#include "tests/support/FakeOutput.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace Fretline;
using Nvr::TreeNode;
using ScoreTest::Child;
using ScoreTest::ChildrenText;
using ScoreTest::Value;

// The least that a template holds, flattened.
void FillTemplate(TreeNode& root) {
    TreeNode* const music = Child(root, "Music");
    TreeNode* const staveTypes = Child(*music, "StaveTypes");
    for (const char* const id :
         {"stafftype.tab.6.guitar.standard", "stafftype.tab.6.rhythms.guitar.standard"}) {
        TreeNode* const row = Child(*staveTypes, "");
        Child(*row, "Id", id);
        Child(*row, "Category", "2");
        Child(*row, "ShowRhythms", staveTypes->GetChildCount() == 1 ? "false" : "true");
        Child(*row, "StaveLineSeparation", "48");
        TreeNode* const strings = Child(*row, "Pitches");
        for (const char* const pitch : {"80", "90", "100", "110", "118", "128"})
            Child(*strings, "", pitch);
    }
    Child(*Child(*Child(*music, "BarSpacings"), ""), "BarNum", "0");
    Child(*Child(*Child(*Child(*music, "SystemStave"), "Bars"), ""), "LeadIn", "1");
    Child(*music, "Staves");
    Child(*music, "Barlines");
}

// One text on its way into a small template.
class Conversion {
public:
    explicit Conversion(const std::string& text, int rhythmLevel = kRhythmsNever)
        : m_OptionsPath(m_Folder.Path() / "none"), m_OptionsText(m_OptionsPath.string()),
          m_Options(m_OptionsText) {
        m_Options.SetRhythmLevel(rhythmLevel);
        File = std::make_unique<TabFile>(m_Folder.Write("a.tab", text).c_str(), &m_Options, &Output);
        Analysis = std::make_unique<TabAnalysis>(*File);
        FillTemplate(Root);
        m_Score.SetRoot(&Root);
    }

    bool Build() { return BuildScore(*Analysis, m_Score, Output); }

    std::string Music(const char* label) const {
        return ChildrenText(*Root.FindChild("Music")->FindChild(label));
    }
    // The bars of the system stave after the lead-in, each on a line.
    std::string SystemBars() const {
        const TreeNode* const bars = Root.FindChild("Music")->FindChild("SystemStave")->FindChild("Bars");
        std::string text;
        for (int bar = 1; bar < bars->GetChildCount(); ++bar)
            text += ChildrenText(*bars->GetChild(bar)).substr(std::string(kBarHead).size()) + "\n";
        return text;
    }
    std::string Spacings() const {
        const TreeNode* const spacings = Root.FindChild("Music")->FindChild("BarSpacings");
        std::string text;
        for (int entry = 0; entry < spacings->GetChildCount(); ++entry)
            text += Value(*spacings->GetChild(entry), "BarLength", "none") + "/" +
                    Value(*spacings->GetChild(entry), "Flags", "none") + " ";
        return text;
    }

    std::vector<int> Percents() const {
        std::vector<int> percents;
        for (const TestSupport::FakeOutput::Progress& progress : Output.ProgressCalls)
            percents.push_back(progress.Percent);
        return percents;
    }

    static constexpr const char* kBarHead = "Type=Bar MakesStaveVisible=0 HasStaveTypeChanges=0";

    TestSupport::FakeOutput Output;
    std::unique_ptr<TabFile> File;
    std::unique_ptr<TabAnalysis> Analysis;
    TreeNode Root{"Root"};

private:
    TestSupport::ScratchFolder m_Folder;
    std::filesystem::path m_OptionsPath;
    Nvr::String m_OptionsText;
    FretlineOptions m_Options;
    ScoreHolder m_Score;
};

// Staves of any number of strings; `bars` holds what stands on the lowest string of each bar.
std::string Stave(int strings, std::initializer_list<const char*> bars) {
    std::string text;
    for (int line = 0; line < strings; ++line) {
        text += "|";
        for (const char* const bar : bars)
            text +=
                (line == strings - 1 ? std::string(bar) : std::string(std::string_view(bar).size(), '-')) +
                "|";
        text += "\n";
    }
    return text;
}

TEST(BuildScore, WritesTheWorkedExampleChildForChild) {
    Conversion conversion(Stave(6, {"--0-----------"}));
    TreeNode* const music = conversion.Root.FindChild("Music");
    const std::string staveTypes = conversion.Music("StaveTypes");
    // The reading gives a quaver in a bar of its length. The times of the example are set by hand, when the
    // bar is read and nothing yet known of it: a crotchet in a bar of 1024.
    conversion.Output.OnProgress = [&](int) {
        conversion.Analysis->GetReadableBars().front()->SetBarLength(1024);
        const TreeNode* const bars = music->FindChild("Staves")->GetChild(0)->FindChild("Bars");
        SetIntChild(bars->GetChild(1)->FindChild("Items")->GetChild(0), "Durn", 8);
    };
    ASSERT_TRUE(conversion.Build());
    EXPECT_EQ(conversion.Percents(), std::vector<int>{20});
    EXPECT_EQ(
        ChildrenText(*music),
        "StaveTypes(" + staveTypes +
            ") BarSpacings((BarNum=0 BarLength=0) (Type=BarSpacing BarNum=1 BarLength=1024 Flags=7)) "
            "SystemStave(Bars((LeadIn=1) (Type=Bar MakesStaveVisible=0 HasStaveTypeChanges=0))) "
            "Staves((Type=Stave Small=False "
            "MIDIData(Type=StaveMIDIData Program=25 Channel=0 Bank=0 MIDIflags=3) "
            "Bars((Type=Bar MakesStaveVisible=0 HasStaveTypeChanges=0 Items("
            "(Type=KeySignature Sr=32512 Voices=15 Dx=0 Dy=0 Sharps=0 Flags=3) "
            "(Type=Transposition Sr=32512 Voices=15 Dx=0 Dy=0 PartDiat=0 PartChrom2=0) "
            "(Type=Clef Sr=32512 Voices=15 Dx=0 Dy=0 Flags=0 ClefStyle=clef.tab) "
            "(Type=StaveTypeChange Sr=32512 Voices=15 Dx=0 Dy=0 StaveType=stafftype.tab.6.guitar.standard))) "
            "(Type=Bar MakesStaveVisible=1 HasStaveTypeChanges=0 Items("
            "(Type=NoteRest Sr=0 Voices=1 Dx=0 Dy=0 Durn=8 Trem=2 Artic=0 Flags=0 "
            "Notes((Type=Note Diat=23 Chrom2=80 Acc=0 StringNum=0 Flags=0)))))))) "
            "Barlines((Type=Barline Staves(StaveIndex0=0))) "
            "ReBeamAll=True "
            "Instruments((Type=Instrument FullName(Type=StyledString Text=Guitar "
            "TextStyle=text.instrumentname) "
            "ShortName(Type=StyledString Text=Gtr. TextStyle=text.instrumentname) Group=GuitarBracket "
            "PartClef= "
            "FullNameOffsetX=0 FullNameOffsetY=0 ShortNameOffsetX=0 ShortNameOffsetY=0 Staves(StaveIndex0=0) "
            "DefaultInstrumentName=Guitar))");
}

TEST(BuildScore, TakesFourStringsForABassAndMakesItsStaveType) {
    const struct {
        int Strings;
        const char* Names;
        int Program;
        const char* StaveType;
    } rows[] = {
        {4, "Bass guitar/Bass Guitar/Bass", 33, "stafftype.tab.6.guitar.standard.fretline.56667686"},
        {5, "Guitar/Guitar/Gtr.", 25, "stafftype.tab.6.guitar.standard.fretline.8090100110118"},
        {6, "Guitar/Guitar/Gtr.", 25, "stafftype.tab.6.guitar.standard"},
    };
    for (const auto& row : rows) {
        Conversion conversion(Stave(row.Strings, {"--0-----------"}));
        ASSERT_TRUE(conversion.Build());
        const TreeNode& music = *conversion.Root.FindChild("Music");
        const TreeNode& instrument = *music.FindChild("Instruments")->GetChild(0);
        EXPECT_EQ(Value(instrument, "DefaultInstrumentName") + "/" +
                      Value(*instrument.FindChild("FullName"), "Text") + "/" +
                      Value(*instrument.FindChild("ShortName"), "Text"),
                  row.Names);
        const TreeNode& stave = *music.FindChild("Staves")->GetChild(0);
        EXPECT_EQ(stave.FindChild("MIDIData")->GetChildValue("Program", 0), row.Program);
        const TreeNode& leadIn = *stave.FindChild("Bars")->GetChild(0)->FindChild("Items");
        EXPECT_EQ(Value(*leadIn.GetChild(3), "StaveType"), row.StaveType);
        EXPECT_EQ(music.FindChild("StaveTypes")->GetChildCount(), row.Strings == 6 ? 2 : 3);
    }
}

TEST(BuildScore, WritesASignatureWhereItDiffersFromTheBarBefore) {
    //                                       bar 1    bar 2    bar 3    bar 4
    const std::string signatures = "  3/4              6/8      6/8 \n";
    Conversion conversion(signatures + Stave(6, {"--0-----", "--0-----", "--0-----", "--0-----"}));
    ASSERT_TRUE(conversion.Build());
    EXPECT_EQ(conversion.SystemBars(),
              " Items((Type=TimeSignature Sr=-1 Voices=15 Dx=0 Dy=0 Top=3 LogUnitLength=8 BeatGroups=0 "
              "TimeSignatureString=3\\n\\4 Flags=7))\n"
              "\n"
              " Items((Type=TimeSignature Sr=-1 Voices=15 Dx=0 Dy=0 Top=6 LogUnitLength=7 BeatGroups=0 "
              "TimeSignatureString=6\\n\\8 Flags=7))\n"
              "\n");
}

std::string LabelText(const char* text, int dy) {
    const std::string height = std::to_string(dy);
    const std::string position = "(Type=YPosition Visible=True Y=" + height + ")";
    return std::string(" Items((Type=SystemTextItem Sr=-1 Voices=15 Dx=0 Dy=") + height +
           " StyledString(Type=StyledString Text=" + text + " TextStyle=text.system.tempo) YPositions(" +
           position + " " + position + " " + position + " " + position + " " + position + ")))";
}

TEST(BuildScore, LabelsAndChordsMakeRoom) {
    const struct {
        const char* Why;
        std::string Above, SystemBars;
        const char* Spacings;
    } rows[] = {
        {"a label over the first bar leaves the template's spacing alone", " Intro\n",
         LabelText("Intro", 32) + " GapBelowStave=400\n\n", "0/none 128/7 128/7 "},
        {"a label over the second bar marks the spacing before it", "          Verse 1\n",
         "\n" + LabelText("Verse 1", 32) + " GapBelowStave=400\n", "0/none 128/6 128/7 "},
        {"chords alone", "  Am\n", " GapBelowStave=256\n\n", "0/none 128/7 128/7 "},
        {"a label over chords stands higher", " Intro\n  Am\n",
         LabelText("Intro", 128) + " GapBelowStave=400\n\n", "0/none 128/7 128/7 "},
    };
    for (const auto& row : rows) {
        Conversion conversion(row.Above + Stave(6, {"--0-----", "--0-----"}));
        ASSERT_TRUE(conversion.Build());
        EXPECT_EQ(conversion.SystemBars(), row.SystemBars) << row.Why;
        EXPECT_EQ(conversion.Spacings(), row.Spacings) << row.Why;
    }
}

TEST(BuildScore, WithoutBarsOrMusicThereIsNoScore) {
    Conversion empty("nothing to read here\n");
    EXPECT_THROW(empty.Build(), std::out_of_range);

    Conversion silent(Stave(6, {"--------------"}));
    EXPECT_FALSE(silent.Build()) << "a bar without notes is read and gives no score bar";
    EXPECT_EQ(silent.Spacings(), "0/none ");
    EXPECT_EQ(silent.Music("Staves").substr(0, 23), "(Type=Stave Small=False");

    Conversion bare(Stave(6, {"--0-----------"}));
    bare.Root.ClearChildren();
    EXPECT_FALSE(bare.Build());
    EXPECT_EQ(bare.Root.GetChildCount(), 0);
}

TEST(BuildScore, LeavesOutWhatTheTemplateLacks) {
    for (const char* const missing : {"StaveTypes", "BarSpacings", "SystemStave", "Staves", "Barlines"}) {
        Conversion conversion(" Intro\n" + Stave(6, {"--0-----", "--0-----"}));
        TreeNode* const music = conversion.Root.FindChild("Music");
        music->RemoveChild(music->FindChild(missing));
        EXPECT_TRUE(conversion.Build()) << missing;
        EXPECT_EQ(music->FindChild("Staves")->GetChild(0)->FindChild("Bars")->GetChildCount(), 3) << missing;
    }
}

} // namespace
