#pragma once

#include "Shared/Utils/NvrString.h"

#include <string>
#include <vector>

namespace Fretline {

/// What a part of a chord symbol after its root means.
enum class ChordTokenKind : int {
    Major = 0,
    Minor = 1,
    Suspended = 2,
    Added = 3,
    /// Digits, or an accidental and digits, written as they stand.
    Literal = 4,
    Diminished = 5,
    Augmented = 6,
    OpenBracket = 7,
    CloseBracket = 8,
    SixNine = 9,
};

struct ChordToken {
    ChordTokenKind m_Kind;
    /// Of a literal only.
    std::string m_Text;
    /// Absolute column of the token's last character.
    int m_Column;
};

/// A chord symbol of the text, such as C#m7/G#. Columns are absolute. Owned by its TabBar.
struct TabChord {
    /// Column of the root letter.
    int m_Start = 0;
    /// The column after the last character that the symbol has accepted.
    int m_End = 0;
    /// "A" to "G", with "#" or "b" after it if written.
    std::string m_Root;
    std::vector<ChordToken> m_Tokens;
    /// The note after a slash, spelled as the root is, or empty.
    std::string m_Bass;
};

/// The symbol in its normal spelling: "Fmin7" gives "Fm7".
Nvr::String GetChordText(const TabChord& chord);

} // namespace Fretline
