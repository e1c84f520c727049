#include "Shared/Utils/tree/NodeStringTable.h"

#include "Shared/Utils/tree/TreeNode.h"

#include <utility>

namespace Nvr {

namespace {

NodeStringTable* s_Shared = nullptr;

struct DeleterOfShared {
    ~DeleterOfShared() { delete std::exchange(s_Shared, nullptr); }
};

} // namespace

NodeStringTable& NodeStringTable::Shared() {
    if (s_Shared == nullptr) {
        static const DeleterOfShared s_Deleter;
        s_Shared = new NodeStringTable;
    }
    return *s_Shared;
}

void NodeStringTable::Intern(String& string) {
    KnownStrings::Place& place = m_Index.PlaceOf(string);
    if (place.Text != nullptr) {
        string = *place.Text;
        return;
    }
    const auto bucket = string.Hash() % static_cast<std::uint32_t>(kBucketCount);
    m_Index.Fill(place, Append(static_cast<int>(bucket), string, string)->GetKey());
}

void NodeStringTable::Clear() {
    TVHashTable::Clear();
    m_Index.Clear();
}

void InternString(String& string) {
    NodeStringTable::Shared().Intern(string);
}

void ClearNodeStringTable() {
    NodeStringTable::Shared().Clear();
}

} // namespace Nvr
