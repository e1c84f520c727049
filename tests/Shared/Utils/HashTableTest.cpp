#include "Shared/Utils/VHashTable.h"

#include <gtest/gtest.h>
#include <string>

using Nvr::String;
using Nvr::StringStringTable;

namespace {

// Counts its instances.
struct Counted {
    Counted() { ++s_Alive; }
    Counted(const Counted&) { ++s_Alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --s_Alive; }
    static inline int s_Alive = 0;
};

} // namespace

TEST(HashTable, FindsWhatWasAdded) {
    StringStringTable table(7);
    for (int i = 0; i < 100; ++i)
        table.Add(String::FromInt(i), "value " + String::FromInt(i));
    EXPECT_EQ(table.EntryCount(), 100);
    EXPECT_EQ(table.BucketCount(), 7) << "there is no rehashing";
    for (int i = 0; i < 100; ++i) {
        int bucket = -1;
        const auto* const entry = table.Find(String::FromInt(i), bucket);
        ASSERT_NE(entry, nullptr);
        EXPECT_STREQ(entry->GetValue().CStr(), ("value " + std::to_string(i)).c_str());
        EXPECT_EQ(bucket, static_cast<int>(String::FromInt(i).Hash() % 7));
    }
    int bucket = -1;
    EXPECT_EQ(table.Find("absent", bucket), nullptr);
    EXPECT_EQ(bucket, static_cast<int>(String("absent").Hash() % 7));
    EXPECT_TRUE(table.CheckHealth());
    EXPECT_GE(table.LongestBucket(), 100 / 7);
}

TEST(HashTable, AddOverwritesKeyAndValue) {
    StringStringTable table(1);
    table.Add("key", "old");
    table.Add("later", "x");
    const String newKey("key");
    table.Add(newKey, "new");
    EXPECT_EQ(table.EntryCount(), 2);
    EXPECT_STREQ(table.Find("key")->GetValue().CStr(), "new");
    EXPECT_TRUE(table.Find("key")->GetKey().SharesTextWith(newKey));
    EXPECT_EQ(table.GetBucket(0).First(), table.Find("key")) << "the entry keeps its place";
    EXPECT_EQ(table.GetBucket(0).Last(), table.Find("later")) << "new ones go to the end";
}

TEST(HashTable, ClearKeepsTheBuckets) {
    {
        Nvr::TVHashTable<int, Counted, Nvr::ValueHasher<int>> table(3);
        for (int i = -4; i < 4; ++i)
            table.Add(i, Counted());
        EXPECT_EQ(Counted::s_Alive, 8);
        table.Clear();
        EXPECT_EQ(Counted::s_Alive, 0);
        EXPECT_EQ(table.EntryCount(), 0);
        EXPECT_TRUE(table.CheckHealth());
        table.Add(5, Counted());
        EXPECT_NE(table.Find(5), nullptr);
    }
    EXPECT_EQ(Counted::s_Alive, 0);
}

TEST(HashTable, WithoutBucketsTakesNothing) {
    StringStringTable table(0);
    EXPECT_EQ(table.Add("a", "b"), nullptr);
    EXPECT_EQ(table.Find("a"), nullptr);
    EXPECT_EQ(table.EntryCount(), 0);
    table.Clear();
    EXPECT_TRUE(table.CheckHealth());
}

TEST(HashTable, PointersAreKeysByAddress) {
    const int first = 0, second = 0;
    Nvr::TVHashTable<const void*, int, Nvr::AddressHasher> table(2);
    table.Add(&first, 1);
    table.Add(&second, 2);
    EXPECT_EQ(table.Find(&second)->GetValue(), 2);
    EXPECT_EQ(table.Find(nullptr), nullptr);
}
