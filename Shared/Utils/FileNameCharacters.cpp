#include "Shared/Utils/FileNameCharacters.h"

#include <algorithm>
#include <string>

namespace Nvr {

namespace {

String BlankOut(const String& name, std::string_view characters) {
    std::string text(name.View());
    std::replace_if(
        text.begin(), text.end(),
        [characters](char c) { return characters.find(c) != std::string_view::npos; }, ' ');
    return String(text);
}

} // namespace

bool HasIllegalCharacters(const String& name) {
    return name.View().find_first_of(IllegalFileNameCharacters) != std::string_view::npos;
}

String ReplaceIllegalCharacters(const String& name) {
    return BlankOut(name, IllegalFileNameCharacters);
}

String MakeSafeName(const String& name) {
    return BlankOut(name, UnsafeFileNameCharacters);
}

} // namespace Nvr
