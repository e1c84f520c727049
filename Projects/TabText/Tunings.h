#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TabText {

/// The open strings as note names with octaves, lowest first: "E2 A2 D3 G3 B3 E4". `tuning` is in Chrom2, as
/// that of Fretline::TabStave.
std::string TuningText(const std::vector<int>& tuning);

/// The strings that a word spells as note letters, lowest first as written: "DADGAD", "EbAbDbGbBbEb". Each
/// entry is the pitch class, 0 for C. Empty when the word spells anything else or fewer than four strings.
std::vector<int> SpelledStrings(std::string_view word);

} // namespace TabText
