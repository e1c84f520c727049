#include "Shared/Utils/tree/NodeStringTable.h"

#include "tests/Shared/Utils/tree/TreeTest.h"

using Nvr::NodeStringTable;
using Nvr::String;
using Nvr::TreeNode;

namespace {

class NodeStringTableTest : public TreeTest {};

std::string KeysOf(const NodeStringTable::Bucket& bucket) {
    std::string keys;
    for (const auto* entry = bucket.First(); entry != nullptr;
         entry = static_cast<const NodeStringTable::Entry*>(entry->Next()))
        keys.append(entry->GetKey().CStr()).append(entry->GetValue().CStr()).append(" ");
    return keys;
}

} // namespace

TEST_F(NodeStringTableTest, NewStringsGoToTheEndOfTheirBucket) {
    NodeStringTable table;
    // "Aa" and "BB" have the same hash, "b" * 1001 away has the same remainder.
    for (const char* const text : {"Aa", "BB", "Aa", "C#", "BB"}) {
        String string(text);
        table.Intern(string);
    }
    EXPECT_EQ(table.BucketCount(), 1001);
    EXPECT_EQ(KeysOf(table.GetBucket(static_cast<int>(String("Aa").Hash() % 1001))), "AaAa BBBB C#C# ");
    EXPECT_TRUE(table.CheckHealth());
}

TEST_F(NodeStringTableTest, ManyStringsAreAllFoundAgain) {
    constexpr int kStrings = 100000;
    NodeStringTable table;
    std::vector<String> strings;
    for (int i = 0; i < kStrings; ++i) {
        strings.push_back(String("S") + String::FromInt(i));
        table.Intern(strings.back());
    }
    EXPECT_EQ(table.EntryCount(), kStrings);
    EXPECT_TRUE(table.CheckHealth());
    int shared = 0;
    for (int i = 0; i < kStrings; ++i) {
        String again = String("S") + String::FromInt(i);
        table.Intern(again);
        shared += again.SharesTextWith(strings[static_cast<std::size_t>(i)]) ? 1 : 0;
    }
    EXPECT_EQ(shared, kStrings);
}

TEST_F(NodeStringTableTest, NodesKeepTheirTextThroughAClear) {
    Nvr::ClearNodeStringTable();
    const TreeNode before("Label", "Value");
    EXPECT_TRUE(before.GetLabel().SharesTextWith(TreeNode("Label").GetLabel()));
    EXPECT_TRUE(before.GetLabel().SharesTextWith(TreeNode("N", "Label").GetValue()));
    Nvr::ClearNodeStringTable();
    EXPECT_EQ(Outline(&before), "Label=|Value|");
    const TreeNode after("Label", "Value");
    EXPECT_FALSE(before.GetLabel().SharesTextWith(after.GetLabel()));
    EXPECT_TRUE(before.IsSameTree(after));
    // A copy is interned afresh.
    EXPECT_TRUE(TreeNode(before).GetLabel().SharesTextWith(after.GetLabel()));
}
