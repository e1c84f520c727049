#include "Projects/Fretline/shell/FretlineOptions.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>

namespace {

using Fretline::FretlineOptions;
using Nvr::String;

TEST(FretlineOptions, LoadTheLevelOrTheDefault) {
    const struct {
        const char* Why;
        std::string Bytes;
        int Level;
    } rows[] = {
        {"as stored", "\r\n{\r\n\tRhythmLevel \"2\"\r\n}\r\n", 2},
        {"a level that means nothing stays as it is", "\r\n{\r\n\tRhythmLevel \"7\"\r\n}\r\n", 7},
        {"a word is no number", "\r\n{\r\n\tRhythmLevel \"always\"\r\n}\r\n", 0},
        {"no such child", "\r\n{\r\n\tOther \"2\"\r\n}\r\n", 1},
        {"damaged", "{ { {", 1},
        {"empty", "", 1},
        {"deep", std::string(1000000, '{'), 1},
    };
    const TestSupport::ScratchFolder folder;
    for (const auto& row : rows) {
        const String path(folder.Write("options.txt", row.Bytes).c_str());
        EXPECT_EQ(FretlineOptions(path).GetRhythmLevel(), row.Level) << row.Why;
    }
    const String missing((folder.Path() / "missing.txt").string());
    EXPECT_EQ(FretlineOptions(missing).GetRhythmLevel(), 1) << "no file";
    const String aFolder(folder.Path().string());
    EXPECT_EQ(FretlineOptions(aFolder).GetRhythmLevel(), 1) << "a folder is no file";
}

TEST(FretlineOptions, SaveKeepsWhatItDoesNotKnow) {
    const TestSupport::ScratchFolder folder;
    const std::string file = folder.Write(
        "options.txt",
        "\r\n{\r\n\tBefore \"x\"\r\n\tRhythmLevel \"0\"\r\n\tBehind\r\n\t{\r\n\t\tA \"1\"\r\n\t}\r\n}\r\n");
    const String path(file.c_str());
    FretlineOptions options(path);
    options.SetRhythmLevel(2);
    options.Save();
    options.Save();
    EXPECT_EQ(FretlineOptions(path).GetRhythmLevel(), 2);
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromFile(path));
    ASSERT_NE(tree, nullptr);
    ASSERT_EQ(tree->GetChildCount(), 3);
    EXPECT_EQ(tree->GetChild(0)->GetLabel(), "Before");
    EXPECT_EQ(tree->GetChild(1)->GetValue(), "2");
    EXPECT_EQ(tree->GetChild(2)->GetChildValue("A", 0), 1);
}

TEST(FretlineOptions, SaveMakesANewFileInTheTextForm) {
    const TestSupport::ScratchFolder folder;
    const String path(FretlineOptions::PathIn(String(folder.Path().string())));
    FretlineOptions(path).Save();
    std::ifstream file(path.CStr(), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "\r\n{\r\n\tRhythmLevel \"1\"\r\n}\r\n");
}

TEST(FretlineOptions, SaveWithoutAPlaceToWriteLeavesTheObjectAsItIs) {
    const TestSupport::ScratchFolder folder;
    const String path((folder.Path() / "no such folder" / "new.txt").string());
    FretlineOptions options(path);
    options.SetRhythmLevel(2);
    options.Save();
    EXPECT_EQ(options.GetRhythmLevel(), 2);
    EXPECT_EQ(FretlineOptions(path).GetRhythmLevel(), 1);
}

} // namespace
