#include "Shared/Utils/VHashTable.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

using Nvr::String;
using Nvr::StringStringTable;

TEST(HashTable, FindsWhatWasAdded) {
    StringStringTable table(7);
    for (int i = 0; i < 100; ++i)
        table.Add(String::FromInt(i), "value " + String::FromInt(i));
    EXPECT_EQ(table.BucketCount(), 7) << "there is no rehashing";
    for (int i = 0; i < 100; ++i) {
        int bucket = -1;
        const auto* const entry = table.Find(String::FromInt(i), bucket);
        ASSERT_NE(entry, nullptr);
        EXPECT_STREQ(entry->GetValue().CStr(), ("value " + std::to_string(i)).c_str());
        EXPECT_EQ(bucket, static_cast<int>(String::FromInt(i).Hash() % 7));
    }
    EXPECT_EQ(table.Find("absent"), nullptr);
    EXPECT_TRUE(table.CheckHealth());
}

TEST(HashTable, AddOverwritesInPlaceAndClearLetsGo) {
    const auto held = std::make_shared<int>(1);
    Nvr::TVHashTable<int, std::shared_ptr<int>, Nvr::ValueHasher<int>> table(1);
    table.Add(-4, nullptr);
    table.Add(5, held);
    table.Add(-4, held);
    EXPECT_EQ(table.EntryCount(), 2);
    EXPECT_EQ(table.GetBucket(0).First(), table.Find(-4)) << "the entry keeps its place";
    EXPECT_EQ(table.GetBucket(0).Last(), table.Find(5)) << "new ones go to the end";
    EXPECT_EQ(held.use_count(), 3);
    table.Clear();
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_NE(table.Add(5, held), nullptr) << "the buckets stay";
}
