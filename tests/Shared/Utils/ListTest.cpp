#include "Shared/Utils/IList.h"
#include "Shared/Utils/StringList.h"
#include "Shared/Utils/TAList.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

// What was deleted, in order.
std::vector<int> s_Deleted;

struct Item {
    explicit Item(int number) : Number(number) {}
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() { s_Deleted.push_back(Number); }
    int Number;
};

struct Link : Nvr::IListElement {
    explicit Link(int number) : Number(number) {}
    ~Link() override { s_Deleted.push_back(Number); }
    int Number;
};

template <class List>
std::vector<int> NumbersOf(const List& list) {
    std::vector<int> numbers;
    numbers.reserve(static_cast<std::size_t>(list.Count()));
    for (int i = 0; i < list.Count(); ++i)
        numbers.push_back(list.GetAt(i)->Number);
    return numbers;
}

// Adds 0, 1, ... to an empty list.
template <class T, class List>
void Fill(List& list, int count) {
    s_Deleted.clear();
    for (int i = 0; i < count; ++i)
        list.Add(new T(i));
}

using Numbers = std::vector<int>;
using ItemList = Nvr::TAList<Item>;
using LinkList = Nvr::TIList<Link>;

} // namespace

TEST(AList, StartsWithNothing) {
    const ItemList list;
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Capacity(), 0);
    EXPECT_EQ(list.GrowBy(), 4);
    EXPECT_EQ(list.IndexOf(nullptr), -1);
    const ItemList sized(10, 3);
    EXPECT_EQ(sized.Capacity(), 10);
    EXPECT_EQ(sized.GrowBy(), 3);
    EXPECT_EQ(sized.Count(), 0);
}

TEST(ListGrowth, CapacityGoesUpByTheGrowBy) {
    struct Row {
        int GrowBy;
        Numbers Capacities;
    };
    const Row rows[] = {{4, {4, 4, 4, 4, 8, 8, 8, 8, 12}},
                        {3, {3, 3, 3, 6, 6, 6, 9, 9, 9}},
                        {0, {1, 2, 4, 4, 8, 8, 8, 8, 16}}};
    for (const Row& row : rows) {
        Nvr::TAList<Item> pointers(0, row.GrowBy);
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
        ASSERT_GE(slots, capacity);
        ASSERT_GE(slots, former);
        ASSERT_LE(slots, capacity + capacity / 8);
        allocations += slots != former ? 1U : 0U;
        former = slots;
    }
    EXPECT_LT(allocations, 150U);
    EXPECT_EQ(Nvr::ListGrowth::AllocatedSlots(64), 64U);
    EXPECT_GE(Nvr::ListGrowth::AllocatedSlots(0xFFFFFFFFU), 0xFFFFFFFFU);
}

TEST(AList, KeepsOrderAndItemsWhileItGrows) {
    constexpr int kMany = 100'000;
    ItemList list;
    const auto item = std::make_unique<Item>(1);
    for (int i = 0; i < kMany; ++i)
        list.Add(i % 1000 == 999 ? item.get() : nullptr);
    EXPECT_EQ(list.Count(), kMany);
    EXPECT_EQ(list.Capacity(), kMany);
    EXPECT_EQ(list.IndexOf(item.get()), 999);
    EXPECT_EQ(list.GetAt(kMany - 1), item.get());
    list.Forget();
}

TEST(AList, InsertsWhereItIsTold) {
    ItemList list;
    Fill<Item>(list, 2);
    list.Insert(new Item(10), 2);
    list.Insert(new Item(11), 1);
    list.AddFirst(new Item(12));
    const auto outside = std::make_unique<Item>(13);
    list.Insert(outside.get(), 6);
    list.Insert(outside.get(), -1);
    EXPECT_EQ(NumbersOf(list), (Numbers{12, 0, 11, 1, 10}));
}

