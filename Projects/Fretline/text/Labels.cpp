#include "Projects/Fretline/text/Labels.h"

#include "Projects/Fretline/text/TabFile.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace Fretline {

namespace {

// The blank that a label does not reach over.
constexpr std::ptrdiff_t kStoppingBlank = 3;

constexpr std::size_t kNoKeyword = kLabelKeywords.size();

// A keyword is then a whole run of letters, and no other.
static_assert(std::all_of(kLabelKeywords.begin(), kLabelKeywords.end(), [](std::string_view keyword) {
    return std::all_of(keyword.begin(), keyword.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}));

// The place in the table of a run of letters, in any case.
std::size_t FindKeyword(std::string_view letters) {
    const auto isKeyword = [letters](std::string_view keyword) {
        return std::equal(letters.begin(), letters.end(), keyword.begin(), keyword.end(),
                          [](char letter, char lower) { return Nvr::Ascii::ToLower(letter) == lower; });
    };
    const auto found = std::find_if(kLabelKeywords.begin(), kLabelKeywords.end(), isKeyword);
    return static_cast<std::size_t>(found - kLabelKeywords.begin());
}

struct KeywordPlace {
    std::size_t m_Keyword;
    int m_Column;

    bool operator<(const KeywordPlace& other) const {
        return std::tie(m_Keyword, m_Column) < std::tie(other.m_Keyword, other.m_Column);
    }
};

std::vector<KeywordPlace> FindKeywords(std::string_view line) {
    std::vector<KeywordPlace> places;
    auto start = line.begin();
    while ((start = std::find_if(start, line.end(), Nvr::Ascii::IsAlpha)) != line.end()) {
        const auto end = std::find_if_not(start, line.end(), Nvr::Ascii::IsAlpha);
        if (const std::size_t keyword = FindKeyword({&*start, static_cast<std::size_t>(end - start)});
            keyword != kNoKeyword)
            places.push_back({keyword, static_cast<int>(start - line.begin())});
        start = end;
    }
    std::sort(places.begin(), places.end());
    return places;
}

// The labels of one line on their way into the list.
class LineLabels {
public:
    LineLabels(const TabFile& file, int line, std::vector<std::unique_ptr<RiffLabel>>& found)
        : m_File(file), m_Line(line), m_Found(found), m_Extents(file.GetLine(line)) {}

    void Add(int column, std::string_view keyword) {
        const auto [start, end] = m_Extents.Around(column, static_cast<int>(keyword.size()));
        if (m_Places.emplace(start, end).second)
            m_Found.push_back(
                std::make_unique<RiffLabel>(RiffLabel{&m_File, m_Line, start, end, Nvr::String(keyword)}));
    }

private:
    const TabFile& m_File;
    int m_Line;
    std::vector<std::unique_ptr<RiffLabel>>& m_Found;
    LabelExtents m_Extents;
    std::set<std::pair<int, int>> m_Places;
};

} // namespace

Nvr::String RiffLabel::GetText() const {
    const Nvr::String whole = m_File->GetText(m_Line, m_StartColumn, m_EndColumn - m_StartColumn);
    // A string ends at a zero byte, and the extent does not look at white space in front of that.
    std::string_view text = whole.View();
    while (!text.empty() && Nvr::Ascii::IsSpace(text.back()))
        text.remove_suffix(1);
    return Nvr::String(text);
}

LabelExtents::LabelExtents(std::string_view line) : m_Length(static_cast<int>(line.size())) {
    for (int column = 0; column < m_Length; ++column) {
        const char c = line[static_cast<std::size_t>(column)];
        if (c == ' ')
            m_Blanks.push_back(column);
        if (Nvr::Ascii::IsSpace(c))
            continue;
        m_NotWhiteSpace.push_back(column);
        (c == '\0' ? m_Zeros : m_Visible).push_back(column);
    }
}

LabelExtent LabelExtents::Around(int column, int length) const {
    return {FindStart(column), FindEnd(column + length - 1)};
}

int LabelExtents::FindStart(int column) const {
    const auto afterBlanks = std::lower_bound(m_Blanks.begin(), m_Blanks.end(), column);
    const bool stopsAtBlank = afterBlanks - m_Blanks.begin() >= kStoppingBlank;
    const int start = stopsAtBlank ? *(afterBlanks - kStoppingBlank) : 0;
    // The keyword itself is no white space, so there is one.
    return *std::lower_bound(m_NotWhiteSpace.begin(), m_NotWhiteSpace.end(), start);
}

int LabelExtents::FindEnd(int column) const {
    const auto nextBlank = std::upper_bound(m_Blanks.begin(), m_Blanks.end(), column);
    const auto nextZero = std::upper_bound(m_Zeros.begin(), m_Zeros.end(), column);
    int stop = nextZero == m_Zeros.end() ? m_Length : *nextZero;
    if (m_Blanks.end() - nextBlank >= kStoppingBlank)
        stop = std::min(stop, *(nextBlank + (kStoppingBlank - 1)));
    // The stop itself is never visible, and the keyword in front of it is.
    return *(std::lower_bound(m_Visible.begin(), m_Visible.end(), stop) - 1) + 1;
}

void FindLabelsIn(const TabFile& file, int line, std::vector<std::unique_ptr<RiffLabel>>& found) {
    const std::vector<KeywordPlace> places = FindKeywords(file.GetLine(line));
    if (places.empty())
        return;
    LineLabels labels(file, line, found);
    for (const KeywordPlace& place : places)
        labels.Add(place.m_Column, kLabelKeywords[place.m_Keyword]);
}

} // namespace Fretline
