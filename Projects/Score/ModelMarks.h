#pragma once

#include <string>
#include <vector>

namespace Score {

/// How a note is played, beyond its pitch and length.
enum class Technique {
    /// Both go from this note to the next on its string, which is not struck again.
    HammerOn,
    PullOff,
    /// From this note to the next on its string.
    Slide,
    /// Into the note from nowhere in particular, and out of it; Amount is 1 for upward, -1 for downward.
    SlideIn,
    SlideOut,
    /// Amount is in quarter tones: 4 for a whole tone up. A release has the same note's bend before it.
    Bend,
    Release,
    Vibrato,
    /// A muted string that is struck: no pitch is heard. The note stands on the open string.
    Dead,
    NaturalHarmonic,
    /// Also pinched, with the pick.
    ArtificialHarmonic,
    /// Amount is the fret that it alternates with; 0 when the text does not say.
    Trill,
    Tap,
    /// Hardly heard: a note in brackets.
    Ghost,
    PalmMute,
    LetRing,
    Accent,
    /// Of the picking hand.
    DownStroke,
    UpStroke,
};

/// What a technique is called: `Id` for programs, `Name` for people.
struct TechniqueName {
    Technique Kind;
    const char* Id;
    const char* Name;
};
const TechniqueName& NameOf(Technique kind);

struct ModelTechnique {
    Technique Kind = Technique::Vibrato;
    int Amount = 0;

    bool operator==(const ModelTechnique&) const = default;
};

/// What a bar says of the way through the score.
struct ModelRepeats {
    /// The bar begins, or ends, a stretch that is played several times.
    bool IsStart = false;
    bool IsEnd = false;
    /// How often the stretch that ends here is played in all; 2 unless the text says otherwise.
    int Times = 2;

    bool operator==(const ModelRepeats&) const = default;
};

/// What a text says of the whole piece. All of it is empty for a score alone. Texts are in the score's code
/// page.
struct ModelHeading {
    std::string Title;
    std::string Artist;
    /// Crotchets a minute; 0 when the text does not say.
    int Tempo = 0;
    /// The fret of the capo; 0 for none. Frets count from it, and all sounds higher by as many semitones than
    /// the notes of the model say.
    int Capo = 0;
    /// Quavers are played long and short.
    bool IsSwung = false;

    bool operator==(const ModelHeading&) const = default;
};

/// The technique of that kind; null when the list has none.
const ModelTechnique* FindTechnique(const std::vector<ModelTechnique>& techniques, Technique kind);

} // namespace Score
