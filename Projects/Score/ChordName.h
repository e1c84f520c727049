#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Score {

/// One alteration of a chord beyond its kind, such as an added ninth.
struct ChordDegree {
    enum class Change { Add, Alter };
    int Value = 0;
    /// In semitones: -1 flat, 1 sharp.
    int Alter = 0;
    Change How = Change::Add;
};

/// A pitch name without octave: a letter from A to G and an alteration in semitones.
struct PitchName {
    char Step = 'C';
    int Alter = 0;
};

/// A chord symbol as music understands it.
struct ChordName {
    PitchName Root;
    /// The kind by its name in the MusicXML vocabulary, such as "dominant" or "major-seventh"; "other" when
    /// the symbol has a root but the rest is not understood.
    std::string Kind = "major";
    std::vector<ChordDegree> Degrees;
    bool HasBass = false;
    PitchName Bass;

    /// Understands the normalised chord text of a score, such as "C#m7/G#" or "C(add9)". Any text that begins
    /// with a letter from A to G gives a root; a text that does not gives C and the kind "none".
    static ChordName Parse(std::string_view text);
};

} // namespace Score
