#include "Projects/Score/ChordName.h"

#include <array>
#include <optional>

namespace Score {

namespace {

struct KindRow {
    // What stands after the root, brackets left out.
    std::string_view Written;
    std::string_view Kind;
};

// Looked up by the longest beginning; what is left after it is read as degrees.
constexpr std::array<KindRow, 38> kKinds{{
    {"", "major"},
    {"maj", "major"},
    {"6", "major-sixth"},
    {"maj6", "major-sixth"},
    {"7", "dominant"},
    {"maj7", "major-seventh"},
    {"9", "dominant-ninth"},
    {"maj9", "major-ninth"},
    {"11", "dominant-11th"},
    {"maj11", "major-11th"},
    {"13", "dominant-13th"},
    {"maj13", "major-13th"},
    {"5", "power"},
    {"m", "minor"},
    {"m6", "minor-sixth"},
    {"m7", "minor-seventh"},
    {"m9", "minor-ninth"},
    {"m11", "minor-11th"},
    {"m13", "minor-13th"},
    {"mmaj7", "major-minor"},
    {"m7b5", "half-diminished"},
    {"dim", "diminished"},
    {"dim7", "diminished-seventh"},
    {"aug", "augmented"},
    {"aug7", "augmented-seventh"},
    {"7#5", "augmented-seventh"},
    {"sus", "suspended-fourth"},
    {"sus2", "suspended-second"},
    {"sus4", "suspended-fourth"},
    {"6/9", "major-sixth"},
    {"m6/9", "minor-sixth"},
    {"7sus", "suspended-fourth"},
    {"7sus2", "suspended-second"},
    {"7sus4", "suspended-fourth"},
    {"9sus4", "suspended-fourth"},
    {"maug", "minor"},
    {"maj7sus4", "suspended-fourth"},
    {"maj7sus2", "suspended-second"},
}};

struct ImpliedDegree {
    std::string_view Written;
    ChordDegree Degree;
};

// Degrees that a writing says beyond the kind that it is given above.
constexpr std::array<ImpliedDegree, 9> kImplied{{
    {"6/9", {9, 0, ChordDegree::Change::Add}},
    {"m6/9", {9, 0, ChordDegree::Change::Add}},
    {"7sus", {7, -1, ChordDegree::Change::Add}},
    {"7sus2", {7, -1, ChordDegree::Change::Add}},
    {"7sus4", {7, -1, ChordDegree::Change::Add}},
    {"9sus4", {9, 0, ChordDegree::Change::Add}},
    {"maug", {5, 1, ChordDegree::Change::Alter}},
    {"maj7sus4", {7, 0, ChordDegree::Change::Add}},
    {"maj7sus2", {7, 0, ChordDegree::Change::Add}},
}};

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

// Takes a pitch name off the front of `text`.
std::optional<PitchName> TakePitch(std::string_view& text) {
    if (text.empty() || text.front() < 'A' || text.front() > 'G')
        return std::nullopt;
    PitchName pitch{text.front(), 0};
    text.remove_prefix(1);
    if (!text.empty() && (text.front() == '#' || text.front() == 'b')) {
        pitch.Alter = text.front() == '#' ? 1 : -1;
        text.remove_prefix(1);
    }
    return pitch;
}

bool TakeWord(std::string_view& text, std::string_view word) {
    if (text.substr(0, word.size()) != word)
        return false;
    text.remove_prefix(word.size());
    return true;
}

// A fifth and a ninth of the chord's own can only be altered; other degrees are added.
ChordDegree::Change HowOf(int value, int alter) {
    return value == 5 && alter != 0 ? ChordDegree::Change::Alter : ChordDegree::Change::Add;
}

// Takes one degree such as "add9", "#11" or "b5" off the front of `text`.
std::optional<ChordDegree> TakeDegree(std::string_view& text) {
    const bool added = TakeWord(text, "add");
    int alter = 0;
    if (!text.empty() && (text.front() == '#' || text.front() == 'b')) {
        alter = text.front() == '#' ? 1 : -1;
        text.remove_prefix(1);
    }
    constexpr std::size_t kLongestDegree = 2;
    int value = 0;
    for (std::size_t digits = 0; digits < kLongestDegree && !text.empty() && IsDigit(text.front());
         ++digits) {
        value = value * 10 + (text.front() - '0');
        text.remove_prefix(1);
    }
    if (value == 0)
        return std::nullopt;
    return ChordDegree{value, alter, added ? ChordDegree::Change::Add : HowOf(value, alter)};
}

// The row whose writing is the longest beginning of `suffix` that does not cut a number in two.
const KindRow& LongestKind(std::string_view suffix) {
    const KindRow* best = &kKinds.front();
    for (const KindRow& row : kKinds) {
        if (row.Written.size() < best->Written.size() || suffix.substr(0, row.Written.size()) != row.Written)
            continue;
        const bool cutsNumber = !row.Written.empty() && IsDigit(row.Written.back()) &&
                                row.Written.size() < suffix.size() && IsDigit(suffix[row.Written.size()]);
        if (!cutsNumber)
            best = &row;
    }
    return *best;
}

std::string WithoutBrackets(std::string_view text) {
    std::string plain;
    for (const char character : text)
        if (character != '(' && character != ')')
            plain += character;
    return plain;
}

// Where a bass note's slash stands: the last slash that a letter from A to G follows.
std::size_t FindBass(std::string_view text) {
    const std::size_t slash = text.rfind('/');
    const bool isBass = slash != std::string_view::npos && slash + 1 < text.size() &&
                        text[slash + 1] >= 'A' && text[slash + 1] <= 'G';
    return isBass ? slash : std::string_view::npos;
}

} // namespace

ChordName ChordName::Parse(std::string_view text) {
    ChordName name;
    if (const std::size_t slash = FindBass(text); slash != std::string_view::npos) {
        std::string_view bass = text.substr(slash + 1);
        name.Bass = *TakePitch(bass);
        name.HasBass = true;
        text = text.substr(0, slash);
    }
    const std::optional<PitchName> root = TakePitch(text);
    if (!root) {
        name.Kind = "none";
        return name;
    }
    name.Root = *root;
    const std::string suffix = WithoutBrackets(text);
    const KindRow& kind = LongestKind(suffix);
    name.Kind = kind.Kind;
    for (const ImpliedDegree& implied : kImplied)
        if (implied.Written == kind.Written)
            name.Degrees.push_back(implied.Degree);
    std::string_view rest = std::string_view(suffix).substr(kind.Written.size());
    while (!rest.empty()) {
        const std::optional<ChordDegree> degree = TakeDegree(rest);
        if (!degree) {
            name.Kind = "other";
            name.Degrees.clear();
            break;
        }
        name.Degrees.push_back(*degree);
    }
    return name;
}

} // namespace Score
