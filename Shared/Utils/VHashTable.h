#pragma once

#include "Shared/Utils/IList.h"
#include "Shared/Utils/NonCopyable.h"
#include "Shared/Utils/NvrString.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <type_traits>

namespace Nvr {

/// The hash that the key itself gives.
template <class K>
struct DefaultHasher {
    std::uint32_t operator()(const K& key) const { return key.Hash(); }
};

/// A whole number as its own hash.
template <class K>
struct ValueHasher {
    std::uint32_t operator()(K key) const {
        static_assert(std::is_integral_v<K> || std::is_enum_v<K>,
                      "a key without a number needs another hasher");
        return static_cast<std::uint32_t>(key);
    }
};

/// A pointer's address.
struct AddressHasher {
    std::uint32_t operator()(const void* key) const {
        return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(key));
    }
};

/// A key and its value, linked into a bucket.
template <class K, class V>
class TVHashEntry : public IListElement {
public:
    TVHashEntry(const K& key, const V& value) : m_Key(key), m_Value(value) {}

    const K& GetKey() const { return m_Key; }
    const V& GetValue() const { return m_Value; }
    V& GetValue() { return m_Value; }
    void Set(const K& key, const V& value) {
        m_Key = key;
        m_Value = value;
    }

private:
    K m_Key;
    V m_Value;
};

/// One bucket: the entries whose hashes leave the same remainder, in the order of their arrival.
template <class K, class V>
class TVHashEntryList : public TIList<TVHashEntry<K, V>> {};

template <class K, class V>
class TVHashEntryListIterator : public TIListIterator<TVHashEntry<K, V>>, private NonCopyable {
public:
    using TIListIterator<TVHashEntry<K, V>>::TIListIterator;
};

/// A hash table with a number of buckets that is chosen at construction and never changes: each find walks
/// one bucket, so choose it for the load. Keys and values are held by value, an entry in one allocation;
/// entries stay where they are until they are cleared.
template <class K, class V, class Hasher>
class TVHashTable {
public:
    using Entry = TVHashEntry<K, V>;
    using Bucket = TVHashEntryList<K, V>;

    /// With a count below 1 the table has no buckets, takes nothing and finds nothing.
    explicit TVHashTable(int bucketCount)
        : m_BucketCount(static_cast<std::uint32_t>(std::max(bucketCount, 0))) {
        if (m_BucketCount != 0)
            m_Buckets = std::make_unique<Bucket[]>(m_BucketCount);
    }
    TVHashTable(const TVHashTable&) = delete;
    TVHashTable& operator=(const TVHashTable&) = delete;
    virtual ~TVHashTable() = default;

    /// Walks the buckets for the longest one, and is true when their lengths add up to the entry count.
    virtual bool CheckHealth() const {
        std::uint32_t entries = 0;
        m_LongestBucket = 0;
        for (std::uint32_t i = 0; i < m_BucketCount; ++i) {
            const auto length = static_cast<std::uint32_t>(m_Buckets[i].Count());
            entries += length;
            m_LongestBucket = std::max(m_LongestBucket, length);
        }
        return entries == m_EntryCount;
    }
    /// The entry of the key, or null; its bucket's index, or the one it would go to, in `bucketIndex`.
    virtual Entry* Find(const K& key, int& bucketIndex) const {
        bucketIndex = 0;
        if (m_BucketCount == 0)
            return nullptr;
        const std::uint32_t index = Hasher()(key) % m_BucketCount;
        bucketIndex = static_cast<int>(index);
        for (Entry* entry = m_Buckets[index].First(); entry != nullptr;
             entry = static_cast<Entry*>(entry->Next())) {
            if (AreKeysEqual(entry->GetKey(), key))
                return entry;
        }
        return nullptr;
    }
    virtual Entry* Find(const K& key) const {
        int bucketIndex = 0;
        return Find(key, bucketIndex);
    }
    virtual bool AreKeysEqual(const K& left, const K& right) const { return left == right; }

    /// Overwrites key and value of the entry of an equal key, or appends a new entry to its bucket. A failed
    /// allocation leaves the table as it was. The entry, or null in a table without buckets.
    Entry* Add(const K& key, const V& value) {
        int bucketIndex = 0;
        if (Entry* const present = Find(key, bucketIndex)) {
            present->Set(key, value);
            return present;
        }
        return m_BucketCount != 0 ? Append(bucketIndex, key, value) : nullptr;
    }
    /// Destroys all entries; the buckets stay.
    void Clear() {
        for (std::uint32_t i = 0; i < m_BucketCount; ++i)
            m_Buckets[i].DeleteAll();
        m_EntryCount = 0;
    }

    int BucketCount() const { return static_cast<int>(m_BucketCount); }
    int EntryCount() const { return static_cast<int>(m_EntryCount); }
    /// The length of the longest bucket at the last CheckHealth.
    int LongestBucket() const { return static_cast<int>(m_LongestBucket); }
    /// Unchecked.
    const Bucket& GetBucket(int index) const { return m_Buckets[static_cast<std::uint32_t>(index)]; }

protected:
    /// The second half of Add: a new entry of a key that is not there, at the end of the bucket that Find
    /// gave.
    Entry* Append(int bucketIndex, const K& key, const V& value) {
        auto entry = std::make_unique<Entry>(key, value);
        m_Buckets[static_cast<std::uint32_t>(bucketIndex)].Add(entry.get());
        ++m_EntryCount;
        return entry.release();
    }

private:
    std::unique_ptr<Bucket[]> m_Buckets;
    std::uint32_t m_BucketCount;
    std::uint32_t m_EntryCount = 0;
    mutable std::uint32_t m_LongestBucket = 0;
};

/// A table of strings by strings.
class StringStringTable : public TVHashTable<String, String, DefaultHasher<String>>, private NonCopyable {
public:
    using TVHashTable<String, String, DefaultHasher<String>>::TVHashTable;
};

} // namespace Nvr
