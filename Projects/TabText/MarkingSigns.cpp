#include "Projects/TabText/MarkingSigns.h"

#include "Projects/TabText/TabReading.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using Score::Technique;
using std::string_view;

constexpr std::array kSigns{
    Sign{"h", SignPlace::Between, Technique::HammerOn, "hammer-on"},
    Sign{"p", SignPlace::Between, Technique::PullOff, "pull-off"},
    Sign{"^", SignPlace::Between, Technique::HammerOn, "hammer-on upward, pull-off downward"},
    Sign{"/", SignPlace::Slide, Technique::Slide, "slide up"},
    Sign{"\\", SignPlace::Slide, Technique::Slide, "slide down"},
    Sign{"s", SignPlace::Slide, Technique::Slide, "slide"},
    Sign{"b", SignPlace::After, Technique::Bend, "bend, by a tone unless a fret or an amount follows"},
    Sign{"r", SignPlace::After, Technique::Release, "release of a bend"},
    Sign{"~", SignPlace::After, Technique::Vibrato, "vibrato"},
    Sign{"v", SignPlace::After, Technique::Vibrato, "vibrato"},
    Sign{"*", SignPlace::After, Technique::NaturalHarmonic, "harmonic"},
    Sign{"tr", SignPlace::After, Technique::Trill, "trill"},
    Sign{"t", SignPlace::Before, Technique::Tap, "tapped"},
    Sign{"<>", SignPlace::Around, Technique::NaturalHarmonic, "harmonic"},
    Sign{"()", SignPlace::Around, Technique::Ghost, "ghost note"},
    Sign{"x", SignPlace::Note, Technique::Dead, "dead note"},
    Sign{"p.m.", SignPlace::Above, Technique::PalmMute, "palm mute"},
    Sign{"pm", SignPlace::Above, Technique::PalmMute, "palm mute"},
    Sign{"let ring", SignPlace::Above, Technique::LetRing, "let ring"},
    Sign{"n.h.", SignPlace::Above, Technique::NaturalHarmonic, "harmonic"},
    Sign{"nh", SignPlace::Above, Technique::NaturalHarmonic, "harmonic"},
    Sign{"a.h.", SignPlace::Above, Technique::ArtificialHarmonic, "artificial harmonic"},
    Sign{"ah", SignPlace::Above, Technique::ArtificialHarmonic, "artificial harmonic"},
    Sign{"p.h.", SignPlace::Above, Technique::ArtificialHarmonic, "pinched harmonic"},
    Sign{"ph", SignPlace::Above, Technique::ArtificialHarmonic, "pinched harmonic"},
    Sign{"d", SignPlace::Alone, Technique::DownStroke, "stroke downward, in a line of strokes alone"},
    Sign{"u", SignPlace::Alone, Technique::UpStroke, "stroke upward, in a line of strokes alone"},
    Sign{">", SignPlace::Alone, Technique::Accent, "accent, in a line of accents alone"},
};

// What a legend calls the meanings, and how a sign that has it stands beside its note.
constexpr std::array kLegendSigns{
    Sign{"hammer", SignPlace::Between, Technique::HammerOn, "hammer-on"},
    Sign{"pull", SignPlace::Between, Technique::PullOff, "pull-off"},
    Sign{"slide", SignPlace::Slide, Technique::Slide, "slide"},
    Sign{"release", SignPlace::After, Technique::Release, "release of a bend"},
    Sign{"bend", SignPlace::After, Technique::Bend, "bend"},
    Sign{"vibrato", SignPlace::After, Technique::Vibrato, "vibrato"},
    Sign{"harmonic", SignPlace::After, Technique::NaturalHarmonic, "harmonic"},
    Sign{"trill", SignPlace::After, Technique::Trill, "trill"},
    Sign{"tap", SignPlace::Before, Technique::Tap, "tapped"},
    Sign{"palm", SignPlace::After, Technique::PalmMute, "palm mute"},
    Sign{"ghost", SignPlace::After, Technique::Ghost, "ghost note"},
    Sign{"accent", SignPlace::After, Technique::Accent, "accent"},
};

// A line of a legend: a sign, "=" or ":", and what it means.
struct LegendEntry {
    char Sign = 0;
    string_view Meaning;
};

bool CanBeASign(char c) {
    return c > ' ' && c <= '~' && c != '-' && c != '|' && !Nvr::Ascii::IsDigit(c);
}

LegendEntry ParseLegend(string_view line) {
    const std::vector<Word> words = WordsOf(line);
    if (words.empty() || words.front().Text.size() > 2 || !CanBeASign(words.front().Text[0]))
        return {};
    const bool isGlued = words.front().Text.size() == 2;
    const char separator = isGlued ? words.front().Text[1] : (words.size() > 1 ? words[1].Text[0] : '\0');
    const bool separates = separator == '=' || separator == ':' || (!isGlued && separator == '-');
    const std::size_t first = isGlued ? 1 : 2;
    // A chord or a label may look like it, but has no words after.
    if (!separates || words.size() <= first || !Nvr::Ascii::IsAlpha(words[first].Text[0]))
        return {};
    return {words.front().Text[0], line.substr(static_cast<std::size_t>(words[first].Column))};
}

} // namespace

std::span<const Sign> AllSigns() {
    return kSigns;
}

SignMeanings::SignMeanings(const TabReading& reading) {
    for (const Sign& sign : kSigns)
        if (sign.Place < SignPlace::Around && sign.Text.size() == 1)
            At(sign.Text[0]) = &sign;
    for (int line = 0; line < reading.GetFile().GetLineCount(); ++line)
        if (!reading.GetAnalysis().IsStaveLine(line))
            ReadLegend(reading.GetFile().GetLine(line));
    // Capitals mean the same where they mean nothing else.
    for (char letter = 'a'; letter <= 'z'; ++letter)
        if (const char capital = Nvr::Ascii::ToUpper(letter);
            !m_IsDefined[static_cast<unsigned char>(capital)])
            At(capital) = At(letter);
}

void SignMeanings::ReadLegend(string_view line) {
    const LegendEntry entry = ParseLegend(line);
    if (entry.Sign == 0)
        return;
    m_IsDefined.set(static_cast<unsigned char>(entry.Sign));
    const auto* meaning = std::find_if(kLegendSigns.begin(), kLegendSigns.end(), [&](const Sign& sign) {
        return FindInAnyCase(entry.Meaning, sign.Text) != string_view::npos;
    });
    const Sign* usual = Find(entry.Sign);
    const bool saysTheSame =
        meaning != kLegendSigns.end() && usual != nullptr && usual->Kind == meaning->Kind;
    if (!saysTheSame)
        At(entry.Sign) = meaning == kLegendSigns.end() ? nullptr : &*meaning;
}

} // namespace TabText