TEST(AList, TakesOutAndDeletes) {
    ItemList list;
    Fill<Item>(list, 5);
    const std::unique_ptr<Item> removed(list.GetAt(1));
    list.Remove(removed.get());
    list.Remove(removed.get());
    EXPECT_EQ(NumbersOf(list), (Numbers{0, 2, 3, 4}));
    EXPECT_TRUE(s_Deleted.empty());
    list.Delete(list.GetAt(1));
    list.DeleteAt(2);
    list.DeleteAt(2);
    list.DeleteAt(-1);
    list.Delete(nullptr);
    EXPECT_EQ(NumbersOf(list), (Numbers{0, 3}));
    EXPECT_EQ(s_Deleted, (Numbers{2, 4}));
    EXPECT_EQ(list.Capacity(), 8);
    list.Delete(new Item(7));
    EXPECT_EQ(s_Deleted, (Numbers{2, 4, 7})) << "an item from outside is deleted as well";
    list.DeleteAll();
    EXPECT_EQ(s_Deleted, (Numbers{2, 4, 7, 0, 3}));
    EXPECT_EQ(list.Capacity(), 0);
}

TEST(AList, RemovesOnlyTheFirstMatch) {
    ItemList list;
    const auto item = std::make_unique<Item>(1);
    list.Add(item.get());
    list.Add(nullptr);
    list.Add(item.get());
    list.Remove(item.get());
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.IndexOf(item.get()), 1);
    list.Forget();
}

TEST(AList, LetsGoOfItsItems) {
    ItemList list;
    Fill<Item>(list, 3);
    std::vector<std::unique_ptr<Item>> owners;
    Nvr::AListIterator iterator(list);
    while (void* const item = iterator.Next())
        owners.emplace_back(static_cast<Item*>(item));
    ASSERT_EQ(owners.size(), 3U);
    EXPECT_EQ(iterator.Next(), nullptr);
    iterator.Reset();
    EXPECT_EQ(iterator.Next(), owners[0].get());
    list.Truncate();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Capacity(), 4);
    list.Forget();
    EXPECT_EQ(list.Capacity(), 0);
    EXPECT_TRUE(s_Deleted.empty());
}

TEST(AList, TakesFromAnother) {
    ItemList list, other;
    other.Add(new Item(9));
    Fill<Item>(list, 2);
    list.TakeFrom(other);
    list.TakeFrom(list);
    EXPECT_EQ(s_Deleted, (Numbers{0, 1}));
    EXPECT_EQ(NumbersOf(list), (Numbers{9}));
    EXPECT_EQ(other.Count(), 0);
    EXPECT_EQ(other.Capacity(), 0);
    other.Add(new Item(8));
    EXPECT_EQ(NumbersOf(other), (Numbers{8}));
}

TEST(AList, ReservesExactlyAndNeverShrinks) {
    ItemList list;
    list.Reserve(70);
    EXPECT_EQ(list.Capacity(), 70);
    list.Reserve(5);
    list.Reserve(-1);
    EXPECT_EQ(list.Capacity(), 70);
}

TEST(TVAList, HoldsValuesOfItsOwn) {
    Nvr::StringList list;
    for (const char* text : {"a", "b", "c", "b"})
        list.Add(text);
    list.Insert("x", 1);
    list.Insert("never", 6);
    list.AddFirst(list.GetAt(4));
    Nvr::StringList copy(list);
    list.Remove("b");
    list.Remove("absent");
    list.DeleteAt(0);
    list.DeleteAt(17);
    std::string joined, joinedCopy;
    for (const Nvr::String& text : list)
        joined += text.View();
    for (const Nvr::String& text : copy)
        joinedCopy += text.View();
    EXPECT_EQ(joined, "xbcb" + std::string()) << "the first b was the one put in front";
    EXPECT_EQ(joinedCopy, "baxbcb");
    EXPECT_EQ(copy.Capacity(), 8);
    EXPECT_EQ(copy.GrowBy(), 4);
    EXPECT_EQ(copy.IndexOf("c"), 4);
    EXPECT_FALSE(copy.Contains("never"));
}

