#include "Shared/Utils/NvrString.h"

#include "Shared/Utils/platform/TextServices.h"

#include <algorithm>

namespace Nvr {

namespace {

constexpr int kNotFound = -1;

int ToIndex(std::string_view::size_type position) {
    return position == std::string_view::npos ? kNotFound : static_cast<int>(position);
}

// The first byte from `start` on that is white space, or that is not.
int FindBySpace(std::string_view text, int start, bool wanted) {
    if (start < 0 || static_cast<std::size_t>(start) >= text.size())
        return kNotFound;
    const auto found = std::find_if(text.begin() + start, text.end(),
                                    [wanted](char byte) { return Platform::IsSpace(byte) == wanted; });
    return found != text.end() ? static_cast<int>(found - text.begin()) : kNotFound;
}

} // namespace

int String::Find(const String& text) const {
    return Find(0, text);
}

int String::Find(int start, const String& text) const {
    if (start < 0 || static_cast<unsigned>(start) >= Length())
        return kNotFound;
    return ToIndex(View().find(text.View(), static_cast<std::size_t>(start)));
}

int String::FindChar(char character) const {
    return FindChar(0, character);
}

int String::FindChar(int start, char character) const {
    return start < 0 ? kNotFound : ToIndex(View().find(character, static_cast<std::size_t>(start)));
}

int String::FindLastChar(char character) const {
    return ToIndex(View().rfind(character));
}

int String::FindSpace(int start) const {
    return FindBySpace(View(), start, true);
}

int String::FindNonSpace(int start) const {
    return FindBySpace(View(), start, false);
}

int String::LastNonSpace(int index) const {
    int at = std::min(index, static_cast<int>(Length()) - 1);
    while (at >= 0 && Platform::IsSpace(CStr()[at]))
        --at;
    return std::max(at, kNotFound);
}

bool String::IsDigits() const {
    const auto text = View();
    return std::all_of(text.begin(), text.end(), Platform::IsDigit);
}

bool String::IsAlphanumeric() const {
    const auto text = View();
    return std::all_of(text.begin(), text.end(), Platform::IsAlphanumeric);
}

} // namespace Nvr
