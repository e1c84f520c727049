#include "tests/Shared/Utils/tree/StoredTree.h"

#include <filesystem>
#include <fstream>
#include <random>

using Nvr::String;
using Nvr::TreeNode;

namespace {

class TreeNodeFilesTest : public TreeTest {
protected:
    TreeNodeFilesTest() { std::filesystem::create_directory(m_Folder); }
    ~TreeNodeFilesTest() override { std::filesystem::remove_all(m_Folder); }

    String Path(const char* name) const { return String((m_Folder / name).string()); }
    String WriteFile(const char* name, std::string_view bytes) const {
        std::ofstream(m_Folder / name, std::ios::binary) << bytes;
        return Path(name);
    }
    static std::string ReadFile(const String& path) {
        std::ifstream file(path.CStr(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::size_t FilesInFolder() const {
        const std::filesystem::directory_iterator files(m_Folder);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

private:
    std::filesystem::path m_Folder =
        std::filesystem::temp_directory_path() / ("tree-files-" + std::to_string(std::random_device()()));
};

std::unique_ptr<TreeNode> Load(const String& path) {
    return std::unique_ptr<TreeNode>(TreeNode::LoadFromFile(path));
}

} // namespace

TEST_F(TreeNodeFilesTest, SavedTreesAreLoadedAgain) {
    TreeNode tree("Root", "a \"quoted\" value");
    EXPECT_TRUE(tree.SaveToFile(Path("leaf.txt")));
    EXPECT_EQ(ReadFile(Path("leaf.txt")), "Root\"a \"\"quoted\"\" value\"\r\n");
    EXPECT_TRUE(Load(Path("leaf.txt"))->IsSameTree(tree));
    tree.AddChild(new TreeNode("Child", "1"));
    for (const bool binary : {false, true}) {
        for (const bool unicode : {false, true}) {
            EXPECT_TRUE(tree.SaveToFile(Path("tree"), binary, unicode, 0));
            EXPECT_EQ(ReadFile(Path("tree")), Written(tree, binary, unicode));
            EXPECT_TRUE(Load(Path("tree"))->IsSameTree(tree));
        }
    }
    EXPECT_EQ(FilesInFolder(), 2U);
    EXPECT_TRUE(TakeReports().empty());
}

TEST_F(TreeNodeFilesTest, LoadingReportsWhatWentWrong) {
    const String missing = Path("missing");
    EXPECT_EQ(Load(missing), nullptr);
    const std::string couldNot = "Could not open configuration file ";
    EXPECT_EQ(TakeReports(), (std::vector<std::string>{couldNot + missing.CStr()}));
    const String empty = WriteFile("empty", "");
    EXPECT_EQ(Load(empty), nullptr);
    EXPECT_EQ(TakeReports(), (std::vector<std::string>{"Could not read treenode - version is not recognized",
                                                       couldNot + empty.CStr()}));
    const String cut = WriteFile("cut", "A\r\n{\r\n\tB\r\n");
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
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_FALSE(tree.SaveToFile("/dev/full", true, true));
        TreeNode large("Root");
        for (int i = 0; i < 100000; ++i)
            large.AddChild(new TreeNode("Child", i));
        EXPECT_FALSE(large.SaveToFile("/dev/full"));
        EXPECT_EQ(TakeReports().size(), 2U);
    }
    EXPECT_FALSE(tree.SaveToFile(Path("")));
    EXPECT_EQ(FilesInFolder(), 0U);
}

TEST_F(TreeNodeFilesTest, SearchesEndAtTheFirstMatch) {
    const String text =
        WriteFile("text", "R\r\n{\r\n\tA \"1\"\r\n\tB \"2\"\r\n\t{\r\n\t\tA \"3\"\r\n\t}\r\n}\r\n");
    EXPECT_EQ(TreeNode::FindValueInFile(text, "A"), "1");
    EXPECT_EQ(TreeNode::FindValueInFile(text, "B"), "2");
    EXPECT_TRUE(TreeNode::FindValueInFile(text, "C").IsEmpty());
    const std::unique_ptr<TreeNode> found(TreeNode::FindSubTreeInFile(text, "B"));
    EXPECT_EQ(Outline(found.get()), "B=|2|(A=|3|)");
    const std::unique_ptr<TreeNode> root(TreeNode::FindSubTreeInFile(text, "R"));
    EXPECT_EQ(Outline(root.get()), "R(A=|1|,B=|2|(A=|3|))");
    EXPECT_EQ(TreeNode::FindSubTreeInFile(text, "C"), nullptr);
    EXPECT_TRUE(TakeReports().empty());
    EXPECT_EQ(TreeNode::FindSubTreeInFile(Path("missing"), "A"), nullptr);
    EXPECT_TRUE(TreeNode::FindValueInFile(Path("missing"), "A").IsEmpty());
    EXPECT_EQ(TakeReports().size(), 2U);
}
