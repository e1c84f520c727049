#include "Projects/Score/LilyPondChords.h"

#include "Projects/Score/ChordName.h"
#include "Projects/Score/LilyPondNotes.h"
#include "Projects/Score/Utf8.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace Score {

namespace {

struct ChordKind {
    std::string_view Kind;
    std::string_view Mode;
};

// Kinds that chord mode has, where the name that it prints means the same to every player.
constexpr auto kKinds = std::to_array<ChordKind>({
    {"major", ""},
    {"minor", ":m"},
    {"dominant", ":7"},
    {"major-seventh", ":maj7"},
    {"minor-seventh", ":m7"},
    {"major-minor", ":m7+"},
    {"major-sixth", ":6"},
    {"minor-sixth", ":m6"},
    {"dominant-ninth", ":9"},
    {"minor-ninth", ":m9"},
    {"dominant-11th", ":11"},
    {"suspended-second", ":sus2"},
    {"suspended-fourth", ":sus4"},
    {"diminished", ":dim"},
    {"diminished-seventh", ":dim7"},
    {"half-diminished", ":m7.5-"},
    {"augmented", ":aug"},
    {"power", ":5"},
});

std::string RootText(const PitchName& pitch) {
    const char* sign = pitch.Alter > 0 ? "s" : pitch.Alter < 0 ? "f" : "";
    return std::string(1, static_cast<char>(pitch.Step - 'A' + 'a')) + sign;
}

// What stands after the root and the duration; empty where only a name can say it.
std::optional<std::string> ModeOf(const ChordName& chord) {
    const auto* row = std::find_if(kKinds.begin(), kKinds.end(),
                                   [&](const ChordKind& kind) { return kind.Kind == chord.Kind; });
    if (row == kKinds.end() || !chord.Degrees.empty())
        return std::nullopt;
    return std::string(row->Mode) + (chord.HasBass ? "/" + RootText(chord.Bass) : "");
}

std::string ChordText(const std::string& symbol, int length) {
    const ChordName chord = ChordName::Parse(symbol);
    const std::string duration = LengthText(length);
    if (const std::optional<std::string> mode = ModeOf(chord))
        return RootText(chord.Root) + duration + *mode;
    return "\\named " + QuotedText(ToUtf8(symbol)) + " " + RootText(chord.Root) + duration;
}

// Each with a place of its own: two at one place make one name.
std::vector<ModelText> PlacesOf(const ModelBar& bar, const WrittenBar& written, int length) {
    std::vector<ModelText> places;
    for (std::size_t index = 0; index < bar.ChordSymbols.size(); ++index) {
        const int position = std::min(written.ChordPositions[index], length - 1);
        const std::string& symbol = bar.ChordSymbols[index].Text;
        if (places.empty() || position > places.back().Position)
            places.push_back({position, symbol});
        else
            places.back().Text += " " + symbol;
    }
    return places;
}

} // namespace

std::string LilyPondChords(const ModelBar& bar, const WrittenBar& written, int length) {
    const std::vector<ModelText> places = PlacesOf(bar, written, length);
    const int first = places.empty() ? length : places.front().Position;
    std::string text = first > 0 ? "s" + LengthText(first) + " " : "";
    for (std::size_t index = 0; index < places.size(); ++index) {
        const int end = index + 1 < places.size() ? places[index + 1].Position : length;
        text += ChordText(places[index].Text, end - places[index].Position) + " ";
    }
    return text;
}

const char* LilyPondChordNaming() {
    return R"(% A chord by a name of its own: \named "Cadd9" c1
named = #(define-music-function (name chord) (markup? ly:music?)
  #{ \once \set chordNameFunction = #(lambda (pitches bass inversion context) name) #chord #})

)";
}

} // namespace Score
