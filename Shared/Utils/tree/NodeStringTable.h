#pragma once

#include "Shared/Utils/VHashTable.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Nvr {

/// The strings that the labels and values of all trees share, so that each distinct text is held once and
/// most comparisons end at the representation.
///
/// A hash table of 1001 buckets, in which the key and the value of an entry are the same string. An index
/// beside the buckets finds an entry at the same cost however full they are. Strings stay alive here until
/// the table is emptied, whatever becomes of the nodes. Not safe across threads.
class NodeStringTable : protected TVHashTable<String, String, DefaultHasher<String>> {
public:
    static constexpr int kBucketCount = 1001;

    NodeStringTable() : TVHashTable(kBucketCount) {}

    /// The table of the process.
    static NodeStringTable& Shared();

    /// Makes `string` share the text of the equal string of the table. A string that is new here is appended
    /// to its bucket. A failed allocation leaves both as they were.
    void Intern(String& string);
    /// Empties the table; the buckets stay.
    void Clear();

    using TVHashTable::Bucket;
    using TVHashTable::BucketCount;
    using TVHashTable::CheckHealth;
    using TVHashTable::Entry;
    using TVHashTable::EntryCount;
    using TVHashTable::GetBucket;
    using TVHashTable::LongestBucket;
    Entry* Find(const String& key, int& bucketIndex) const override;
    Entry* Find(const String& key) const override;

private:
    /// A place of the index; free when it has no entry.
    struct Slot {
        Entry* Found = nullptr;
        std::uint32_t Hash = 0;
    };

    std::size_t SlotOf(const String& key) const;
    static int BucketOf(const String& key);
    void GrowIndex();

    // Open addressing with at most half of the slots in use.
    std::vector<Slot> m_Index;
};

} // namespace Nvr
