#include "Projects/Score/LilyPondNotes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <numeric>

namespace Score {

namespace {

constexpr int kMiddleOctave = 3;
constexpr int kQuarterTonesOfAStep = 4;

// Signs that stand at a chord as a whole, where one of its notes has them.
struct SignText {
    Technique Kind;
    const char* Text;
};

constexpr std::array<SignText, 13> kSigns{{
    {Technique::SlideIn, "^\\markup \\tiny \"sl.\""},
    {Technique::SlideOut, "^\\markup \\tiny \"sl.\""},
    {Technique::Vibrato, "^\\markup \\tiny \"~~~\""},
    {Technique::ArtificialHarmonic, "^\\markup \\tiny \"A.H.\""},
    {Technique::Trill, "\\trill"},
    {Technique::Tap, "^\\markup \\tiny \"T\""},
    {Technique::PalmMute, "^\\markup \\tiny \"P.M.\""},
    {Technique::LetRing, "\\laissezVibrer"},
    {Technique::Accent, "\\accent"},
    {Technique::DownStroke, "\\downbow"},
    {Technique::UpStroke, "\\upbow"},
    {Technique::HammerOn, "^\\markup \\tiny \"H\""},
    {Technique::PullOff, "^\\markup \\tiny \"P\""},
}};

std::string DurationText(int value, int dots) {
    std::string text;
    if (value > 2 * kUnitsPerWholeNote)
        text = "\\longa";
    else if (value > kUnitsPerWholeNote)
        text = "\\breve";
    else
        text = std::to_string(kUnitsPerWholeNote / value);
    return text + std::string(static_cast<std::size_t>(dots), '.');
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
    std::string text;
    std::string notes;
    if (piece.Notes == nullptr) {
        text = "r" + duration;
    } else {
        for (std::size_t index = 0; index < piece.Notes->size(); ++index)
            if (const ModelNote& note = (*piece.Notes)[index]; !m_IsForTab || note.Fret >= 0)
                notes += (notes.empty() ? "" : " ") + Note(note) + (piece.IsTied[index] ? "~" : "");
        text = notes.empty() ? "s" + duration : "<" + notes + ">" + duration;
    }
    if (!notes.empty())
        text += SignsAfter(piece, next);
    return text;
}

std::string LilyPondNotes::Note(const ModelNote& note) const {
    SpelledPitch pitch = Spell(note.Midi, note.Diat);
    if (std::abs(pitch.Alter) > 2)
        pitch = SpellMidi(note.Midi);
    std::string text;
    if (FindTechnique(note.Techniques, Technique::Dead) != nullptr)
        text += "\\deadNote ";
    if (FindTechnique(note.Techniques, Technique::Ghost) != nullptr)
        text += "\\parenthesize ";
    text += LilyPondPitch(pitch);
    const int strings = static_cast<int>(m_Tuning->size());
    if (note.Fret >= 0 && note.String < strings)
        text += "\\" + std::to_string(strings - note.String);
    if (FindTechnique(note.Techniques, Technique::NaturalHarmonic) != nullptr)
        text += "\\harmonic";
    return text;
}

std::string LilyPondNotes::SignsAfter(const WrittenPiece& piece, const WrittenPiece* next) {
    std::string text;
    const bool hasNext = next != nullptr && next->Notes != nullptr && !m_IsForTab;
    if (!m_IsForTab && m_IsSlurOpen && piece.IsStruck) {
        text += ")";
        m_IsSlurOpen = false;
    }
    if (!piece.IsStruck)
        return text;
    for (const SignText& sign : kSigns)
        if (FindIn(piece, sign.Kind) != nullptr)
            text += sign.Text;
    if (const ModelTechnique* bend = FindIn(piece, Technique::Bend))
        text += "^\\markup \\tiny " + QuotedText("bend " + BendText(bend->Amount));
    if (FindIn(piece, Technique::Slide) != nullptr && hasNext && !piece.HasTie())
        text += "\\glissando";
    const bool isSlurred =
        FindIn(piece, Technique::HammerOn) != nullptr || FindIn(piece, Technique::PullOff) != nullptr;
    if (isSlurred && hasNext && next->IsStruck) {
        text += "(";
        m_IsSlurOpen = true;
    }
    return text;
}

} // namespace Score
