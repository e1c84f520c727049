#include "Projects/TabText/StatedCapo.h"

#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

CapoStatement StatedCapo(std::string_view line) {
    constexpr std::string_view kWord = "capo";
    constexpr int kHighestCapo = 12;
    constexpr std::size_t kReach = 24;
    const std::size_t capo = FindInAnyCase(line, kWord);
    if (capo == std::string_view::npos)
        return {};
    const std::string_view rest = line.substr(capo, kReach);
    const auto* digit = std::find_if(rest.begin(), rest.end(), Nvr::Ascii::IsDigit);
    int fret = 0;
    for (; digit != rest.end() && Nvr::Ascii::IsDigit(*digit) && fret <= kHighestCapo; ++digit)
        fret = fret * 10 + (*digit - '0');
    const auto column = static_cast<int>(capo);
    return {fret <= kHighestCapo ? fret : 0, column, column + static_cast<int>(kWord.size())};
}

} // namespace TabText
