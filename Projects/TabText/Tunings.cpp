#include "Projects/TabText/Tunings.h"

#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Score/TuningNames.h"
#include "Shared/Utils/AsciiChars.h"

#include <array>

namespace TabText {

namespace {

constexpr std::size_t kFewestStrings = 4;

// From A to G.
constexpr std::array<int, 7> kPitchClasses{9, 11, 0, 2, 4, 5, 7};

} // namespace

std::string TuningText(const std::vector<int>& tuning) {
    std::vector<int> strings;
    strings.reserve(tuning.size());
    for (const int pitch : tuning)
        strings.push_back(pitch / Fretline::kChrom2PerSemitone);
    return Score::TuningLetters(strings);
}

std::vector<int> SpelledStrings(std::string_view word) {
    std::vector<int> strings;
    for (const char c : word) {
        // A flat is a small letter after the name of a note; so is the string that many write small.
        if ((c == '#' || c == 'b') && !strings.empty()) {
            strings.back() = (strings.back() + (c == '#' ? 1 : Fretline::kSemitonesPerOctave - 1)) %
                             Fretline::kSemitonesPerOctave;
            continue;
        }
        const char upper = Nvr::Ascii::ToUpper(c);
        if (c == '-' || c == ',' || c == ' ')
            continue;
        if (upper < 'A' || upper > 'G')
            return {};
        strings.push_back(kPitchClasses[static_cast<std::size_t>(upper - 'A')]);
    }
    return strings.size() < kFewestStrings ? std::vector<int>() : strings;
}

} // namespace TabText
