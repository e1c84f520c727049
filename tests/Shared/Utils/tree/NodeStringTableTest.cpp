#include "Shared/Utils/tree/NodeStringTable.h"

#include "tests/Shared/Utils/tree/TreeTest.h"

#include <array>
#include <cstdlib>
#include <limits>

using Nvr::NodeStringTable;
using Nvr::String;
using Nvr::TreeNode;

namespace {

class NodeStringTableTest : public TreeTest {};

constexpr int kSharesToTheLast = 3;

// Outlives all that is made while the program runs, and uses the table then.
struct LateUser {
    ~LateUser() {
        if (!IsWatched)
            return;
        String first("late");
        String second("la");
        second += "te";
        Nvr::InternString(first);
        Nvr::InternString(second);
        Nvr::ClearNodeStringTable();
        std::_Exit(first.SharesTextWith(second) && !TreeNode("late").GetLabel().SharesTextWith(first)
                       ? kSharesToTheLast
                       : EXIT_FAILURE);
    }
    bool IsWatched = false;
};

LateUser s_LateUser;

constinit const Nvr::FixedString kFixed("Fixed");
constinit const Nvr::FixedString kNothing("");

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

TEST_F(NodeStringTableTest, StringsOfEqualHashesAreToldApart) {
    constexpr int kPairs = 15;
    constexpr unsigned kStrings = 1U << kPairs;
    NodeStringTable table;
    std::vector<String> strings;
    for (unsigned i = 0; i < kStrings; ++i) {
        strings.emplace_back(OneOfEqualHashes(i, kPairs));
        table.Intern(strings.back());
    }
    EXPECT_EQ(strings.front().Hash(), strings.back().Hash());
    EXPECT_EQ(table.EntryCount(), static_cast<int>(kStrings));
    unsigned shared = 0;
    for (unsigned i = 0; i < kStrings; ++i) {
        String again(OneOfEqualHashes(i, kPairs));
        table.Intern(again);
        shared += again.SharesTextWith(strings[i]) ? 1 : 0;
    }
    EXPECT_EQ(shared, kStrings);
    EXPECT_EQ(table.EntryCount(), static_cast<int>(kStrings));
}

TEST_F(NodeStringTableTest, ServesWhoUsesItWhileStaticObjectsAreDestroyed) {
    EXPECT_EXIT(
        {
            s_LateUser.IsWatched = true;
            static_cast<void>(TreeNode("early"));
            std::exit(EXIT_SUCCESS);
        },
        testing::ExitedWithCode(kSharesToTheLast), "");
}

TEST_F(NodeStringTableTest, LiteralsAndNumbersAreTheTablesOwnStrings) {
    const int numbers[] = {
        0, 7, 2047, 2048, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    std::vector<String> former;
    // What was looked up before a clear must not be found after it.
    for (int round = 0; round < 2; ++round) {
        Nvr::ClearNodeStringTable();
        TreeNode node(kNothing);
        for (const int number : numbers)
            node.AddNumbers(std::array{Nvr::TreeNumber{kFixed, number}});
        EXPECT_EQ(node.GetLabel(), "");
        for (int i = 0; i < node.GetChildCount(); ++i) {
            const TreeNode& child = *node.GetChild(i);
            EXPECT_EQ(child.GetValue(), std::to_string(numbers[i]).c_str());
            EXPECT_TRUE(child.GetLabel().SharesTextWith(TreeNode("Fixed").GetLabel()));
            EXPECT_TRUE(child.GetValue().SharesTextWith(TreeNode("N", numbers[i]).GetValue()));
            EXPECT_TRUE(child.GetValue().SharesTextWith(TreeNode("N", child.GetValue().CStr()).GetValue()));
            EXPECT_FALSE(round == 1 && child.GetValue().SharesTextWith(former[static_cast<std::size_t>(i)]));
            former.push_back(child.GetValue());
        }
    }
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
