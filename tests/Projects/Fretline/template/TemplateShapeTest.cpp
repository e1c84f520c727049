#include "tests/Projects/Fretline/template/LoadedTemplate.h"

#include "Shared/Utils/platform/Resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace {

// Children of a node as "label=value/children/nodes;" each.
void ExpectMembers(const Nvr::TreeNode& parent, const std::string& members) {
    std::ostringstream found;
    for (std::size_t at = 0; at < members.size(); at = members.find(';', at) + 1) {
        const std::string label = members.substr(at, members.find('=', at) - at);
        const Nvr::TreeNode* const node = parent.FindChild(label.c_str());
        ASSERT_NE(node, nullptr) << label;
        found << label << '=' << node->GetValue().View() << '/' << node->GetChildCount() << '/'
              << CountNodes(*node) << ';';
    }
    EXPECT_EQ(found.str(), members);
}

int CountLabel(const std::vector<VisitedNode>& nodes, std::string_view label) {
    return static_cast<int>(std::count_if(nodes.begin(), nodes.end(), [label](const VisitedNode& visited) {
        return visited.Node->GetLabel().View() == label;
    }));
}

int CountValue(const std::vector<VisitedNode>& nodes, std::string_view value) {
    return static_cast<int>(std::count_if(nodes.begin(), nodes.end(), [value](const VisitedNode& visited) {
        return visited.Node->GetValue().View() == value;
    }));
}

} // namespace

TEST(TemplateShape, RootHoldsTheDocument) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    EXPECT_TRUE(root->WasBinary);
    EXPECT_TRUE(root->WasUnicode);
    EXPECT_EQ(root->GetLabel(), "NvfFileVersion");
    EXPECT_EQ(root->GetValue(), "10450015");
    const std::string members =
        "Type=Score/0/1;ScoreOptions=/58/114;PrintSettings=/1/22;MajorVersion=1/0/1;Music=/59/81196;"
        "DefaultPartAppearance=/35/36;PartBatchPrintSettings=/20/21;FileID=/0/1;";
    ExpectMembers(*root, members);
    EXPECT_EQ(LabelsOf(*root), "Type,ScoreOptions,PrintSettings,MajorVersion,Music,DefaultPartAppearance,"
                               "PartBatchPrintSettings,FileID,");
    EXPECT_EQ(ValueOf(*root->GetChild(1), "Type"), "ScoreOptions");
    EXPECT_EQ(root->GetChild(1)->GetChild(1)->GetLabel(), "OriginalProgramVersion");
    EXPECT_EQ(ValueOf(*root->GetChild(1), "OriginalProgramVersion"), "5200");
    const Nvr::TreeNode* const printing = FindPath(*root, {"PrintSettings", "__PartMapDefault"});
    ASSERT_NE(printing, nullptr);
    EXPECT_EQ(ValueOf(*printing, "Type"), "PrintOptions");
    EXPECT_EQ(ValueOf(*root->FindChild("PartBatchPrintSettings"), "Type"), "PrintOptions");
    EXPECT_EQ(ValueOf(*root->FindChild("DefaultPartAppearance"), "Type"), "PartAppearanceValues");
}

TEST(TemplateShape, MusicHoldsItsSectionsInOrder) {
    const std::string order =
        "Type,Summary,MIDIConnections,SpacingTable,DeletedStaveKeywords,DeletedSystemKeywords,"
        "DeletedLinePbStyles,DeletedArticulationPbStyles,DeletedNoteheadPbStyles,"
        "DeletedSymbolPbStyles,LinePlaybackStyleList,ArticulationPlaybackStyleList,"
        "NoteheadPlaybackStyleList,SymbolPlaybackStyleList,TextStyles,SymbolCategories,"
        "IndexedSymbols,PenStyles,LineStyles,ClefStyles,IndexedNoteStyles,StaveTypes,SwingStyles,"
        "InstrumentList,EnsembleList,Options,PlayingOptions,GraphicDataList,BarSpacings,NumBars,"
        "SystemStave,SystemKeywordList,StaveKeywordList,Staves,InstrumentGroups,Barlines,Brackets,"
        "ChannelForNextInstrument,MusicTextFontName,MusicTextFontBold,MusicTextFontItalic,"
        "BaseTextFontName,CustomChordNameList,KontaktCustomSounds,SyncOptions,PartStaves,"
        "WorksheetExerciseInstructions,WorksheetBarsPerQuestion,WorksheetQuestionsPerSystem,"
        "WorksheetStudentVc1Visible,WorksheetStudentVc2Visible,WorksheetStudentVc3Visible,"
        "WorksheetStudentVc4Visible,WorksheetTeacherVc1Visible,WorksheetTeacherVc1Visible,"
        "WorksheetTeacherVc1Visible,WorksheetTeacherVc1Visible,PartExtractionFileSpec,PartsToExtract,";
    const std::string members =
        "Type=Music/0/1;StaveTypes=/236/26926;InstrumentList=/637/22296;IndexedSymbols=/944/12699;"
        "LineStyles=/127/7465;TextStyles=/88/3081;EnsembleList=/8/1747;StaveKeywordList=/163/1514;"
        "IndexedNoteStyles=/31/1241;Options=/234/1187;SystemKeywordList=/129/1033;SystemStave=/3/176;"
        "BarSpacings=/1/123;ClefStyles=/25/251;NumBars=0/0/1;Staves=/0/1;"
        "MusicTextFontName=Tenuto Text/0/1;BaseTextFontName=Times New Roman/0/1;";
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    const Nvr::TreeNode* const music = root->FindChild("Music");
    ASSERT_NE(music, nullptr);
    EXPECT_EQ(LabelsOf(*music), order);
    ExpectMembers(*music, members);
}

