#include "Projects/TabText/prepare/StringNames.h"

#include "Shared/Utils/AsciiChars.h"

namespace TabText {

namespace {

using std::string;

bool IsNamed(const std::vector<string>& names, const string& strings, std::size_t first) {
    for (std::size_t at = 0; at < names.size(); ++at)
        if (names[at].size() != 1 ||
            Nvr::Ascii::ToUpper(names[at][0]) != Nvr::Ascii::ToUpper(strings[first + at]))
            return false;
    return true;
}

} // namespace

string LettersOf(const std::vector<string>& names, int strings) {
    if (names.empty()) {
        if (strings == static_cast<int>(kGuitarStrings.size()))
            return string(kGuitarStrings);
        return strings == static_cast<int>(kBassStrings.size()) ? string(kBassStrings) : string();
    }
    string letters;
    for (const string& name : names) {
        if (name.size() != 1)
            return {};
        letters += name;
    }
    return letters;
}

std::vector<int> PlacesAmong(const std::vector<string>& names, const string& strings) {
    std::vector<int> places;
    for (std::size_t first = 0; first + names.size() <= strings.size(); ++first) {
        if (!IsNamed(names, strings, first))
            continue;
        if (!places.empty())
            return {};
        for (std::size_t at = 0; at < names.size(); ++at)
            places.push_back(static_cast<int>(first + at));
    }
    return places;
}

} // namespace TabText
