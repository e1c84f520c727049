#pragma once

#include "Projects/Score/ModelMarks.h"

#include <array>
#include <bitset>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TabText {

class TabReading;
struct Markings;

/// Where a sign stands beside the note that it belongs to.
enum class SignPlace {
    /// Between two frets of a string; belongs to the first.
    Between,
    /// Between two frets, or right before or after one that it leads into or out of.
    Slide,
    /// Right before a fret.
    Before,
    /// After a fret, dashes between them or not.
    After,
    /// Before and after a fret.
    Around,
    /// The sign stands for the note.
    Note,
    /// In a line above a stave, over the notes that it means.
    Above,
    /// The same, or in the line below, where the line has nothing but such signs.
    Alone,
};

/// One sign that players write. `Text` is in lower case, and matched in any case; between the frets a capital
/// stands alone.
struct Sign {
    std::string_view Text;
    SignPlace Place;
    Score::Technique Kind;
    /// For people.
    std::string_view Meaning;
};

/// Every sign that is read, longer ones first where one begins with another.
std::span<const Sign> AllSigns();

/// One row of the table of signs for people: "5h7", "hammer-on".
struct SignRow {
    std::string Shown;
    std::string_view Meaning;

    bool operator==(const SignRow&) const = default;
};

/// All signs that are read, those of AllSigns and those between the staves; of one meaning in one row.
std::vector<SignRow> SignTable();

/// The rows of the signs that a text has, by what was read in it. A sign that has its meaning from a legend
/// has no row.
std::vector<SignRow> SignsOf(const TabReading& reading, const Markings& markings);

/// What the signs between the frets mean in one tab. A legend in its text ("h = hammer on") decides where it
/// says something else than AllSigns; what it says that no technique is takes the sign's meaning away.
class SignMeanings {
public:
    explicit SignMeanings(const TabReading& reading);

    /// The sign of that character; null for one that means nothing here. `x` and brackets are not asked for.
    const Sign* Find(char character) const { return m_Signs[static_cast<unsigned char>(character)]; }

private:
    const Sign*& At(char character) { return m_Signs[static_cast<unsigned char>(character)]; }
    void ReadLegend(std::string_view line);

    /// By character.
    std::array<const Sign*, 256> m_Signs{};
    /// Those of the legend.
    std::bitset<256> m_IsDefined;
};

} // namespace TabText