TEST(TemplateShape, KeepsTheConventionsOfStoredScores) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    for (const VisitedNode& visited : AllNodes(*root)) {
        const Nvr::TreeNode& node = *visited.Node;
        const std::string_view value = node.GetValue().View();
        for (int i = 1; i < node.GetChildCount(); ++i)
            EXPECT_NE(node.GetChild(i)->GetLabel(), "Type") << "not first in " << node.GetLabel().CStr();
        EXPECT_FALSE(node.GetValue().EqualsIgnoreCase("true") && value != "true") << node.GetLabel().CStr();
        EXPECT_FALSE(node.GetValue().EqualsIgnoreCase("false") && value != "false") << node.GetLabel().CStr();
        const std::string_view label = node.GetLabel().View();
        EXPECT_EQ(
            label.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-./\\_~"),
            std::string_view::npos)
            << "a reader of the text form would not take back " << label;
    }
}

TEST(TemplateShape, HasTheFiguresOfTheStoredObject) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    const std::vector<VisitedNode> nodes = AllNodes(*root);
    std::set<std::string_view> labels;
    std::set<std::string_view> values;
    int depth = 0;
    for (const VisitedNode& visited : nodes) {
        depth = std::max(depth, visited.Depth);
        labels.insert(visited.Node->GetLabel().View());
        values.insert(visited.Node->GetValue().View());
    }
    labels.erase("");
    values.erase("");
    EXPECT_EQ(nodes.size(), 81393U);
    EXPECT_EQ(depth, 9);
    EXPECT_EQ(CountLabel(nodes, "__PartMapDefault"), 217);
    EXPECT_EQ(CountLabel(nodes, "PartMapOverrides"), 6);
    EXPECT_EQ(CountLabel(nodes, "Type"), 6144);
    EXPECT_EQ(CountLabel(nodes, ""), 6907);
    EXPECT_EQ(CountValue(nodes, ""), 18099 - 6907) << "labels and values together have 18,099 empty strings";
    EXPECT_EQ(CountValue(nodes, "true"), 5340);
    EXPECT_EQ(CountValue(nodes, "false"), 3846);
    EXPECT_EQ(labels.size(), 915U);
    EXPECT_EQ(values.size(), 6891U);
    labels.insert(values.begin(), values.end());
    EXPECT_EQ(labels.size(), 7782U);
}

TEST(TemplateShape, ComesBackByteForByte) {
    const Nvr::TreeNodeRoot* const root = LoadTemplate();
    const std::span<const std::byte> stored =
        Nvr::Platform::FindDataResource(Nvr::Platform::ProcessModule(), "TREENODE", "", 100);
    EXPECT_EQ(stored.size(), 1439664U);
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "template-written-again.nvf";
    ASSERT_TRUE(root->SaveToFile(path.string().c_str(), true, true, 0));
    std::ifstream file(path, std::ios::binary);
    const std::string written((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    std::filesystem::remove(path);
    EXPECT_TRUE(written == std::string_view(reinterpret_cast<const char*>(stored.data()), stored.size()));
    const std::unique_ptr<Nvr::TreeNodeRoot> fromText(Nvr::TreeNode::LoadFromString(root->ToText()));
    ASSERT_NE(fromText, nullptr);
    EXPECT_TRUE(fromText->IsSameTree(*root)) << "the text form loses nothing either";
}
