#include "Shared/Utils/IList.h"
#include "Shared/Utils/StringList.h"
#include "Shared/Utils/TAList.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

using Numbers = std::vector<int>;

// What was deleted, in order.
Numbers s_Deleted;

struct Item {
    explicit Item(int number) : Number(number) {}
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() { s_Deleted.push_back(Number); }
    int Number;
};

using ItemList = Nvr::TAList<Item>;

Numbers NumbersOf(const ItemList& list) {
    Numbers numbers;
    for (int i = 0; i < list.Count(); ++i)
        numbers.push_back(list.GetAt(i)->Number);
    return numbers;
}

} // namespace

TEST(ListGrowth, CapacityGoesUpByTheGrowBy) {
    const struct {
        int GrowBy;
        Numbers Capacities;
    } rows[] = {{4, {4, 4, 4, 4, 8, 8, 8, 8, 12}},
                {3, {3, 3, 3, 6, 6, 6, 9, 9, 9}},
                {0, {1, 2, 4, 4, 8, 8, 8, 8, 16}}};
    for (const auto& row : rows) {
        ItemList pointers(0, row.GrowBy);
        Nvr::TVAList<int> values(0, row.GrowBy);
        for (const int expected : row.Capacities) {
            pointers.Add(nullptr);
            values.Add(1);
            EXPECT_EQ(pointers.Capacity(), expected) << "grow-by " << row.GrowBy;
            EXPECT_EQ(values.Capacity(), expected) << "grow-by " << row.GrowBy;
        }
    }
}

TEST(ListGrowth, LongArraysGrowInLargerSteps) {
    unsigned allocations = 0;
    unsigned former = 0;
    for (unsigned capacity = 4; capacity <= 1'000'000; capacity += 4) {
        const unsigned slots = Nvr::ListGrowth::AllocatedSlots(capacity);
        ASSERT_TRUE(slots >= capacity && slots >= former && slots <= capacity + capacity / 8);
        allocations += slots != former ? 1U : 0U;
        former = slots;
    }
    EXPECT_LT(allocations, 150U);
    EXPECT_GE(Nvr::ListGrowth::AllocatedSlots(0xFFFFFFFFU), 0xFFFFFFFFU);
}

TEST(AList, KeepsOrderAndOwnership) {
    ItemList list;
    for (int i = 0; i < 5; ++i)
        list.Add(new Item(i));
    list.Insert(new Item(10), 5);
    list.Insert(new Item(11), 1);
    list.AddFirst(new Item(12));
    const auto outside = std::make_unique<Item>(13);
    list.Insert(outside.get(), 9);
    list.Insert(outside.get(), -1);
    EXPECT_EQ(NumbersOf(list), (Numbers{12, 0, 11, 1, 2, 3, 4, 10}));
    const std::unique_ptr<Item> removed(list.GetAt(3));
    list.Remove(removed.get());
    list.Remove(removed.get());
    EXPECT_TRUE(s_Deleted.empty()) << "removing gives the item back";
    list.Delete(list.GetAt(1));
    list.DeleteAt(6);
    list.DeleteAt(5);
    EXPECT_EQ(NumbersOf(list), (Numbers{12, 11, 2, 3, 4}));
    EXPECT_EQ(s_Deleted, (Numbers{0, 10}));
    ItemList other;
    other.Add(new Item(9));
    list.TakeFrom(other);
    list.TakeFrom(list);
    EXPECT_EQ(list.Capacity(), 4) << "the other's";
    EXPECT_EQ(other.Capacity(), 0);
    EXPECT_EQ(s_Deleted, (Numbers{0, 10, 12, 11, 2, 3, 4}));
    EXPECT_EQ(NumbersOf(list), (Numbers{9}));
    const std::unique_ptr<Item> forgotten(list.GetAt(0));
    list.Forget();
    EXPECT_EQ(list.Count() + list.Capacity() + other.Count(), 0);
    EXPECT_EQ(s_Deleted.size(), 7U);
}

TEST(TVAList, HoldsValuesOfItsOwn) {
    Nvr::StringList list;
    for (const char* text : {"a", "b", "c", "b"})
        list.Add(text);
    list.Insert("x", 1);
    list.Insert("never", 6);
    list.AddFirst(list.GetAt(4));
    const Nvr::StringList copy(list);
    list.Remove("b");
    list.Remove("absent");
    list.DeleteAt(0);
    list.DeleteAt(17);
    std::string joined, joinedCopy;
    for (const Nvr::String& text : list)
        joined += text.View();
    for (const Nvr::String& text : copy)
        joinedCopy += text.View();
    EXPECT_EQ(joined, "xbcb") << "the first b was the one put in front";
    EXPECT_EQ(joinedCopy, "baxbcb");
    Nvr::TVAList<std::string> own;
    own.Add("a text too long to lie in the string object itself");
    for (int i = 0; i < 100; ++i)
        own.Add(own.GetAt(i));
    EXPECT_EQ(own.GetAt(100), own.GetAt(0)) << "an element of its own, while it grows";
}

namespace {

struct Link : Nvr::IListElement {
    explicit Link(int number) : Number(number) {}
    ~Link() override { s_Deleted.push_back(Number); }
    int Number;
};

Numbers NumbersOf(const Nvr::TIList<Link>& list) {
    Numbers numbers;
    Nvr::TIListIterator<Link> links(list);
    while (const Link* const link = links.Next())
        numbers.push_back(link->Number);
    EXPECT_EQ(links.Next(), nullptr) << "and stays there";
    EXPECT_EQ(list.Count(), static_cast<int>(numbers.size()));
    return numbers;
}

} // namespace

TEST(IList, KeepsOrderEndAndOwnership) {
    s_Deleted.clear();
    Nvr::TIList<Link> list;
    EXPECT_EQ(list.Last(), nullptr);
    list.Insert(new Link(2), 7);
    list.Insert(new Link(0), -1);
    list.Insert(new Link(1), 1);
    list.Insert(nullptr, 1);
    list.Add(nullptr);
    EXPECT_EQ(NumbersOf(list), (Numbers{0, 1, 2}));
    EXPECT_EQ(list.GetAt(2), list.Last());
    EXPECT_EQ(list.GetAt(3), nullptr);
    EXPECT_EQ(list.GetAt(-1), nullptr);
    EXPECT_EQ(list.IndexOf(list.GetAt(1)), 1);
    const std::unique_ptr<Link> last(list.Last());
    list.Remove(last.get());
    list.Remove(last.get());
    EXPECT_EQ(list.IndexOf(last.get()), -1);
    list.Add(new Link(3));
    EXPECT_EQ(NumbersOf(list), (Numbers{0, 1, 3})) << "the end has moved back";
    const std::unique_ptr<Link> middle(list.GetAt(1));
    list.Remove(middle.get());
    EXPECT_EQ(middle->Next(), nullptr);
    list.Delete(list.GetAt(0));
    EXPECT_EQ(s_Deleted, (Numbers{0})) << "removing gives the element back";
    Nvr::TIList<Link> other;
    other.Add(new Link(8));
    other.TakeFrom(list);
    other.TakeFrom(other);
    other.Add(new Link(9));
    EXPECT_EQ(NumbersOf(other), (Numbers{3, 9}));
    EXPECT_EQ(NumbersOf(list), Numbers());
    const std::unique_ptr<Link> first(other.First()), second(other.Last());
    other.Unlink();
    EXPECT_EQ(first->Next(), nullptr);
    EXPECT_EQ(NumbersOf(other), Numbers());
    EXPECT_EQ(s_Deleted, (Numbers{0, 8}));
}
