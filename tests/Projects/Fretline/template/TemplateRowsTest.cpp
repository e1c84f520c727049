#include "tests/Projects/Fretline/template/LoadedTemplate.h"

#include <gtest/gtest.h>

#include <set>

namespace {

// A list that is a child of Music. Fails the test and gives an empty list when it is missing.
class TemplateRows : public testing::Test {
protected:
    const Nvr::TreeNode& List(const char* label) const {
        static const Nvr::TreeNode kNothing;
        const Nvr::TreeNode* const list = FindPath(*m_Root, {"Music", label});
        EXPECT_NE(list, nullptr) << label;
        return list == nullptr ? kNothing : *list;
    }

    std::set<std::string> ValuesIn(const char* list, const char* label) const {
        std::set<std::string> values;
        for (int i = 0; i < List(list).GetChildCount(); ++i)
            values.insert(ValueOf(*List(list).GetChild(i), label));
        return values;
    }

    const Nvr::TreeNodeRoot* const m_Root = LoadTemplate();
};

// The values as "Label=value;" each.
void ExpectValues(const Nvr::TreeNode* row, const std::string& values) {
    ASSERT_NE(row, nullptr);
    std::string found;
    for (std::size_t at = 0; at < values.size(); at = values.find(';', at) + 1) {
        const std::string label = values.substr(at, values.find('=', at) - at);
        found.append(label).append("=").append(ValueOf(*row, label.c_str())).append(";");
    }
    EXPECT_EQ(found, values);
}

} // namespace

TEST_F(TemplateRows, TextStylesHaveTheirChildrenInOrder) {
    const std::string order =
        "Type,Name,Id,Compulsory,Height,Angle,FontName,BBits,BoxTop,BoxBottom,BoxLeft,BoxRight,Sizes,"
        "DefaultY,DefaultX,Alignment,SnapType,RepeatType,Leading,MusicTerms,NotOn1stPage,TypeOptions,"
        "PartHeight,OriginalStaveHeightInScore,FixedHeightInScore,FixedHeightInParts,"
        "UseMarginsRelativeToFirstPageX,UseMarginsRelativeToFirstPageY,";
    for (int i = 0; i < List("TextStyles").GetChildCount(); ++i) {
        const Nvr::TreeNode& row = *List("TextStyles").GetChild(i);
        EXPECT_EQ(LabelsOf(row), order) << ValueOf(row, "Id");
        EXPECT_EQ(ValueOf(row, "Type"), "TextStyle");
        EXPECT_EQ(ValueOf(*row.FindChild("TypeOptions"), "Type"), "EditableTypeOptions")
            << ValueOf(row, "Id");
    }
}

TEST_F(TemplateRows, ClefStylesHaveTheirChildrenInOrder) {
    for (int i = 0; i < List("ClefStyles").GetChildCount(); ++i) {
        const Nvr::TreeNode& row = *List("ClefStyles").GetChild(i);
        EXPECT_EQ(LabelsOf(row), "Type,Name,Id,Compulsory,Symbol,Diat,CentrePos,MaxSharpPos,MaxFlatPos,");
        EXPECT_EQ(ValueOf(row, "Type"), "ClefStyle");
    }
}

TEST_F(TemplateRows, StylesThatImportedItemsNameAreThere) {
    const Nvr::TreeNode& styles = List("TextStyles");
    ExpectValues(FindRow(styles, "Id", "text.instrumentname"),
                 "Name=Instrument names;FontName=Times New Roman;Height=77;Alignment=1;");
    ExpectValues(FindRow(styles, "Id", "text.staff.space.chordsymbol"),
                 "Name=Chord symbol;FontName=Tenuto Chords;Height=71;DefaultX=24;DefaultY=80;Alignment=2;");
    ExpectValues(FindRow(styles, "Id", "text.system.tempo"),
                 "Name=Tempo;FontName=Times New Roman;Height=84;DefaultX=-96;DefaultY=96;Alignment=0;");
    ExpectValues(FindRow(List("ClefStyles"), "Id", "clef.tab"), "Name=Tab;Symbol=422;Diat=41;");
    EXPECT_EQ(ValueOf(*List("IndexedSymbols").GetChild(422), "Name"), "Tab clef");
}

TEST_F(TemplateRows, RowsAreToldApartByTheirIds) {
    for (const char* list : {"TextStyles", "SymbolCategories", "IndexedSymbols", "PenStyles", "LineStyles",
                             "ClefStyles", "IndexedNoteStyles", "StaveTypes", "SwingStyles", "InstrumentList",
                             "EnsembleList", "SystemKeywordList", "StaveKeywordList", "LinePlaybackStyleList",
                             "ArticulationPlaybackStyleList"}) {
        const std::set<std::string> ids = ValuesIn(list, "Id");
        EXPECT_EQ(static_cast<int>(ids.size()), List(list).GetChildCount())
            << "an Id occurs twice in " << list;
        EXPECT_FALSE(ids.contains("(none)")) << list;
        EXPECT_FALSE(ids.contains("")) << list;
    }
}

