#include "Shared/Utils/tree/NodeStringTable.h"

#include "Shared/Utils/NumberText.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <utility>

namespace Nvr {

constinit NodeStringTable* NodeStringTable::s_Shared = nullptr;

struct NodeStringTable::DeleterOfShared {
    ~DeleterOfShared() { delete std::exchange(s_Shared, nullptr); }
};

NodeStringTable& NodeStringTable::MakeShared() {
    static const DeleterOfShared s_Deleter;
    s_Shared = new NodeStringTable;
    return *s_Shared;
}

const String& NodeStringTable::Entered(const String& string) {
    KnownStrings::Place& place = m_Index.PlaceOf(string);
    if (place.Text == nullptr) {
        const auto bucket = string.Hash() % static_cast<std::uint32_t>(kBucketCount);
        m_Index.Fill(place, Append(static_cast<int>(bucket), string, string)->GetKey());
    }
    return *place.Text;
}

const String& NodeStringTable::LookUpNumber(long value) {
    const String& text = Entered(String(IntegerText(value).View()));
    if (value >= 0 && static_cast<unsigned long>(value) < kSmallNumbers) {
        m_SmallNumbers.resize(kSmallNumbers);
        m_SmallNumbers[static_cast<std::size_t>(value)] = &text;
    }
    return text;
}

const String& NodeStringTable::Enter(const FixedString& literal) {
    literal.m_Interned = &Entered(String(literal.m_Text));
    literal.m_Next = std::exchange(m_Literals, &literal);
    return *literal.m_Interned;
}

const String& FixedString::LookUp() const {
    return NodeStringTable::Shared().Enter(*this);
}

void NodeStringTable::Clear() {
    while (m_Literals != nullptr) {
        const FixedString& literal = *std::exchange(m_Literals, m_Literals->m_Next);
        literal.m_Interned = nullptr;
    }
    m_SmallNumbers = std::vector<const String*>();
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
