#include "Shared/Utils/NvrString.h"

#include "Shared/Utils/platform/TextServices.h"

#include <algorithm>

namespace Nvr {

namespace {

constexpr char kCarriageReturn = '\r';

std::size_t CountOccurrences(std::string_view text, std::string_view wanted) {
    std::size_t count = 0;
    for (auto at = text.find(wanted); at != std::string_view::npos;
         at = text.find(wanted, at + wanted.size()))
        ++count;
    return count;
}

} // namespace

String& String::operator+=(const String& other) {
    if (IsEmpty())
        return *this = other;
    if (!other.IsEmpty())
        *this = Join(View(), other.View());
    return *this;
}

String& String::operator+=(const char* other) {
    if (other != nullptr && *other != '\0')
        *this = Join(View(), other);
    return *this;
}

String& String::operator+=(char other) {
    if (other != '\0')
        *this = Join(View(), {&other, 1});
    return *this;
}

String operator+(const String& left, const String& right) {
    String result = left;
    return result += right;
}

String operator+(const String& left, const char* right) {
    String result = left;
    return result += right;
}

String operator+(const char* left, const String& right) {
    if (left == nullptr || *left == '\0')
        return right;
    return String::Join(left, right.View());
}

String operator+(const String& left, char right) {
    String result = left;
    return result += right;
}

String String::Mid(int start, int count) const {
    if (start < 0 || count < 1 || static_cast<unsigned>(start) >= Length())
        return {};
    if (start == 0 && static_cast<unsigned>(count) >= Length())
        return *this;
    return String(View().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count)));
}

String String::Mid(int start) const {
    return Mid(start, static_cast<int>(Length()));
}

// Whether a byte stays is asked twice, so that the result is one allocation of its exact length.
template <class KeepByte>
String String::Filtered(KeepByte keep) const {
    const auto source = View();
    const auto kept = static_cast<std::size_t>(std::count_if(source.begin(), source.end(), keep));
    if (kept == source.size())
        return *this;
    if (kept == 0)
        return {};
    char* text = nullptr;
    Representation* const representation = NewInline(kept, text);
    std::copy_if(source.begin(), source.end(), text, keep);
    return FinishInline(representation);
}

template <class MapByte>
String String::Mapped(MapByte map) const {
    const auto source = View();
    const auto changes = [&map](char byte) { return map(byte) != byte; };
    if (std::none_of(source.begin(), source.end(), changes))
        return *this;
    char* text = nullptr;
    Representation* const representation = NewInline(source.size(), text);
    std::transform(source.begin(), source.end(), text, map);
    return FinishInline(representation);
}

String String::ToUpper() const {
    return Mapped(Platform::ToUpper);
}

String String::ToLower() const {
    return Mapped(Platform::ToLower);
}

String String::Trim() const {
    const int first = FindNonSpace(0);
    return first < 0 ? String() : Mid(first, LastNonSpace(static_cast<int>(Length())) - first + 1);
}

String String::RemoveSpaces() const {
    return Filtered([](char byte) { return !Platform::IsSpace(byte); });
}

String String::RemoveChar(char character) const {
    return Filtered([character](char byte) { return byte != character; });
}

String String::RemoveCRs() const {
    return RemoveChar(kCarriageReturn);
}

String String::ReplaceChar(char from, char to) const {
    return Mapped([from, to](char byte) { return byte == from ? to : byte; });
}

String String::ReplaceAll(const String& from, const String& to) const {
    if (from.IsEmpty())
        return *this;
    const auto source = View();
    const auto wanted = from.View();
    const std::size_t occurrences = CountOccurrences(source, wanted);
    if (occurrences == 0)
        return *this;
    const std::size_t length = source.size() - occurrences * wanted.size() + occurrences * to.Length();
    if (length == 0)
        return {};
    char* text = nullptr;
    Representation* const representation = NewInline(length, text);
    std::size_t copied = 0;
    for (auto at = source.find(wanted); at != std::string_view::npos; at = source.find(wanted, copied)) {
        text = std::copy(source.begin() + static_cast<std::ptrdiff_t>(copied),
                         source.begin() + static_cast<std::ptrdiff_t>(at), text);
        text = std::copy_n(to.CStr(), to.Length(), text);
        copied = at + wanted.size();
    }
    std::copy(source.begin() + static_cast<std::ptrdiff_t>(copied), source.end(), text);
    return FinishInline(representation);
}

} // namespace Nvr
