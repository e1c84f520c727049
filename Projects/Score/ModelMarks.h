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
    /// Amount is in quarter tones: 4 for a whole tone up. A release has the same note's bend before it. Each
    /// further bend of a note goes on from the one before it; the release is of all of them.
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
    /// How often the stretch that ends here is played in all; 2 unless the text says otherwise. Its endings
    /// say it where there are any.
    int Times = 2;
    /// The times at which the bar is played, ascending from 1, where it belongs to an ending of the stretch.
    std::vector<int> Endings = {};

    bool operator==(const ModelRepeats&) const = default;
};

/// Where the way through the score leads back to, once.
enum class Jump {
    None,
    /// To the first bar.
    DaCapo,
    /// To the bar with the segno.
    DalSegno,
};

/// How far it leads after the jump. Repeats are not played again.
enum class JumpEnd {
    End,
    Fine,
    /// To the end of the bar from which the coda is reached, and on from the coda.
    Coda,
};

/// The signs of jumps in one bar. A score has each at most once, and with a jump those that it needs.
struct ModelWay {
    /// At the beginning of the bar.
    bool HasSegno = false;
    bool HasCoda = false;
    /// At its end.
    bool HasToCoda = false;
    bool HasFine = false;
    Jump To = Jump::None;
    JumpEnd Until = JumpEnd::End;

    bool operator==(const ModelWay&) const = default;
};

/// How a jump is called: "D.S. al Coda".
std::string JumpText(const ModelWay& way);

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

/// The quarter tones of all bends of a note together; 0 for none.
int WholeBend(const std::vector<ModelTechnique>& techniques);

/// The first technique of that kind; null when the list has none.
const ModelTechnique* FindTechnique(const std::vector<ModelTechnique>& techniques, Technique kind);

} // namespace Score
