#include "Shared/Utils/tree/NodeStringTable.h"

#include "Shared/Utils/tree/TreeNode.h"

namespace Nvr {

namespace {

// Room for the strings of a whole score.
constexpr std::size_t kFewestSlots = 16384;

// The hash of a string changes least where it differs most; this spreads it over the index.
std::size_t Spread(std::uint32_t hash, std::size_t slotCount) {
    constexpr std::uint32_t kGoldenRatio = 0x9E3779B9U;
    constexpr unsigned kHalf = 16;
    const std::uint32_t mixed = hash * kGoldenRatio;
    return (mixed ^ mixed >> kHalf) & (slotCount - 1);
}

} // namespace

NodeStringTable& NodeStringTable::Shared() {
    static NodeStringTable s_Table;
    return s_Table;
}

void NodeStringTable::Intern(String& string) {
    if (m_Index.empty())
        GrowIndex();
    std::size_t slot = SlotOf(string);
    if (const Entry* const entry = m_Index[slot].Found) {
        string = entry->GetValue();
        return;
    }
    if ((static_cast<std::size_t>(EntryCount()) + 1) * 2 > m_Index.size()) {
        GrowIndex();
        slot = SlotOf(string);
    }
    m_Index[slot] = {Append(BucketOf(string), string, string), string.Hash()};
}

void NodeStringTable::Clear() {
    TVHashTable::Clear();
    m_Index = std::vector<Slot>();
}

NodeStringTable::Entry* NodeStringTable::Find(const String& key, int& bucketIndex) const {
    bucketIndex = BucketOf(key);
    return m_Index.empty() ? nullptr : m_Index[SlotOf(key)].Found;
}

NodeStringTable::Entry* NodeStringTable::Find(const String& key) const {
    int bucketIndex = 0;
    return Find(key, bucketIndex);
}

std::size_t NodeStringTable::SlotOf(const String& key) const {
    const std::uint32_t hash = key.Hash();
    std::size_t slot = Spread(hash, m_Index.size());
    while (m_Index[slot].Found != nullptr &&
           (m_Index[slot].Hash != hash || !(m_Index[slot].Found->GetKey() == key)))
        slot = (slot + 1) & (m_Index.size() - 1);
    return slot;
}

int NodeStringTable::BucketOf(const String& key) {
    return static_cast<int>(key.Hash() % static_cast<std::uint32_t>(kBucketCount));
}

void NodeStringTable::GrowIndex() {
    std::vector<Slot> old(m_Index.empty() ? kFewestSlots : m_Index.size() * 2);
    old.swap(m_Index);
    for (const Slot& slot : old) {
        if (slot.Found != nullptr)
            m_Index[SlotOf(slot.Found->GetKey())] = slot;
    }
}

void InternString(String& string) {
    NodeStringTable::Shared().Intern(string);
}

void ClearNodeStringTable() {
    NodeStringTable::Shared().Clear();
}

} // namespace Nvr
