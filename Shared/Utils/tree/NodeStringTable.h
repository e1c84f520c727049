#pragma once

#include "Shared/Utils/VHashTable.h"
#include "Shared/Utils/tree/FixedString.h"
#include "Shared/Utils/tree/KnownStrings.h"

#include <cstddef>
#include <vector>

namespace Nvr {

/// The strings that the labels and values of all trees share, so that each distinct text is held once and
/// most comparisons end at the representation.
///
/// A hash table of 1001 buckets, in which the key and the value of an entry are the same string. An index
/// beside the buckets finds the shared text at the same cost however full they are. Strings stay alive here
/// until the table is emptied, whatever becomes of the nodes. Not safe across threads.
class NodeStringTable : protected TVHashTable<String, String, DefaultHasher<String>> {
public:
    static constexpr int kBucketCount = 1001;

    NodeStringTable() : TVHashTable(kBucketCount) {}
    ~NodeStringTable() override { Clear(); }

    /// The table of the process. Its memory goes with the static objects; who needs it still later, while
    /// others of them are destroyed, gets a new one.
    static NodeStringTable& Shared() { return s_Shared != nullptr ? *s_Shared : MakeShared(); }

    /// Makes `string` share the text of the equal string of the table. A string that is new here is appended
    /// to its bucket. A failed allocation leaves both as they were.
    void Intern(String& string) { string = Entered(string); }
    /// The table's string of a whole number's decimal text; of a small one found by its value. Valid until
    /// the table is emptied.
    const String& NumberText(long value) {
        const auto place = static_cast<unsigned long>(value);
        return place < m_SmallNumbers.size() && m_SmallNumbers[place] != nullptr ? *m_SmallNumbers[place]
                                                                                 : LookUpNumber(value);
    }
    /// The table's string of a literal, which the literal keeps until the table is emptied.
    const String& Enter(const FixedString& literal);
    /// Empties the table; the buckets stay.
    void Clear();

    using TVHashTable::Bucket;
    using TVHashTable::BucketCount;
    using TVHashTable::CheckHealth;
    using TVHashTable::Entry;
    using TVHashTable::EntryCount;
    using TVHashTable::Find;
    using TVHashTable::GetBucket;
    using TVHashTable::LongestBucket;

private:
    // Room for the strings of a whole score.
    static constexpr std::size_t kFewestPlaces = 16384;

    /// Positions, pitches and lengths in a score are mostly smaller.
    static constexpr std::size_t kSmallNumbers = 2048;

    struct DeleterOfShared;
    static NodeStringTable& MakeShared();

    /// The table's string for this one, which is entered when it is new.
    const String& Entered(const String& string);
    const String& LookUpNumber(long value);

    static NodeStringTable* s_Shared;

    /// The keys of all entries.
    KnownStrings m_Index{kFewestPlaces};
    /// By their value; null for one that has not been asked for.
    std::vector<const String*> m_SmallNumbers;
    /// Those that point into this table.
    const FixedString* m_Literals = nullptr;
};

} // namespace Nvr
