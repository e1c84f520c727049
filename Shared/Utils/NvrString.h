#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace Nvr {

class ResId;
class StringList;

/// The text of the whole system: 8-bit, zero-terminated, immutable, in the system code page.
///
/// A string is one pointer to a shared, reference-counted representation with a cached hash; copying it is
/// one increment. Every operation that changes a string makes a new representation. A string cannot hold a
/// zero byte: bytes after the first zero are lost. Indexes are byte offsets from 0; a negative one lies
/// outside, as one past the end does. A search that finds nothing gives -1. An operation that finds nothing
/// to change gives the same representation. Nothing here is safe across threads. A failed allocation raises
/// OutOfMemoryException or std::bad_alloc and leaves the string as it was.
class String {
public:
    String() noexcept;
    /// Copies `text` up to its zero, or at most `length` bytes of it when `length` is not negative.
    /// A null pointer, a length of 0 and an empty text give the shared empty string.
    String(const char* text, int length = -1); // NOLINT(google-explicit-constructor)
    /// Copies `text` up to its first zero byte.
    explicit String(std::string_view text);
    /// `character` repeated `count` times; empty for a count below 1.
    String(char character, int count);
    /// The text of a string resource, "%app" replaced; then "%1" by `first`, "%2" by `second`, one after the
    /// other over the whole text. A resource that cannot be found gives the empty string and one report.
    explicit String(const ResId& id);
    String(const ResId& id, const String& first);
    String(const ResId& id, const String& first, const String& second);
    /// "%app" is replaced before the substitutions; then "%i" by entry i - 1 of the list, i counted from 1.
    String(const ResId& id, const StringList& list);

    String(const String& other) noexcept;
    String(String&& other) noexcept;
    String& operator=(const String& other) noexcept;
    String& operator=(String&& other) noexcept;
    ~String();

    /// Takes over a zero-terminated buffer made with array new; no text is copied.
    static String Adopt(char* buffer);

    const char* CStr() const noexcept;
    unsigned Length() const noexcept;
    bool IsEmpty() const noexcept { return Length() == 0; }
    /// The bytes without the zero; valid as long as some string shares the representation.
    std::string_view View() const noexcept { return {CStr(), Length()}; }
    /// h = h * 31 + signed byte, plus 1; computed on first use and kept in the representation.
    std::uint32_t Hash() const noexcept;
    /// The byte at `index`; 0 at or past the length and for a negative index.
    char CharAt(int index) const noexcept;
    /// True when both are the same representation, not merely equal text.
    bool SharesTextWith(const String& other) const noexcept;

    /// A number beside the text, common to all strings that share it: for whoever numbers strings and keeps a
    /// list of them by number. It has no meaning of its own, and what it was set to last by anybody else, so
    /// check in the list that the number is this string's.
    std::uint32_t GetMark() const noexcept { return m_Representation->Mark; }
    void SetMark(std::uint32_t mark) const noexcept { m_Representation->Mark = mark; }

    friend bool operator==(const String& left, const String& right) noexcept;
    friend bool operator==(const String& left, const char* right) noexcept;
    /// Collation of the platform, case-sensitive.
    friend bool operator<(const String& left, const String& right);
    friend bool operator>(const String& left, const String& right);
    friend bool operator<=(const String& left, const String& right);
    friend bool operator>=(const String& left, const String& right);
    /// The same collation, ignoring case.
    bool EqualsIgnoreCase(const String& other) const;
    bool EqualsIgnoreCase(const char* other) const;
    /// True when the `count` bytes from `index` are `other`, which must be `count` long.
    bool MatchesAt(int index, int count, const String& other) const;
    /// True when the `count` bytes from `index` equal the start of `other`, ignoring case.
    bool MatchesAtIgnoreCase(int index, int count, const String& other) const;

    int Find(const String& text) const;
    int Find(int start, const String& text) const;
    int FindChar(char character) const;
    int FindChar(int start, char character) const;
    int FindLastChar(char character) const;
    /// White space is that of the system code page, the no-break space included.
    int FindSpace(int start) const;
    int FindNonSpace(int start) const;
    /// The nearest byte at or before `index` that is not white space; from the last byte for one past the
    /// end.
    int LastNonSpace(int index) const;

    String& operator+=(const String& other);
    String& operator+=(const char* other);
    String& operator+=(char other);
    friend String operator+(const String& left, const String& right);
    friend String operator+(const String& left, const char* right);
    friend String operator+(const char* left, const String& right);
    friend String operator+(const String& left, char right);

    /// `count` bytes from `start`, clipped to the end; empty when `start` lies outside or `count` is below 1.
    String Mid(int start, int count) const;
    String Mid(int start) const;
    String ToUpper() const;
    String ToLower() const;
    String Trim() const;
    String RemoveSpaces() const;
    String RemoveChar(char character) const;
    String RemoveCRs() const;
    String ReplaceChar(char from, char to) const;
    /// Left to right, not overlapping. `from` must not be empty.
    String ReplaceAll(const String& from, const String& to) const;

