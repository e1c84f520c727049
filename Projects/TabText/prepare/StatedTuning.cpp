#include "Projects/Fretline/text/TabChars.h"
#include "Projects/TabText/Words.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/StaveWidener.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace TabText {

namespace {

using std::string;
using std::string_view;

constexpr int kSemitonesPerOctave = 12;
constexpr std::size_t kFewestStrings = 4;
constexpr std::size_t kMostStrings = 6;

// From the lowest string up.
constexpr string_view kGuitar = "EADGBE";
constexpr string_view kBass = "EADG";

string_view UsualStrings(std::size_t count) {
    return count == kBass.size() ? kBass : kGuitar.substr(0, count);
}

int SemitonesOf(char letter) {
    constexpr string_view kLetters = "C.D.EF.G.A.B";
    return static_cast<int>(kLetters.find(letter));
}

// How far the plug-in tunes a string that is usually `usual` when it is named `letter`, in semitones: up to
// four up, else down.
int ShiftAsRead(char letter, char usual) {
    constexpr int kMostSemitonesUp = 4;
    const int difference = SemitonesOf(letter) - SemitonesOf(usual);
    return difference > kMostSemitonesUp ? difference - kSemitonesPerOctave : difference;
}

// A letter can say it: no string ends up an octave away from where a player tunes it.
bool CanBeNamed(const string& letters) {
    constexpr int kFarthest = kSemitonesPerOctave / 2 + 1;
    const string_view usual = UsualStrings(letters.size());
    for (std::size_t at = 0; at < letters.size(); ++at)
        if (std::abs(ShiftAsRead(letters[at], usual[at])) > kFarthest)
            return false;
    return true;
}

int DistanceFromUsual(const string& letters) {
    const string_view usual = UsualStrings(letters.size());
    int distance = 0;
    for (std::size_t at = 0; at < letters.size(); ++at)
        distance += std::abs(ShiftAsRead(letters[at], usual[at]));
    return distance;
}

// Some state it from the highest string down.
string LowestFirst(const string& letters) {
    const string reversed(letters.rbegin(), letters.rend());
    return DistanceFromUsual(reversed) < DistanceFromUsual(letters) ? reversed : letters;
}

// The natural notes that a word spells: "DADGAD", "D-A-D-G-A-D", "d". Empty when it is any other.
string LettersIn(string_view word) {
    string letters;
    for (const char c : word) {
        if (c == '-' || c == ',')
            continue;
        const char upper = Nvr::Ascii::ToUpper(c);
        if (upper < 'A' || upper > 'G')
            return {};
        letters += upper;
    }
    return letters;
}

bool IsAboutTuning(string_view word) {
    return IsOneOf(WithoutPunctuation({0, word}).Text, {"tuning", "tuned", "tune", "tunings"});
}

// What stands between the word and the letters.
bool IsLink(string_view word) {
    return IsOneOf(WithoutPunctuation({0, word}).Text,
                   {"", "is", "to", "in", "guitar", "bass", "open", "=", ":"});
}

// The letters that begin with the word at `at`; single ones are put together. More than a tuning has are too
// many, and none of them is left out; but "E A D G B E a half step down" goes on in words.
string SpelledFrom(const std::vector<Word>& words, std::size_t at) {
    string letters = LettersIn(WithoutPunctuation(words[at]).Text);
    if (letters.size() != 1)
        return letters;
    for (++at; at < words.size(); ++at) {
        const string_view word = WithoutPunctuation(words[at]).Text;
        const string next = LettersIn(word);
        if (next.size() != 1 || (letters.size() == kMostStrings && word != next))
            break;
        letters += next;
    }
    return letters;
}

bool IsTuning(const string& letters) {
    return letters.size() >= kFewestStrings && letters.size() <= kMostStrings;
}

// The tuning that a line states beside the word, lowest string first; empty when there is none.
string TuningIn(string_view line) {
    const std::vector<Word> words = WordsOf(line);
    const auto about =
        std::find_if(words.begin(), words.end(), [](const Word& word) { return IsAboutTuning(word.Text); });
    if (about == words.end())
        return {};
    auto after = about + 1;
    while (after != words.end() && IsLink(after->Text))
        ++after;
    if (after != words.end())
        if (const string letters = SpelledFrom(words, static_cast<std::size_t>(after - words.begin()));
            IsTuning(letters))
            return LowestFirst(letters);
    if (about != words.begin())
        if (const string letters = LettersIn(WithoutPunctuation(*(about - 1)).Text); IsTuning(letters))
            return LowestFirst(letters);
    return {};
}

// The one tuning that the words of a text state for so many strings; empty when there is none or several.
std::map<std::size_t, string> StatedTunings(const Draft& draft, const DraftReading& reading) {
    std::map<std::size_t, string> stated;
    for (int line = 0; line < draft.GetLineCount(); ++line) {
        if (reading.IsStaveLine(line))
            continue;
        const string tuning = TuningIn(draft.GetLine(line));
        if (tuning.empty())
            continue;
        const auto [known, isNew] = stated.emplace(tuning.size(), tuning);
        if (!isNew && known->second != tuning)
            known->second.clear();
    }
    return stated;
}

// Names the strings of one stave.
class StringNamer {
public:
    StringNamer(Draft& draft, const StaveSurroundings& stave) : m_Draft(draft), m_Stave(stave) {}

