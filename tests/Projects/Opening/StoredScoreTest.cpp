// A stored score is read bar by bar, and gives what its whole tree gives, whatever is odd about it.

#include "Projects/Score/MusicXml.h"
#include "tests/Shared/Utils/tree/StoredTree.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TabBook.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Nvr::TreeNode;
using Score::ScoreModel;

std::unique_ptr<TreeNode> Load(const std::string& bytes) {
    return std::unique_ptr<TreeNode>(TreeNode::LoadFromMemory(bytes.data(), bytes.size()));
}

TreeNode& Follow(TreeNode& node, std::initializer_list<const char*> labels) {
    TreeNode* found = &node;
    for (const char* label : labels)
        found = found->FindChild(label);
    return *found;
}

TreeNode& Staves(TreeNode& score) {
    return Follow(score, {"Music", "Staves"});
}

TreeNode& Bars(TreeNode& score, int stave) {
    return Follow(*Staves(score).GetChild(stave), {"Bars"});
}

void SpoilNote(TreeNode& bar) {
    TreeNode& items = Follow(bar, {"Items"});
    for (int i = 0; i < items.GetChildCount(); ++i)
        if (TreeNode* const notes = items.GetChild(i)->FindChild("Notes"))
            notes->GetChild(0)->FindChild("StringNum")->SetValue(99);
}

// What a reading gave: all that is written from it, or why there is none.
std::string Told(const std::optional<ScoreModel>& model, const std::string& why) {
    return model ? Score::MusicXmlText(*model) : "none: " + why;
}

} // namespace

TEST(StoredScore, IsReadAsItsWholeTree) {
    const TestSupport::ScratchFolder folder;
    folder.StoreLevel(2);
    TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path().string());
    TestSupport::TabBookStyle style;
    style.HasChords = style.HasLabels = style.HasTimeSignatures = true;
    host.Open(folder.Write("book.tab", TestSupport::MakeTabBook(60, style, 3)));
    const struct {
        const char* What;
        // In what comes of it.
        const char* Gives;
        void (*Change)(TreeNode& score);
    } rows[] = {
        {"as it is", "<measure number=\"24\"", [](TreeNode&) {}},
        {"an empty bar in the middle", "<measure number=\"23\"",
         [](TreeNode& score) { Bars(score, 0).GetChild(3)->ClearChildren(); }},
        {"an empty lead-in", "none: its stave type",
         [](TreeNode& score) { Bars(score, 0).GetChild(0)->ClearChildren(); }},
        {"the lead-in alone", "<measure number=\"1\"",
         [](TreeNode& score) {
             for (TreeNode& bars = Bars(score, 0); bars.GetChildCount() > 1;)
                 bars.RemoveChild(bars.GetChild(1));
         }},
        {"a bad note", "none: a note in it lies on a string that no instrument has",
         [](TreeNode& score) { SpoilNote(*Bars(score, 0).GetChild(5)); }},
        {"a second stave with a bad note", "<measure number=\"24\"",
         [](TreeNode& score) {
             Staves(score).AddChild(new TreeNode(*Staves(score).GetChild(0)));
             SpoilNote(*Bars(score, 1).GetChild(5));
         }},
        {"no bars", "none: it has no lead-in bar", [](TreeNode& score) { Bars(score, 0).ClearChildren(); }},
        {"no stave", "none: it has no stave", [](TreeNode& score) { Staves(score).ClearChildren(); }},
    };
    for (const auto& [what, gives, change] : rows) {
        const auto tree = Load(host.GetScore());
        ASSERT_NE(nullptr, tree);
        change(*tree);
        for (const bool isBinary : {true, false}) {
            const std::string bytes = Written(*tree, isBinary, true);
            std::string why;
            const std::string whole = Told(ScoreModel::Read(*Load(bytes), why), why);
            EXPECT_NE(std::string::npos, whole.find(gives)) << what << ": " << whole.substr(0, 200);
            std::string whyOfStored;
            const auto model = ScoreModel::ReadStored(bytes, whyOfStored);
            EXPECT_EQ(whole, Told(model, whyOfStored)) << what << (isBinary ? "" : ", as text");
        }
    }
    std::string why;
    EXPECT_FALSE(ScoreModel::ReadStored(std::string_view(host.GetScore()).substr(0, 5000), why));
    EXPECT_EQ("it is damaged, or no score file", why);
}
