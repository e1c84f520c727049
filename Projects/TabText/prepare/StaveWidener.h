#pragma once

#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"

#include <vector>

namespace TabText {

/// Makes room in every line of a stave and in those about it. `columns` ascend; before each, one character
/// is put: a dash where the strings are drawn, a blank between words. A number or a word that reaches over
/// the place stays whole, and the room comes after it; a number is cut where the caller says so.
class StaveWidener {
public:
    StaveWidener(Draft& draft, const StaveSurroundings& stave) : m_Draft(draft), m_Stave(stave) {}

    /// `isCut(line, column)` is true where the digits on both sides of the column are two numbers.
    template <typename IsCut>
    void Widen(const std::vector<int>& columns, IsCut isCut) {
        for (int line = m_Stave.FirstAbove; line < m_Stave.EndBelow; ++line) {
            const bool isString = line >= m_Stave.FirstLine && line < m_Stave.EndLine;
            std::vector<Insertion> insertions;
            for (const int column : columns)
                if (isString)
                    AddToString(line, PlaceAfterNumber(line, column, isCut), insertions);
                else
                    AddToWords(line, column, insertions);
            Commit(line, insertions);
        }
    }

private:
    // The column, or the first after it where no number is cut.
    template <typename IsCut>
    int PlaceAfterNumber(int line, int column, IsCut& isCut) const {
        while (!isCut(line, column) && IsInNumber(line, column))
            ++column;
        return column;
    }
    bool IsInNumber(int line, int column) const;
    void AddToString(int line, int column, std::vector<Insertion>& insertions) const;
    void AddToWords(int line, int column, std::vector<Insertion>& insertions) const;
    void Commit(int line, std::vector<Insertion>& insertions);

    Draft& m_Draft;
    StaveSurroundings m_Stave;
};

} // namespace TabText
