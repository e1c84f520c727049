#include "Projects/Score/LilyPondNotes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <numeric>

namespace Score {

namespace {

constexpr int kMiddleOctave = 3;
constexpr int kQuarterTonesOfASemitone = 2;
constexpr int kQuarterTonesOfAStep = 4;

// A value with more flags than this is drawn as this one, and lasts as long as it does.
constexpr int kShortestDrawn = kUnitsPerWholeNote / 64;

// Signs that stand at a chord as a whole, where one of its notes has them.
struct SignText {
    Technique Kind;
    const char* Text;
};

constexpr auto kSigns = std::to_array<SignText>({
    {Technique::HammerOn, "^\\markup \\tiny \"H\""},
    {Technique::PullOff, "^\\markup \\tiny \"P\""},
    {Technique::Vibrato, "^\\vibrato"},
    {Technique::ArtificialHarmonic, "^\\markup \\tiny \"A.H.\""},
    {Technique::Trill, "\\trill"},
    {Technique::Tap, "^\\markup \\tiny \"T\""},
    {Technique::LetRing, "\\laissezVibrer"},
    {Technique::Accent, "\\accent"},
    {Technique::DownStroke, "\\downbow"},
    {Technique::UpStroke, "\\upbow"},
});

constexpr const char* kVibrato = R"(% A wavy line above a note.
vibrato = \markup \concat {
  \musicglyph "scripts.trill_element"
  \musicglyph "scripts.trill_element"
  \musicglyph "scripts.trill_element"
}

)";

constexpr const char* kMuteLine = R"(  \override TextSpanner.bound-details.left.text = \markup \tiny "P.M. "
  \override TextSpanner.bound-details.right.text = \markup \draw-line #'(0 . -0.8)
)";

bool Uses(const ScoreModel& score, Technique kind) {
    for (const ModelBar& bar : score.Bars)
        for (const ModelEvent& event : bar.Events)
            for (const ModelNote& note : event.Notes)
                if (FindTechnique(note.Techniques, kind) != nullptr)
                    return true;
    return false;
}

// From a note of one piece to a note of the next, by their places.
struct Step {
    std::size_t From;
    std::size_t To;
};

std::string DurationText(int value, int dots) {
    const std::string dotted(static_cast<std::size_t>(dots), '.');
    if (value > 2 * kUnitsPerWholeNote)
        return "\\longa" + dotted;
    if (value > kUnitsPerWholeNote)
        return "\\breve" + dotted;
    if (value >= kShortestDrawn)
        return std::to_string(kUnitsPerWholeNote / value) + dotted;
    return std::to_string(kUnitsPerWholeNote / kShortestDrawn) + dotted + "*1/" +
           std::to_string(kShortestDrawn / value);
}

const ModelTechnique* FindIn(const WrittenPiece& piece, Technique kind) {
    for (const ModelNote& note : *piece.Notes)
        if (const ModelTechnique* technique = FindTechnique(note.Techniques, kind))
            return technique;
    return nullptr;
}

std::string BendText(int quarterTones) {
    const int whole = quarterTones / kQuarterTonesOfAStep;
    const int rest = quarterTones % kQuarterTonesOfAStep;
    if (rest == 0)
        return whole == 1 ? "full" : std::to_string(whole);
    const std::string part = rest == 2 ? "1/2" : rest == 1 ? "1/4" : "3/4";
    return whole == 0 ? part : std::to_string(whole) + " " + part;
}

// What stands above the first note that is bent: "bend full, on to 1 1/2"; empty for none.
std::string BendsText(const WrittenPiece& piece) {
    for (const ModelNote& note : *piece.Notes) {
        std::string text;
        int reached = 0;
        for (const ModelTechnique& bend : note.Techniques)
            if (bend.Kind == Technique::Bend) {
                reached += bend.Amount;
                text += (text.empty() ? "bend " : ", on to ") + BendText(reached);
            }
        if (!text.empty())
            return text;
    }
    return {};
}