TEST(TVAList, GivesAnElementOfItsOwnWhileItGrows) {
    Nvr::TVAList<std::string> list;
    list.Add("a text too long to lie in the string object itself");
    for (int i = 0; i < 100; ++i)
        list.Add(list.GetAt(i));
    EXPECT_EQ(list.GetAt(100), list.GetAt(0));
}

TEST(TVAList, EmptiesAndTakes) {
    Nvr::TVAList<int> list, other;
    list.Add(1);
    list.Truncate();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Capacity(), 4);
    other.Add(7);
    list.TakeFrom(other);
    EXPECT_EQ(list.GetAt(0), 7);
    EXPECT_EQ(other.Count(), 0);
    EXPECT_EQ(other.Capacity(), 0);
    Nvr::TVAListIterator<int> iterator(list);
    EXPECT_EQ(*iterator.Next(), 7);
    EXPECT_EQ(iterator.Next(), nullptr);
    list.DeleteAll();
    EXPECT_EQ(list.Capacity(), 0);
}

TEST(IList, InsertsWithinItsCount) {
    LinkList list;
    Fill<Link>(list, 2);
    list.Insert(new Link(10), 1);
    list.Insert(new Link(11), 99);
    list.Insert(new Link(12), -5);
    list.AddFirst(new Link(13));
    list.Add(nullptr);
    list.Insert(nullptr, 1);
    EXPECT_EQ(NumbersOf(list), (Numbers{13, 12, 0, 10, 1, 11}));
    EXPECT_EQ(list.Last()->Number, 11);
    EXPECT_EQ(list.GetAt(6), nullptr);
    EXPECT_EQ(list.GetAt(-1), nullptr);
}

TEST(IList, RemovalMovesTheTailBack) {
    LinkList list;
    Fill<Link>(list, 3);
    const std::unique_ptr<Link> last(list.GetAt(2));
    list.Remove(last.get());
    list.Remove(last.get());
    EXPECT_EQ(list.Last()->Number, 1);
    list.Add(new Link(5));
    EXPECT_EQ(NumbersOf(list), (Numbers{0, 1, 5}));
    const std::unique_ptr<Link> first(list.First());
    list.Remove(first.get());
    EXPECT_EQ(first->Next(), nullptr) << "its link is cleared";
    list.Delete(list.GetAt(1));
    list.Delete(list.GetAt(0));
    EXPECT_EQ(s_Deleted, (Numbers{5, 1}));
    EXPECT_EQ(list.Last(), nullptr);
    list.Add(new Link(6));
    EXPECT_EQ(list.First(), list.Last());
    EXPECT_EQ(list.IndexOf(list.First()), 0);
    EXPECT_FALSE(list.Contains(first.get()));
}

TEST(IList, UnlinksWithoutDestroying) {
    LinkList list;
    Fill<Link>(list, 3);
    std::vector<std::unique_ptr<Link>> owners;
    Nvr::TIListIterator<Link> iterator(list);
    while (Link* const link = iterator.Next())
        owners.emplace_back(link);
    EXPECT_EQ(iterator.Next(), nullptr);
    iterator.Reset();
    EXPECT_EQ(iterator.Next(), owners[0].get());
    list.Unlink();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(owners[0]->Next(), nullptr);
    EXPECT_TRUE(s_Deleted.empty());
}

TEST(IList, DestroysInOrderAndTakesFromAnother) {
    LinkList list, other, empty;
    other.Add(new Link(8));
    other.Add(new Link(9));
    Fill<Link>(list, 2);
    list.TakeFrom(other);
    list.TakeFrom(list);
    EXPECT_EQ(s_Deleted, (Numbers{0, 1}));
    other.Add(new Link(7));
    list.Add(new Link(10));
    EXPECT_EQ(NumbersOf(list), (Numbers{8, 9, 10}));
    EXPECT_EQ(NumbersOf(other), (Numbers{7}));
    list.TakeFrom(empty);
    EXPECT_EQ(s_Deleted, (Numbers{0, 1, 8, 9, 10}));
    list.Add(new Link(11));
    EXPECT_EQ(list.Count(), 1);
}
