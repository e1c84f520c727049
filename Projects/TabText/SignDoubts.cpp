// Signs that belong to no note and no bar.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/MarkingSigns.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>
#include <set>

namespace TabText {

namespace {

using Fretline::TabBar;
using std::string_view;

// Characters between the frets that touch each other and belong to nothing. Columns are absolute.
struct LeftOut {
    SignSpan Span;
    string_view Text;
    int Others = 0;
};

bool CanBeSign(char c) {
    return c > ' ' && c != '-' && c != '|' && !Nvr::Ascii::IsDigit(c);
}

// A sign is told by its text, words by their line.
using Key = std::pair<int, string_view>;

// Gathers what no mark took; of each text the first, and how many others there are.
class LeftOutSigns {
public:
    LeftOutSigns(const TabReading& reading, const Markings& markings)
        : m_Reading(reading), m_Markings(markings) {}

    std::vector<LeftOut> Find() {
        MarkUsed();
        for (std::size_t bar = 0; bar < m_Reading.GetBars().size(); ++bar)
            FindIn(bar);
        return std::move(m_Found);
    }

private:
    void MarkUsed() {
        m_IsUsed.resize(static_cast<std::size_t>(m_Reading.GetFile().GetLineCount()));
        for (const NoteMark& mark : m_Markings.Notes)
            MarkUsed({mark.Line, mark.Column, mark.EndColumn});
        // Said already.
        for (const UnclearSign& sign : m_Markings.Unclear)
            MarkUsed(sign.Span);
        for (const BarMark& mark : m_Markings.Bars)
            if (mark.Repeats.IsStart || mark.Repeats.IsEnd)
                m_Repeats.insert(mark.Bar);
    }

    void MarkUsed(const SignSpan& span) {
        std::vector<bool>& line = m_IsUsed[static_cast<std::size_t>(span.Line)];
        line.resize(std::max(line.size(), static_cast<std::size_t>(span.EndColumn)));
        std::fill(line.begin() + span.Column, line.begin() + span.EndColumn, true);
    }

    bool IsUsed(int line, std::size_t column) const {
        const std::vector<bool>& used = m_IsUsed[static_cast<std::size_t>(line)];
        return column < used.size() && used[column];
    }

    void FindIn(std::size_t index) {
        const TabBar& bar = *m_Reading.GetBars()[index].Bar;
        for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
            FindIn(bar, line, m_Repeats.count(index) != 0);
    }

    void FindIn(const TabBar& bar, int line, bool isRepeated) {
        const auto start = static_cast<std::size_t>(bar.GetStartColumn());
        const auto end = start + static_cast<std::size_t>(bar.GetWidth());
        const string_view text = bar.GetFile().GetLine(line).substr(0, end);
        std::size_t openBrackets = 0;
        for (std::size_t at = text.find_first_not_of('-', start); at < text.size();
             at = text.find_first_not_of('-', at)) {
            const std::size_t first = at;
            while (at < text.size() && CanBeSign(text[at]) && !IsUsed(line, at))
                ++at;
            const bool isDot = isRepeated && at == first + 1 && (first == start || at == end) &&
                               IsOneOf(":*oO", text[first]);
            const bool isTold = openBrackets > 0 && IsOneOf(")]}", text[first]);
            if (at > first && !isDot && !isTold && !GoesOn(text, first) && !BeginsLine(text, first))
                Add(line, first, text.substr(first, at - first));
            at = std::max(at, first + 1);
            openBrackets += IsOneOf("([{", text[first]) && !IsUsed(line, first) ? 1 : 0;
            openBrackets -= isTold ? 1 : 0;
        }
    }

    static bool IsOneOf(string_view characters, char c) { return characters.find(c) != string_view::npos; }

    // The name of a string, or an annotation, where something else is doubtful.
    static bool BeginsLine(string_view text, std::size_t at) { return text.find_first_not_of(' ') == at; }

    // The rest of a wave that a barline or dashes cut.
    static bool GoesOn(string_view text, std::size_t at) {
        const std::size_t before = at == 0 ? string_view::npos : text.find_last_not_of("-|", at - 1);
        return text[at] == '~' && before != string_view::npos && text[before] == '~';
    }

    void Add(int line, std::size_t column, string_view text) {
        constexpr std::size_t kFewestLetters = 3;
        const bool isWord = text.size() >= kFewestLetters && Nvr::Ascii::IsAlpha(text[0]);
        const Key key = isWord ? Key(line, "") : Key(-1, text);
        const auto [entry, isNew] = m_Places.emplace(key, m_Found.size());
        if (!isNew) {
            ++m_Found[entry->second].Others;
            return;
        }
        const auto start = static_cast<int>(column);
        m_Found.push_back({{line, start, start + static_cast<int>(text.size())}, text});
    }

    const TabReading& m_Reading;
    const Markings& m_Markings;
    // By line and column.
    std::vector<std::vector<bool>> m_IsUsed;
    // Bars whose edges may have dots.
    std::set<std::size_t> m_Repeats;
    // Where they are among those found.
    std::map<Key, std::size_t> m_Places;
    std::vector<LeftOut> m_Found;
};

std::string AndOthers(int count) {
    if (count == 0)
        return {};
    return count == 1 ? "; so was another one" : "; so were " + std::to_string(count) + " others";
}

} // namespace

// Said once for all of the same text, and for all words of a line, at the first of them.
void FindLeftOutSigns(const TabReading& reading, const Markings& markings, DoubtSink& doubts) {
    const SignMeanings signs(reading);
    const auto isKnown = [&](char c) { return signs.Find(c) != nullptr; };
    for (const LeftOut& sign : LeftOutSigns(reading, markings).Find()) {
        const bool areKnown = std::all_of(sign.Text.begin(), sign.Text.end(), isKnown);
        doubts.Add(sign.Span.Line, sign.Span.Column, sign.Span.EndColumn,
                   "\"" + std::string(sign.Text) + "\" was left out" + AndOthers(sign.Others) +
                       (areKnown ? ": no note is there that it belongs to" : ": what it means is not known"));
    }
}

void FindUnclearSigns(const TabReading& reading, const Markings& markings, DoubtSink& doubts) {
    for (const UnclearSign& sign : markings.Unclear) {
        const auto start = static_cast<std::size_t>(sign.Span.Column);
        const auto length = static_cast<std::size_t>(sign.Span.EndColumn) - start;
        const string_view text = reading.GetFile().GetLine(sign.Span.Line).substr(start, length);
        doubts.Add(sign.Span.Line, sign.Span.Column, sign.Span.EndColumn,
                   "\"" + std::string(text) + "\" was left out: " + sign.Why);
    }
}

} // namespace TabText
