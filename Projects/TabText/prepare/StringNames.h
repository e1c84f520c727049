#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TabText {

constexpr int kMostStrings = 6;
/// From the highest string down; the highest is written small so that it can be told from the lowest.
constexpr std::string_view kGuitarStrings = "eBGDAE";
constexpr std::string_view kBassStrings = "GDAE";

/// The names of the strings of a stave as one letter each, from the highest down. Without names, those of an
/// instrument with so many strings; empty where that is not known, or where a name has a sharp or a flat.
std::string LettersOf(const std::vector<std::string>& names, int strings);

/// Where strings of these names lie among `strings`, counted from the highest: next to each other if they
/// can, and in only one place. Empty when there is none or more than one.
std::vector<int> PlacesAmong(const std::vector<std::string>& names, const std::string& strings);

} // namespace TabText
