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
    Sign{"b", SignPlace::After, Technique::Bend,
         "bend, by a tone unless a fret or an amount follows or stands above"},
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
    Sign{"palm mute", SignPlace::Above, Technique::PalmMute, "palm mute"},
    Sign{"let ring", SignPlace::Above, Technique::LetRing, "let ring"},
    Sign{"n.h.", SignPlace::Above, Technique::NaturalHarmonic, "harmonic"},
    Sign{"nh", SignPlace::Above, Technique::NaturalHarmonic, "harmonic"},
    Sign{"harm", SignPlace::Above, Technique::NaturalHarmonic, "harmonic"},
    Sign{"tr", SignPlace::Above, Technique::Trill, "trill"},
    Sign{"~~", SignPlace::Above, Technique::Vibrato, "vibrato"},
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
    Sign{"ring", SignPlace::After, Technique::LetRing, "let ring"},
    Sign{"ghost", SignPlace::After, Technique::Ghost, "ghost note"},
    Sign{"accent", SignPlace::After, Technique::Accent, "accent"},
};

bool CanBeASign(char c) {
    return c > ' ' && c <= '~' && c != '-' && c != '|' && !Nvr::Ascii::IsDigit(c);
}

// One entry of a legend: a sign and the meaning that it has there, null for one that is not known.
struct LegendEntry {
    char Character = 0;
    const Sign* Meaning = nullptr;
    // It begins its line, or has "=".
    bool IsSure = false;
};

const Sign* FindMeaning(string_view text) {
    const auto* meaning = std::find_if(kLegendSigns.begin(), kLegendSigns.end(), [&](const Sign& sign) {
        return FindInAnyCase(text, sign.Text) != string_view::npos;
    });
    return meaning == kLegendSigns.end() ? nullptr : &*meaning;
}

// Reads "h = hammer on", "h: hammer on", "h - hammer on" and "h  hammer on", one or several in a line.
class LegendLine {
public:
    explicit LegendLine(string_view line) : m_Line(line), m_Words(WordsOf(line)) {}

    // Those of a line that begins with an entry, or has one whose meaning is known.
    std::vector<LegendEntry> Read() {
        std::vector<LegendEntry> entries;
        bool isLegend = false;
        for (std::size_t word = 0; word < m_Words.size(); ++word)
            if (const std::optional<LegendEntry> entry = EntryAt(word)) {
                isLegend = isLegend || word == 0 || entry->Meaning != nullptr;
                if (entry->IsSure || entry->Meaning != nullptr)
                    entries.push_back(*entry);
            }
        return isLegend ? entries : std::vector<LegendEntry>();
    }

private:
    // A sign, "=" or the like, and words after it: a chord or a label may look like it, but has none.
    std::optional<LegendEntry> EntryAt(std::size_t word) const {
        string_view text = m_Words[word].Text;
        const bool isFirst = word == 0;
        while (text.size() > 1 && (text[0] == '(' || text[0] == '|' || text[0] == '['))
            text.remove_prefix(1);
        const std::size_t length = LengthOfSign(text);
        if (length == 0)
            return std::nullopt;
        const string_view glued = text.substr(length);
        const bool isGlued = !glued.empty() && (glued[0] == '=' || (isFirst && glued[0] == ':'));
        if (!glued.empty() && !isGlued)
            return std::nullopt;
        // The meaning may be glued to that as well.
        if (glued.size() > 1)
            return EntryOf(text[0], word, length + 1 + (m_Words[word].Text.size() - text.size()), true);
        const string_view next = word + 1 < m_Words.size() ? m_Words[word + 1].Text : string_view();
        if (isGlued)
            return EntryOf(text[0], word + 1, 0, true);
        if (next == "=" || next == ":" || next == "-")
            return EntryOf(text[0], word + 2, 0, next == "=" || isFirst);
        // Without a sign between them it is one of a few words.
        const LegendEntry entry = EntryOf(text[0], word + 1, 0, false).value_or(LegendEntry{});
        const bool isKnown = entry.Meaning != nullptr &&
                             Nvr::Ascii::StartsWithIgnoreCase(next, entry.Meaning->Text) && !IsWord(text[0]);
        return isKnown ? std::optional(entry) : std::nullopt;
    }

    // A wave may be drawn longer.
    static std::size_t LengthOfSign(string_view text) {
        if (text.empty() || !CanBeASign(text[0]))
            return 0;
        const std::size_t end = std::min(text.find_first_not_of(text[0]), text.size());
        return Nvr::Ascii::IsAlnum(text[0]) ? 1 : end;
    }

    static bool IsWord(char c) { return IsOneOf({&c, 1}, {"a", "i"}); }

    // The meaning begins in that word, and ends with a comma.
    std::optional<LegendEntry> EntryOf(char character, std::size_t word, std::size_t start,
                                       bool isSure) const {
        if (word >= m_Words.size())
            return std::nullopt;
        const string_view rest = m_Line.substr(static_cast<std::size_t>(m_Words[word].Column) + start);
        if (rest.empty() || !Nvr::Ascii::IsAlpha(rest[0]))
            return std::nullopt;
        return LegendEntry{character, FindMeaning(rest.substr(0, rest.find_first_of(",;"))), isSure};
    }

    string_view m_Line;
    std::vector<Word> m_Words;
};

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
    for (const LegendEntry& entry : LegendLine(line).Read()) {
        m_IsDefined.set(static_cast<unsigned char>(entry.Character));
        const Sign* usual = Find(entry.Character);
        const bool saysTheSame =
            entry.Meaning != nullptr && usual != nullptr && usual->Kind == entry.Meaning->Kind;
        if (!saysTheSame)
            At(entry.Character) = entry.Meaning;
    }
}

} // namespace TabText