TEST_F(TemplateRows, RowsNameOnlyRowsThatExist) {
    const struct {
        const char *Referrers, *Label, *List;
    } references[] = {
        {"LineStyles", "Pen", "PenStyles"},
        {"LineStyles", "PlaybackStyle", "LinePlaybackStyleList"},
        {"LineStyles", "TextStyle", "TextStyles"},
        {"IndexedSymbols", "Category", "SymbolCategories"},
        {"SymbolPlaybackStyleList", "SymbolId", "IndexedSymbols"},
        {"PlayingOptions", "SwingFeel", "SwingStyles"},
    };
    for (const auto& reference : references) {
        std::set<std::string> known = ValuesIn(reference.List, "Id");
        known.insert("");
        int seen = 0;
        for (const VisitedNode& visited : AllNodes(List(reference.Referrers))) {
            if (visited.Node->GetLabel() != reference.Label)
                continue;
            ++seen;
            EXPECT_TRUE(known.contains(visited.Node->GetValue().CStr()))
                << reference.Referrers << ": " << visited.Node->GetValue().CStr();
        }
        EXPECT_GT(seen, 0) << reference.Referrers;
    }
}

TEST_F(TemplateRows, SymbolNumbersAreInTheListOfSymbols) {
    constexpr long kNoSymbol = -1;
    const long count = List("IndexedSymbols").GetChildCount();
    int seen = 0;
    for (const VisitedNode& visited : AllNodes(*m_Root)) {
        if (visited.Node->GetLabel() != "Symbol")
            continue;
        ++seen;
        EXPECT_GE(visited.Node->GetValueAsLong(), kNoSymbol);
        EXPECT_LT(visited.Node->GetValueAsLong(), count);
    }
    EXPECT_GT(seen, 500);
}

TEST_F(TemplateRows, PartOfTheInstrumentsHaveTheBracketOfGuitars) {
    int guitars = 0;
    for (int i = 0; i < List("InstrumentList").GetChildCount(); ++i)
        guitars += ValueOf(*List("InstrumentList").GetChild(i), "BracketGroup") == "GuitarBracket" ? 1 : 0;
    EXPECT_EQ(guitars, 221);
}

TEST_F(TemplateRows, BarZeroHasASpacing) {
    const std::string order =
        "Type,BarNum,LhsIndent,RhsIndent,Spacings,NumBarRestExcepItems,BarNumDx,BarNumDy,"
        "ExtraGapAtStartOfSystem,BreakType,SectionEnd,PauseType,DrawBracket,DrawTimeSig,DrawKeySig,"
        "DrawClef,DrawSystemicBarline,DoesNotEndMultirest,SuppressAutoLayout,DrawBarNumber,"
        "SpecialPageBreakData,BreakTypeAtStart,";
    ASSERT_EQ(List("BarSpacings").GetChildCount(), 1);
    const Nvr::TreeNode& entry = *List("BarSpacings").GetChild(0);
    EXPECT_EQ(LabelsOf(entry), order);
    ExpectValues(&entry, "Type=BarSpacing;BarNum=0;BarLength=(none);");
    const Nvr::TreeNode* const spacings = FindPath(entry, {"Spacings", "__PartMapDefault"});
    ASSERT_NE(spacings, nullptr);
    ASSERT_EQ(spacings->GetChildCount(), 3);
    const char* const positions[] = {"-1", "0", "32512"};
    for (int i = 0; i < 3; ++i)
        ExpectValues(spacings->GetChild(i), std::string("Type=Spacing;Sr=") + positions[i] + ";");
}

TEST_F(TemplateRows, SystemStaveLeadsIn) {
    const Nvr::TreeNode& stave = List("SystemStave");
    EXPECT_EQ(LabelsOf(stave), "Type,MIDIData,Bars,");
    ExpectValues(&stave, "Type=SystemStave;");
    ExpectValues(stave.FindChild("MIDIData"), "Type=ClickMIDIData;");
    ASSERT_EQ(stave.FindChild("Bars")->GetChildCount(), 1);
    const Nvr::TreeNode& bar = *stave.FindChild("Bars")->GetChild(0);
    ExpectValues(&bar, "Type=Bar;");
    const Nvr::TreeNode* const items = bar.FindChild("Items");
    ASSERT_NE(items, nullptr);
    ASSERT_EQ(items->GetChildCount(), 3);
    ExpectValues(items->GetChild(0),
                 "Type=TimeSignature;Sr=-1;Top=4;LogUnitLength=8;BeatGroups=0;SymbolNum=0;"
                 "TimeSignatureString=4\\n\\4;Flags=4;");
    ExpectValues(items->GetChild(1), "Type=BarNumber;Sr=0;Number=0;Shown=false;");
    ExpectValues(items->GetChild(2), "Type=KeySignature;Sr=32512;Sharps=0;Flags=3;");
}
