#include "tests/Shared/Utils/FilesTesting.h"
#include "tests/Shared/Utils/tree/StoredTree.h"

using Nvr::String;
using Nvr::TreeNode;

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
