#include "Shared/Utils/Reporting.h"
#include "tests/Shared/Utils/FilesTesting.h"
#include "tests/Shared/Utils/tree/StoredTree.h"

using Nvr::String;
using Nvr::TreeNode;
using Nvr::TreeNodeReader;

namespace {

class TreeNodeFilesTest : public TreeTest {
protected:
    String Path(const char* name) const { return m_Scratch.PathText(name); }
    FilesTesting::Scratch m_Scratch;
};

std::unique_ptr<TreeNode> Load(const String& path) {
    return std::unique_ptr<TreeNode>(TreeNode::LoadFromFile(path));
}

} // namespace

TEST_F(TreeNodeFilesTest, SavedTreesAreLoadedAgain) {
    TreeNode tree("Root", "a \"quoted\" value");
    EXPECT_TRUE(tree.SaveToFile(Path("leaf.txt")));
    EXPECT_EQ(FilesTesting::ReadAll(m_Scratch.Path("leaf.txt")), "Root\"a \"\"quoted\"\" value\"\r\n");
    EXPECT_TRUE(Load(Path("leaf.txt"))->IsSameTree(tree));
    tree.AddChild(new TreeNode("Child", "1"));
    for (const bool binary : {false, true}) {
        for (const bool unicode : {false, true}) {
            EXPECT_TRUE(tree.SaveToFile(Path("tree"), binary, unicode, 0));
            EXPECT_EQ(FilesTesting::ReadAll(m_Scratch.Path("tree")), Written(tree, binary, unicode));
            EXPECT_TRUE(Load(Path("tree"))->IsSameTree(tree));
        }
    }
    EXPECT_EQ(m_Scratch.CountEntries(), 2U);
    EXPECT_TRUE(TakeReports().empty());
}

TEST_F(TreeNodeFilesTest, LoadingReportsWhatWentWrong) {
    const String missing = Path("missing");
    EXPECT_EQ(Load(missing), nullptr);
    const std::string couldNot = "Could not open configuration file ";
    EXPECT_EQ(TakeReports(), (std::vector<std::string>{couldNot + missing.CStr()}));
    const String empty(m_Scratch.Write("empty", ""));
    EXPECT_EQ(Load(empty), nullptr);
    EXPECT_EQ(TakeReports(), (std::vector<std::string>{"Could not read treenode - version is not recognized",
                                                       couldNot + empty.CStr()}));
    const String cut(m_Scratch.Write("cut", "A\r\n{\r\n\tB\r\n"));
    EXPECT_EQ(Load(cut), nullptr);
    EXPECT_EQ(TakeReports(),
              (std::vector<std::string>{"Expected ~ _ or alpha numeric character in file " +
                                            std::string(cut.CStr()) + " line 3 - current text ",
                                        "Could not read treenode", couldNot + cut.CStr()}));
}

namespace {

// Takes down the source that each report names as its place.
class PlaceSink : public Nvr::LogSink {
public:
    PlaceSink() : m_Former(Nvr::SetLogSink(this)) {}
    ~PlaceSink() override { Nvr::SetLogSink(m_Former); }

    void Write(const String&, std::intptr_t, std::intptr_t) override {
        const Nvr::ReportLocation& place = Nvr::LatestReportLocation();
        const std::string_view file = place.File != nullptr && place.Line > 0 ? place.File : "none";
        Places.append(file.substr(file.find_last_of("/\\") + 1)).append(" ");
        Nvr::SetReportLocation(nullptr, 0);
    }

    std::string Places;

private:
    Nvr::LogSink* m_Former;
};

} // namespace

TEST_F(TreeNodeFilesTest, EveryFailureKeepsItsPlace) {
    const std::string text = "TreeNodeTextTokens.cpp ";
    const std::string binary = "TreeNodeBinaryParser.cpp ";
    const std::string reader = "TreeNodeReader.cpp ";
    const std::string file = "TreeNodeFiles.cpp ";
    const struct {
        std::string Document, Expected;
        const char* Why;
    } rows[] = {
        {"}", text + reader, "text"},
        {std::string(TreeNodeReader::kDeepestLevel + 2, '{'), text + reader, "text too deep"},
        {Bytes("00 01 07"), binary + reader, "a tag"},
        {Bytes("00 01 00"), binary + reader, "cut off"},
        {Bytes("00 09"), reader, "a version"},
    };
    PlaceSink sink;
    for (const auto& row : rows) {
        EXPECT_EQ(Load(String(m_Scratch.Write("bad", row.Document))), nullptr);
        EXPECT_EQ(std::exchange(sink.Places, {}), row.Expected + file) << row.Why;
    }
    EXPECT_EQ(Load(Path("missing")), nullptr);
    EXPECT_FALSE(TreeNode("A").SaveToFile(Path("no-such-folder/tree")));
    EXPECT_EQ(sink.Places, file + file);
}

TEST_F(TreeNodeFilesTest, AFailedSaveReportsAndLosesNothing) {
    const TreeNode tree("Root", "1");
    const String nowhere = Path("no-such-folder/tree");
    EXPECT_FALSE(tree.SaveToFile(nowhere));
    EXPECT_EQ(TakeReports(), (std::vector<std::string>{"Could not write configuration file " +
                                                       std::string(nowhere.CStr())}));
    EXPECT_FALSE(tree.SaveToFile("/dev/full", true, true));
    TreeNode large("Root");
    for (int i = 0; i < 100000; ++i)
        large.AddChild(new TreeNode("Child", i));
    EXPECT_FALSE(large.SaveToFile("/dev/full"));
    EXPECT_EQ(TakeReports().size(), 2U);
    EXPECT_FALSE(tree.SaveToFile(Path("")));
    EXPECT_EQ(m_Scratch.CountEntries(), 0U);
}