    /// True when every byte is "0" to "9"; also for an empty string.
    bool IsDigits() const;
    /// The same for digits and the letters of the system code page.
    bool IsAlphanumeric() const;
    /// White space, a sign and digits at the start, as atoi reads them; 0 when there is no number, and the
    /// nearest limit for one that does not fit.
    int ToInt() const;
    long ToLong() const;
    /// As atof reads it, with a point in every locale.
    float ToFloat() const;
    /// The leading run of "0" and "1" as a binary number.
    unsigned FromBinaryDigits() const;

    static String FromInt(std::int32_t value);
    static String FromUnsigned(std::uint32_t value);
    static String FromInt64(std::int64_t value);
    static String FromUnsigned64(std::uint64_t value);
    /// "1" or "0".
    static String FromBool(bool value);
    /// Six decimals when `decimals` is -1. `trimZeros` cuts zeros after the point, and a bare point.
    static String FromFloat(double value, int decimals = -1, bool trimZeros = false);

    /// What functions return by reference when they have nothing to return.
    static const String& Empty();
    /// Replaces "%app" in resource texts; empty unless set.
    static const String& ApplicationName();
    static void SetApplicationName(const String& name);

private:
    /// What the strings of one text share. Made in one of three shapes: the one empty representation, which
    /// is never freed; text and zero after the representation in the same allocation; or a buffer made
    /// elsewhere with array new. The bytes never change once a string points here; only hash and mark do.
    struct Representation {
        const char* Text;
        std::uint32_t Length;
        /// 0 as long as it is not computed.
        std::uint32_t CachedHash;
        std::uint32_t ReferenceCount;
        bool HasStaticText;
        bool HasInlineText;
        std::uint32_t Mark = 0;
    };

    struct TakeOver {};
    /// Takes over the one reference of a new representation.
    String(Representation* representation, TakeOver) noexcept : m_Representation(representation) {}

    /// A new representation with room for `length` bytes and the zero, to be written through `text` and then
    /// closed with FinishInline.
    static Representation* NewInline(std::size_t length, char*& text);
    /// Scans for the zero, which is what decides the length.
    static String FinishInline(Representation* representation);
    /// One allocation: `left` followed by `right`, both without zero bytes.
    static String Join(std::string_view left, std::string_view right);
    static void Free(Representation* representation) noexcept;
    static std::uint32_t ComputeHash(Representation& representation) noexcept;

    bool HasRange(int index, int count) const noexcept;
    template <class KeepByte>
    String Filtered(KeepByte keep) const;
    template <class MapByte>
    String Mapped(MapByte map) const;

    static Representation* ShareEmpty() noexcept {
        ++s_EmptyRepresentation.ReferenceCount;
        return &s_EmptyRepresentation;
    }
    static Representation* Share(Representation* representation) noexcept {
        ++representation->ReferenceCount;
        return representation;
    }
    static void Drop(Representation* representation) noexcept {
        if (--representation->ReferenceCount == 0)
            Free(representation);
    }

    static Representation s_EmptyRepresentation;

    Representation* m_Representation;
};

inline String::String() noexcept : m_Representation(ShareEmpty()) {}

inline String::String(const String& other) noexcept : m_Representation(Share(other.m_Representation)) {}

inline String::String(String&& other) noexcept : m_Representation(other.m_Representation) {
    other.m_Representation = ShareEmpty();
}

inline String& String::operator=(const String& other) noexcept {
    String copy(other);
    std::swap(m_Representation, copy.m_Representation);
    return *this;
}

inline String& String::operator=(String&& other) noexcept {
    std::swap(m_Representation, other.m_Representation);
    return *this;
}

inline String::~String() {
    Drop(m_Representation);
}

inline const char* String::CStr() const noexcept {
    return m_Representation->Text;
}

inline unsigned String::Length() const noexcept {
    return m_Representation->Length;
}

inline std::uint32_t String::Hash() const noexcept {
    const std::uint32_t cached = m_Representation->CachedHash;
    return cached != 0 ? cached : ComputeHash(*m_Representation);
}

inline char String::CharAt(int index) const noexcept {
    // A negative index becomes one that is past any length.
    return static_cast<unsigned>(index) < Length() ? CStr()[index] : '\0';
}

inline bool String::SharesTextWith(const String& other) const noexcept {
    return m_Representation == other.m_Representation;
}

inline bool operator==(const String& left, const String& right) noexcept {
    if (left.m_Representation == right.m_Representation)
        return true;
    if (left.Length() != right.Length())
        return false;
    if (left.Length() == 0)
        return true;
    if (left.Hash() != right.Hash())
        return false;
    return std::memcmp(left.CStr(), right.CStr(), left.Length()) == 0;
}

inline bool operator==(const String& left, const char* right) noexcept {
    return std::strcmp(left.CStr(), right != nullptr ? right : "") == 0;
}

} // namespace Nvr
