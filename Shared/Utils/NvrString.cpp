#include "Shared/Utils/NvrString.h"

#include "Shared/Utils/platform/TextServices.h"

#include <algorithm>
#include <memory>
#include <new>

namespace Nvr {

namespace {

// The text up to its zero, which with a length need not be there.
std::string_view UpToZero(const char* text, int length) {
    if (text == nullptr || length == 0)
        return {};
    if (length < 0)
        return text;
    const auto longest = static_cast<std::size_t>(length);
    const void* const zero = std::memchr(text, '\0', longest);
    return {text,
            zero != nullptr ? static_cast<std::size_t>(static_cast<const char*>(zero) - text) : longest};
}

} // namespace

// Constant-initialised, so that strings may be made while other statics are; holds a reference of its own.
constinit String::Representation String::s_EmptyRepresentation = {"", 0, 0, 1, true, false, 0};

String::Representation* String::NewInline(std::size_t length, char*& text) {
    void* const block = ::operator new(sizeof(Representation) + length + 1);
    text = static_cast<char*>(block) + sizeof(Representation);
    text[length] = '\0';
    return new (block) Representation{text, 0, 0, 1, false, true, 0};
}

String String::FinishInline(Representation* representation) {
    representation->Length = static_cast<std::uint32_t>(std::strlen(representation->Text));
    String result(representation, TakeOver());
    return result.IsEmpty() ? String() : result;
}

String String::Join(std::string_view left, std::string_view right) {
    char* text = nullptr;
    Representation* const representation = NewInline(left.size() + right.size(), text);
    std::copy(right.begin(), right.end(), std::copy(left.begin(), left.end(), text));
    return FinishInline(representation);
}

void String::Free(Representation* representation) noexcept {
    if (!representation->HasInlineText && !representation->HasStaticText)
        delete[] representation->Text;
    ::operator delete(representation);
}

std::uint32_t String::ComputeHash(Representation& representation) noexcept {
    std::uint32_t hash = 0;
    for (const char byte : std::string_view(representation.Text, representation.Length))
        hash = hash * 31 + static_cast<std::uint32_t>(static_cast<signed char>(byte));
    representation.CachedHash = hash + 1;
    return representation.CachedHash;
}

String::String(const char* text, int length) : String(UpToZero(text, length)) {}

String::String(std::string_view text) : m_Representation(ShareEmpty()) {
    if (!text.empty())
        *this = Join(text, {});
}

String::String(char character, int count) : m_Representation(ShareEmpty()) {
    if (count < 1 || character == '\0')
        return;
    char* text = nullptr;
    Representation* const representation = NewInline(static_cast<std::size_t>(count), text);
    std::fill_n(text, count, character);
    *this = FinishInline(representation);
}

String String::Adopt(char* buffer) {
    std::unique_ptr<char[]> owned(buffer);
    if (buffer == nullptr || *buffer == '\0')
        return {};
    void* const block = ::operator new(sizeof(Representation));
    const auto length = static_cast<std::uint32_t>(std::strlen(buffer));
    return {new (block) Representation{owned.release(), length, 0, 1, false, false, 0}, TakeOver()};
}

bool operator<(const String& left, const String& right) {
    return Platform::Collate(left.View(), right.View()) < 0;
}

bool operator>(const String& left, const String& right) {
    return right < left;
}

bool operator<=(const String& left, const String& right) {
    return !(right < left);
}

bool operator>=(const String& left, const String& right) {
    return !(left < right);
}

bool String::EqualsIgnoreCase(const String& other) const {
    return SharesTextWith(other) || Platform::CollateIgnoringCase(View(), other.View()) == 0;
}

bool String::EqualsIgnoreCase(const char* other) const {
    const std::string_view text = other != nullptr ? other : "";
    return Platform::CollateIgnoringCase(View(), text) == 0;
}

bool String::MatchesAt(int index, int count, const String& other) const {
    if (!HasRange(index, count) || static_cast<unsigned>(count) != other.Length())
        return false;
    return std::memcmp(CStr() + index, other.CStr(), other.Length()) == 0;
}

bool String::MatchesAtIgnoreCase(int index, int count, const String& other) const {
    if (!HasRange(index, count) || static_cast<unsigned>(count) > other.Length())
        return false;
    const auto length = static_cast<std::size_t>(count);
    return Platform::CollateIgnoringCase({CStr() + index, length}, {other.CStr(), length}) == 0;
}

bool String::HasRange(int index, int count) const noexcept {
    return index >= 0 && count >= 0 && static_cast<unsigned>(index) <= Length() &&
           static_cast<unsigned>(count) <= Length() - static_cast<unsigned>(index);
}

const String& String::Empty() {
    static const String s_Empty;
    return s_Empty;
}

} // namespace Nvr
