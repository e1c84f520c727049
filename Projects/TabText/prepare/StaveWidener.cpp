#include "Projects/TabText/prepare/StaveWidener.h"

#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

using Nvr::Ascii::IsDigit;

bool IsSpaceBetweenWords(char c) {
    return c == '\0' || Nvr::Ascii::IsSpace(c);
}

// Beats or note lengths written without a gap, each over its own column.
bool IsRhythmWord(const std::string& text, int column) {
    constexpr std::string_view kBeats = "0123456789+&.";
    constexpr std::string_view kLengths = "WHQESTX.";
    int first = column;
    while (first > 0 && !IsSpaceBetweenWords(text[static_cast<std::size_t>(first - 1)]))
        --first;
    const auto end = std::find_if(text.begin() + column, text.end(), IsSpaceBetweenWords);
    const auto isOf = [&](std::string_view letters) {
        return std::all_of(text.begin() + first, end,
                           [&](char c) { return letters.find(c) != std::string_view::npos; });
    };
    return isOf(kBeats) || isOf(kLengths);
}

} // namespace

bool StaveWidener::IsInNumber(int line, int column) const {
    return IsDigit(m_Draft.GetChar(line, column - 1)) && IsDigit(m_Draft.GetChar(line, column));
}

void StaveWidener::AddToString(int line, int column, std::vector<Insertion>& insertions) const {
    if (column > static_cast<int>(m_Draft.GetLine(line).size()))
        return;
    const char before = column == 0 ? ' ' : m_Draft.GetChar(line, column - 1);
    const char after = m_Draft.GetChar(line, column);
    const bool isBlank = before == ' ' && (after == ' ' || after == '\0');
    insertions.push_back({column, isBlank ? ' ' : '-'});
}

void StaveWidener::AddToWords(int line, int column, std::vector<Insertion>& insertions) const {
    const std::string& text = m_Draft.GetLine(line);
    const auto isSpace = [&](int at) { return IsSpaceBetweenWords(m_Draft.GetChar(line, at)); };
    const auto isIn = [&](int at) { return !isSpace(at - 1) && !isSpace(at); };
    int place = column;
    if (IsLineOfChords(text)) {
        while (isIn(place))
            ++place;
    } else if (!(isIn(place) && IsRhythmWord(text, place))) {
        // A label reaches over single blanks, and would break at wider ones.
        while (!isSpace(place) || (!isSpace(place - 1) && !isSpace(place + 1)))
            ++place;
    }
    insertions.push_back({place, ' '});
}

void StaveWidener::Commit(int line, std::vector<Insertion>& insertions) {
    const auto byColumn = [](const Insertion& a, const Insertion& b) { return a.Column < b.Column; };
    std::stable_sort(insertions.begin(), insertions.end(), byColumn);
    const auto length = static_cast<int>(m_Draft.GetLine(line).size());
    // Room at the end of a line of words is room for nothing.
    const bool isString = line >= m_Stave.FirstLine && line < m_Stave.EndLine;
    while (!isString && !insertions.empty() && insertions.back().Column >= length)
        insertions.pop_back();
    m_Draft.Insert(line, insertions);
}

} // namespace TabText