// The notes of the piece with that technique which lead to a note of their string in the next one: their
// places in both.
std::vector<Step> StepsOf(const WrittenPiece& piece, const WrittenPiece* next, Technique kind) {
    std::vector<Step> steps;
    if (next == nullptr || piece.HasTie() || !piece.IsStruck)
        return steps;
    for (std::size_t from = 0; from < piece.Notes->size(); ++from) {
        const ModelNote& note = (*piece.Notes)[from];
        const auto to = std::find_if(next->Notes->begin(), next->Notes->end(),
                                     [&](const ModelNote& other) { return other.String == note.String; });
        if (to != next->Notes->end() && FindTechnique(note.Techniques, kind) != nullptr)
            steps.push_back({from, static_cast<std::size_t>(to - next->Notes->begin())});
    }
    return steps;
}

// Says which heads the lines of a slide join, where not all have one.
std::string MapOf(const std::vector<Step>& steps, const WrittenPiece& piece, const WrittenPiece* next) {
    if (steps.empty() || next == nullptr || (piece.Notes->size() == 1 && next->Notes->size() == 1))
        return {};
    std::string text = "\\once \\set glissandoMap = #'(";
    for (const Step& step : steps)
        text += (&step == &steps.front() ? "(" : " (") + std::to_string(step.From) + " . " +
                std::to_string(step.To) + ")";
    return text + ") ";
}

std::string SmallText(const std::string& text) {
    return "^\\markup \\tiny " + QuotedText(text);
}

// The curve of a slide to nowhere has no room where notes stand close together. A number needs room after it.
std::string SlideAt(const WrittenPiece& piece, const WrittenPiece* next) {
    std::string text;
    if (const ModelTechnique* in = FindIn(piece, Technique::SlideIn))
        text += SmallText(in->Amount > 0 ? "/ sl." : "\\ sl.");
    if (!StepsOf(piece, next, Technique::Slide).empty())
        text += "\\glissando";
    else if (FindIn(piece, Technique::Slide) != nullptr)
        text += SmallText("sl.");
    if (const ModelTechnique* out = FindIn(piece, Technique::SlideOut))
        text += out->Amount > 0 ? SmallText("sl. /") + "\\bendAfter #4 "
                                : SmallText("sl. \\") + "\\bendAfter #-4 ";
    return text;
}

} // namespace

std::string QuotedText(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c == '\n' || c == '\r' ? ' ' : c;
    }
    return quoted + '"';
}

std::string FractionText(int length) {
    const int divisor = std::gcd(length, kUnitsPerWholeNote);
    return std::to_string(length / divisor) + "/" + std::to_string(kUnitsPerWholeNote / divisor);
}

std::string LengthText(int length) {
    for (const int dots : {0, 1}) {
        // A dotted value is three halves of it.
        const int value = dots == 0 ? length : length / 3 * 2;
        const bool isNoteValue = std::has_single_bit(static_cast<unsigned>(value)) &&
                                 value <= kUnitsPerWholeNote && value + dots * value / 2 == length;
        if (isNoteValue)
            return DurationText(value, dots);
    }
    return "1*" + FractionText(length);
}

std::string LilyPondPitch(const SpelledPitch& pitch) {
    std::string name(1, static_cast<char>(pitch.Step - 'A' + 'a'));
    name += std::string(static_cast<std::size_t>(std::abs(pitch.Alter)), pitch.Alter > 0 ? 's' : 'f');
    const int octaves = pitch.Octave - kMiddleOctave;
    return name + std::string(static_cast<std::size_t>(std::abs(octaves)), octaves > 0 ? '\'' : ',');
}

std::string LilyPondNotes::Piece(const WrittenPiece& piece, const WrittenPiece* next) {
    const std::string duration = DurationText(piece.Value, piece.Dots);
    if (piece.Notes == nullptr)
        return (m_HasRhythms ? "r" : "s") + duration;
    std::string notes;
    for (std::size_t index = 0; index < piece.Notes->size(); ++index)
        if (const ModelNote& note = (*piece.Notes)[index]; !m_IsForTab || note.Fret >= 0)
            notes +=
                (notes.empty() ? "" : " ") + Note(note, piece.IsStruck) + (piece.IsTied[index] ? "~" : "");
    if (notes.empty())
        return "s" + duration;
    // Between the two staves of a score, one of which may lack notes, nothing leads from note to note.
    if (m_IsForTab || (next != nullptr && next->Notes == nullptr))
        next = nullptr;
    return MapOf(StepsOf(piece, next, Technique::Slide), piece, next) + "<" + notes + ">" + duration +
           (piece.IsStruck ? SignsAt(piece, next) : "");
}