    void Name(const string& letters) {
        const int column = FindNames();
        if (column >= 0) {
            if (HasUsualNames(column, letters.size()))
                Write(column, letters);
            return;
        }
        AddNames(letters);
    }

private:
    int GetLineCount() const { return m_Stave.EndLine - m_Stave.FirstLine; }

    template <typename Test>
    bool AreAll(Test test) const {
        for (int line = m_Stave.FirstLine; line < m_Stave.EndLine; ++line)
            if (!test(line))
                return false;
        return true;
    }

    // The column where the plug-in finds names; -1 when there is none.
    int FindNames() const {
        std::size_t dash = 0;
        for (int line = m_Stave.FirstLine; line < m_Stave.EndLine; ++line)
            if (const std::size_t first = m_Draft.GetLine(line).find('-'); first != string::npos)
                dash = std::max(dash, first);
        for (int column = 0; column < static_cast<int>(dash); ++column)
            if (AreAll([&](int line) { return Fretline::IsNoteLetter(m_Draft.GetChar(line, column)); }))
                return column;
        return -1;
    }

    bool HasUsualNames(int column, std::size_t strings) const {
        const string_view usual = UsualStrings(strings);
        return AreAll([&](int line) {
            const auto at = static_cast<std::size_t>(m_Stave.EndLine - 1 - line);
            const char after = m_Draft.GetChar(line, column + 1);
            return after != '#' && after != 'b' &&
                   Nvr::Ascii::ToUpper(m_Draft.GetChar(line, column)) == usual[at];
        });
    }

    void Write(int column, const string& letters) {
        for (int line = m_Stave.FirstLine; line < m_Stave.EndLine; ++line) {
            string text = m_Draft.GetLine(line);
            char& name = text[static_cast<std::size_t>(column)];
            const char letter = letters[static_cast<std::size_t>(m_Stave.EndLine - 1 - line)];
            // A small letter for the highest string stays small.
            name = Nvr::Ascii::ToUpper(name) == letter ? name : letter;
            m_Draft.Overwrite(line, std::move(text));
        }
    }

    // In front of all strings, which begin in one column with the same sign.
    void AddNames(const string& letters) {
        const string& top = m_Draft.GetLine(m_Stave.FirstLine);
        const auto column = static_cast<int>(std::min(top.find_first_not_of(' '), top.size()));
        const char sign = m_Draft.GetChar(m_Stave.FirstLine, column);
        const bool begins = AreAll([&](int line) {
            return static_cast<int>(m_Draft.GetLine(line).find_first_not_of(' ')) == column;
        });
        const bool hasStroke = AreAll([&](int line) { return m_Draft.GetChar(line, column) == '|'; });
        if (!begins || sign == '\0')
            return;
        const int width = hasStroke ? 1 : 2;
        int place = column - width;
        if (place < 0) {
            StaveWidener(m_Draft, m_Stave)
                .Widen(std::vector<int>(static_cast<std::size_t>(width), column),
                       [](int, int) { return true; });
            place = column;
        }
        if (!hasStroke)
            for (int line = m_Stave.FirstLine; line < m_Stave.EndLine; ++line) {
                string text = m_Draft.GetLine(line);
                text[static_cast<std::size_t>(place) + 1] = '|';
                m_Draft.Overwrite(line, std::move(text));
            }
        Write(place, letters);
    }

    Draft& m_Draft;
    StaveSurroundings m_Stave;
};

} // namespace

void RunTuning(Draft& draft) {
    const DraftReading reading(draft);
    const std::map<std::size_t, string> stated = StatedTunings(draft, reading);
    if (stated.empty())
        return;
    for (const StaveSurroundings& stave : SurroundingsOf(draft, reading)) {
        const auto strings = static_cast<std::size_t>(stave.EndLine - stave.FirstLine);
        const auto found = stated.find(strings);
        if (found == stated.end() || found->second.empty() || found->second == UsualStrings(strings) ||
            !CanBeNamed(found->second))
            continue;
        StringNamer(draft, stave).Name(found->second);
    }
}

} // namespace TabText
