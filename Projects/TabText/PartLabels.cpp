#include "Projects/TabText/PartLabels.h"

#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace TabText {

namespace {

using Nvr::Ascii::IsAlpha;
using Nvr::Ascii::IsDigit;
using std::string;
using std::string_view;

enum class WordKind { Other, Instrument, Role };

struct KnownWord {
    string_view Word;
    string_view Key;
    WordKind Kind;
};

constexpr std::array kWords = std::to_array<KnownWord>({
    {"gtr", "guitar", WordKind::Instrument},
    {"gtrs", "guitar", WordKind::Instrument},
    {"guitar", "guitar", WordKind::Instrument},
    {"guitars", "guitar", WordKind::Instrument},
    {"git", "guitar", WordKind::Instrument},
    {"bass", "bass", WordKind::Instrument},
    {"ukulele", "ukulele", WordKind::Instrument},
    {"uke", "ukulele", WordKind::Instrument},
    {"banjo", "banjo", WordKind::Instrument},
    {"mandolin", "mandolin", WordKind::Instrument},
    {"lead", "lead", WordKind::Role},
    {"rhythm", "rhythm", WordKind::Role},
    {"rhy", "rhythm", WordKind::Role},
    {"acoustic", "acoustic", WordKind::Role},
    {"electric", "electric", WordKind::Role},
    {"elec", "electric", WordKind::Role},
    {"clean", "clean", WordKind::Role},
    {"distorted", "distorted", WordKind::Role},
    {"slide", "slide", WordKind::Role},
    {"first", "first", WordKind::Role},
    {"second", "second", WordKind::Role},
});

constexpr std::array<string_view, 8> kRomanNumbers{"i", "ii", "iii", "iv", "v", "vi", "vii", "viii"};

string InSmallLetters(string_view word) {
    string small(word);
    std::transform(small.begin(), small.end(), small.begin(), Nvr::Ascii::ToLower);
    return small;
}

// The number as digits; empty when the word is none.
string NumberOf(string_view word) {
    constexpr std::size_t kMostDigits = 2;
    if (!word.empty() && word.size() <= kMostDigits && std::all_of(word.begin(), word.end(), IsDigit))
        return string(word);
    const auto* roman = std::find(kRomanNumbers.begin(), kRomanNumbers.end(), InSmallLetters(word));
    return roman == kRomanNumbers.end() ? string() : std::to_string(roman - kRomanNumbers.begin() + 1);
}

// Reads a line from the left.
class LabelReader {
public:
    explicit LabelReader(string_view line) : m_Line(line) {}

    void Read() {
        SkipBlanks();
        m_IsInBrackets = IsOneOf("(");
        if (IsOneOf("([{<*"))
            ++m_At;
        SkipBlanks();
        while (TakeName()) {
        }
        if (!m_Name.Key.empty())
            TakeNumbers();
        m_IsLabel = !m_Name.Key.empty() && IsAtEnd();
    }

    bool IsLabel() const { return m_IsLabel; }
    string WithoutLabel() const {
        const std::size_t end = m_Line.find_first_not_of(".:)]}>*", m_At);
        const std::size_t length = std::min(end, m_Line.size());
        return end == string_view::npos ? string() : string(length, ' ') + string(m_Line.substr(length));
    }

    std::vector<PartName> GetNames() const {
        std::vector<PartName> names;
        for (const string& number : m_Numbers)
            names.push_back({m_Name.Name + " " + number, m_Name.Key + " " + NumberOf(number)});
        if (names.empty())
            names.push_back(m_Name);
        return names;
    }

private:
    char At(std::size_t place) const { return place < m_Line.size() ? m_Line[place] : '\0'; }
    bool IsOneOf(string_view signs) const {
        return m_At < m_Line.size() && signs.find(m_Line[m_At]) != string_view::npos;
    }
    void SkipBlanks() {
        while (IsOneOf(" \t"))
            ++m_At;
    }

    // The run of letters, or of digits, at the place.
    string_view WordAt(std::size_t place) const {
        const auto isSame = IsDigit(At(place)) ? IsDigit : IsAlpha;
        std::size_t end = place;
        while (end < m_Line.size() && isSame(m_Line[end]))
            ++end;
        return m_Line.substr(std::min(place, m_Line.size()), end - place);
    }

    // Where the next word begins after at most one full stop, one blank and the sign of a number.
    std::size_t NextWord(string_view signs) const {
        std::size_t place = m_At;
        for (const char sign : signs)
            place += At(place) == sign ? 1U : 0U;
        return place;
    }

    bool TakeName() {
        const std::size_t place = m_Name.Key.empty() ? m_At : NextWord(". ");
        const string_view word = WordAt(place);
        const string small = InSmallLetters(word);
        const auto* known = std::find_if(kWords.begin(), kWords.end(),
                                         [&](const KnownWord& entry) { return entry.Word == small; });
        if (known == kWords.end())
            return false;
        m_At = place + word.size();
        // A bass guitar is a bass.
        const bool isSaid = m_HasInstrument && known->Kind == WordKind::Instrument;
        m_HasInstrument = m_HasInstrument || known->Kind == WordKind::Instrument;
        m_Name.Name += (m_Name.Name.empty() ? "" : " ") + string(word);
        if (!isSaid)
            m_Name.Key += (m_Name.Key.empty() ? "" : " ") + string(known->Key);
        return true;
    }

    void TakeNumbers() {
        for (std::size_t place = NextWord(". #"); place <= m_Line.size();) {
            const string_view word = WordAt(place);
            if (NumberOf(word).empty())
                return;
            m_Numbers.emplace_back(word);
            m_At = place + word.size();
            place = AfterConjunction();
            if (place == m_At)
                return;
        }
    }

    // "I & II", "1+2", "I, II", "1 and 2"; the place where it stands when there is none.
    std::size_t AfterConjunction() const {
        std::size_t place = NextWord(". ");
        const string_view word = WordAt(place);
        const bool isSign = string_view("&+,/-").find(At(place)) != string_view::npos && At(place) != '\0';
        if (!isSign && InSmallLetters(word) != "and")
            return m_At;
        place += isSign ? 1 : word.size();
        place += At(place) == ' ' ? 1U : 0U;
        return NumberOf(WordAt(place)).empty() ? m_At : place;
    }

    // What part of the music it plays names a part only where nothing else can be meant: "Lead", "[Lead]",
    // "Lead:", but not "(lead)", which is a remark.
    bool IsAtEnd() const {
        const std::size_t place = NextWord(".");
        const std::size_t next = m_Line.find_first_not_of(" \t", place);
        if (!m_HasInstrument && m_IsInBrackets)
            return false;
        if (next == string_view::npos)
            return true;
        const bool isClosed = string_view(":)]}>*").find(m_Line[next]) != string_view::npos;
        const bool isRemark = string_view("([,;").find(m_Line[next]) != string_view::npos ||
                              next > place + 1 || (next > place && m_Line[next] == '-');
        return isClosed || (m_HasInstrument && isRemark);
    }

    string_view m_Line;
    std::size_t m_At = 0;
    PartName m_Name;
    std::vector<string> m_Numbers;
    bool m_HasInstrument = false;
    bool m_IsInBrackets = false;
    bool m_IsLabel = false;
};

} // namespace

std::vector<PartName> ReadPartLabel(string_view line) {
    LabelReader reader(line);
    reader.Read();
    return reader.IsLabel() ? reader.GetNames() : std::vector<PartName>();
}

string WithoutPartLabel(string_view line) {
    LabelReader reader(line);
    reader.Read();
    return reader.IsLabel() ? reader.WithoutLabel() : string(line);
}

} // namespace TabText