std::string LilyPondNotes::Note(const ModelNote& note, bool isStruck) const {
    SpelledPitch pitch = Spell(note.Midi, note.Diat);
    if (std::abs(pitch.Alter) > 2)
        pitch = SpellMidi(note.Midi);
    std::string text;
    if (FindTechnique(note.Techniques, Technique::Dead) != nullptr)
        text += "\\deadNote ";
    if (isStruck && FindTechnique(note.Techniques, Technique::Ghost) != nullptr)
        text += "\\parenthesize ";
    text += LilyPondPitch(pitch);
    const int strings = static_cast<int>(m_Tuning->size());
    if (note.Fret >= 0 && note.String < strings)
        text += "\\" + std::to_string(strings - note.String);
    if (FindTechnique(note.Techniques, Technique::NaturalHarmonic) != nullptr)
        text += "\\harmonic";
    return text;
}

std::string LilyPondNotes::SignsAt(const WrittenPiece& piece, const WrittenPiece* next) {
    std::string text = m_IsSlurOpen ? ")" : "";
    m_IsSlurOpen = !StepsOf(piece, next, Technique::HammerOn).empty() ||
                   !StepsOf(piece, next, Technique::PullOff).empty();
    for (const SignText& sign : kSigns)
        if (FindIn(piece, sign.Kind) != nullptr)
            text += sign.Text;
    text += BendAt(piece, next) + SlideAt(piece, next) + MuteAt(piece, next);
    return text + (m_IsSlurOpen ? "(" : "");
}

// The curve of a bend needs the note that it leads to, and no other beside either.
std::string LilyPondNotes::BendAt(const WrittenPiece& piece, const WrittenPiece* next) {
    const ModelTechnique* bend = FindIn(piece, Technique::Bend);
    const bool isRelease = m_IsBent && FindIn(piece, Technique::Release) != nullptr;
    const bool isAlone = next != nullptr && !piece.HasTie() && piece.Notes->size() == 1 &&
                         next->Notes->size() == 1 &&
                         piece.Notes->front().String == next->Notes->front().String;
    const int rise = isAlone ? next->Notes->front().Midi - piece.Notes->front().Midi : 0;
    const bool isTarget = bend != nullptr && rise > 0 && rise * kQuarterTonesOfASemitone == bend->Amount;
    const bool isDrawn = isTarget || (isRelease && rise < 0);
    m_IsBent = bend != nullptr && isDrawn;
    std::string text;
    if (bend != nullptr)
        text =
            SmallText(BendsText(piece) + (FindIn(piece, Technique::Release) != nullptr ? ", release" : ""));
    if (isDrawn)
        return text + "\\^";
    return bend == nullptr ? "" : text + "\\bendAfter #2 ";
}

// One line over all notes that are muted one after the other.
std::string LilyPondNotes::MuteAt(const WrittenPiece& piece, const WrittenPiece* next) {
    const bool isMuted = FindIn(piece, Technique::PalmMute) != nullptr;
    const bool goesOn = isMuted && next != nullptr && FindIn(*next, Technique::PalmMute) != nullptr;
    const bool wasOpen = m_IsMuteOpen;
    m_IsMuteOpen = goesOn;
    if (wasOpen)
        return goesOn ? "" : "\\stopTextSpan";
    return goesOn ? "\\startTextSpan" : isMuted ? "^\\markup \\tiny \"P.M.\"" : "";
}

std::string LilyPondMarks(ScoreParts parts) {
    const bool usesVibrato = std::any_of(
        parts.begin(), parts.end(), [](const ScoreModel& part) { return Uses(part, Technique::Vibrato); });
    return usesVibrato ? kVibrato : "";
}

std::string LilyPondMuteLine(const ScoreModel& score) {
    return Uses(score, Technique::PalmMute) ? kMuteLine : "";
}

} // namespace Score
