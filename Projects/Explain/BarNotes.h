#pragma once

#include "Projects/Explain/Explanation.h"
#include "Projects/TabText/LineMap.h"
#include "Projects/TabText/Markings.h"

namespace Fretline {
class TabBar;
}

namespace Explain {

/// Says where places of the text that was read are in the text as the user knows it.
class KnownPlaces {
public:
    /// `map` of a text that was prepared. Borrowed; null for one that was read as it is.
    explicit KnownPlaces(const TabText::LineMap* map) : m_Map(map) {}

    const TabText::LineMap* GetMap() const { return m_Map; }
    /// Counted from 0.
    TabText::TextPlace At(int line, int column) const {
        return m_Map == nullptr ? TabText::TextPlace{line, column} : m_Map->ToOriginal(line, column);
    }
    /// Counted from 1.
    int LineNumber(int line) const { return At(line, 0).Line + 1; }
    int ColumnNumber(int line, int column) const { return At(line, column).Column + 1; }
    std::string InSentence(const std::string& sentence) const {
        return m_Map == nullptr ? sentence : TabText::WithOriginalLines(sentence, *m_Map);
    }

private:
    const TabText::LineMap* m_Map;
};

/// What a bar that has been read was read as: its columns and how each was timed, its rhythm line, its chords
/// and where each went, its label and time signature. `number` counts the bars of the text from 1.
ExplainedBar DescribeBar(const Fretline::TabBar& bar, int number, const KnownPlaces& places);

/// What the signs at a bar say of the way through the piece, a sentence each.
std::vector<std::string> NotesOfTheWay(const TabText::BarMark& mark);

} // namespace Explain
