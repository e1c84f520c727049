#pragma once

#include "Shared/Utils/NvrString.h"

namespace Nvr {

/// A literal that stands in many nodes: the string that the process-wide NodeStringTable has for it, looked
/// up once between two clears of the table.
///
/// Holds no string of its own: it points into the table, which takes that back when it is emptied. For
/// objects that live as long as the process or the library; declare them constinit.
class FixedString {
public:
    constexpr explicit FixedString(const char* text) : m_Text(text) {}
    FixedString(const FixedString&) = delete;
    FixedString& operator=(const FixedString&) = delete;

    const char* Text() const { return m_Text; }
    /// Valid until the table is emptied. A failed allocation changes nothing.
    const String& Interned() const { return m_Interned != nullptr ? *m_Interned : LookUp(); }

private:
    friend class NodeStringTable;

    const String& LookUp() const;

    const char* m_Text;
    mutable const String* m_Interned = nullptr;
    /// The next of those that point into the table.
    mutable const FixedString* m_Next = nullptr;
};

} // namespace Nvr
