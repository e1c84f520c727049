#include "Projects/Fretline/stave/BeatPositions.h"

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Fretline {

namespace {

constexpr int kDefaultNumerator = 4;
constexpr int kDefaultDenominator = 4;

// Shifting past the width of the number must give 0, not whatever the processor does.
int ShiftedRight(int units, int places) {
    constexpr int kBitsOfUnits = 31;
    return places < kBitsOfUnits ? units >> places : 0;
}

int BeatUnitOf(int denominator) {
    return ShiftedRight(kUnitsPerWholeNote, FloorLog2(std::max(denominator, 1)));
}

} // namespace

struct BeatPositions::SymbolTable {
    struct Entry {
        int m_Index = -1;
        int m_Count = 0;
    };

    void Add(char symbol) {
        Entry& entry = At(symbol);
        if (entry.m_Count == 0)
            entry.m_Index = m_Distinct++;
        ++entry.m_Count;
    }
    Entry& At(char symbol) { return m_Entries[static_cast<unsigned char>(symbol)]; }
    const Entry& At(char symbol) const { return m_Entries[static_cast<unsigned char>(symbol)]; }

    std::array<Entry, 256> m_Entries;
    int m_Distinct = 0;
};

BeatPositions::BeatPositions(const TabFile& file, int line, int startColumn, int width,
                             const TabTimeSignature* timeSignature)
    : m_File(file), m_Line(line), m_StartColumn(startColumn), m_Width(width), m_TimeSignature(timeSignature) {
    SymbolTable symbols;
    FindElements(symbols);
    DropLoneFirstColumn(symbols);
    TimeElements(symbols);
}

bool BeatPositions::IsOutsideTimeSignatures(int column) const {
    const TabAnalysis* analysis = m_File.GetAnalysis();
    return analysis == nullptr || !analysis->IsTimeSignatureAt(m_Line, column);
}

void BeatPositions::FindElements(SymbolTable& symbols) {
    for (int i = 0; i < m_Width; ++i) {
        const int column = m_StartColumn + i;
        const char c = m_File.GetChar(m_Line, column);
        if (c == 0 || Nvr::Ascii::IsSpace(c) || !IsOutsideTimeSignatures(column))
            continue;
        BeatColumn element;
        element.m_Column = i;
        element.m_Symbol = Nvr::Ascii::IsDigit(c) ? '0' : c;
        symbols.Add(element.m_Symbol);
        m_Elements.emplace_hint(m_Elements.end(), i, element);
    }
}

void BeatPositions::DropLoneFirstColumn(const SymbolTable& symbols) {
    // Such a symbol is the end of something else that reaches into the bar. It stays in the table, so that
    // the grades of the others do not move.
    const auto first = m_Elements.find(0);
    if (first != m_Elements.end() && symbols.At(first->second.m_Symbol).m_Count == 1)
        m_Elements.erase(first);
}

void BeatPositions::TimeElements(const SymbolTable& symbols) {
    const int beats = m_TimeSignature != nullptr ? m_TimeSignature->m_Numerator : kDefaultNumerator;
    int unit = BeatUnitOf(m_TimeSignature != nullptr ? m_TimeSignature->m_Denominator : kDefaultDenominator);
    const auto count = static_cast<std::int64_t>(m_Elements.size());
    const bool halved = count > beats && count == std::int64_t{2} * beats;
    const bool graded = count > beats && !halved;
    if (halved)
        unit /= 2;

    int position = 0;
    int naturalBefore = unit;
    BeatColumn* before = nullptr;
    for (auto& [column, element] : m_Elements) {
        if (before != nullptr) {
            const int natural = graded ? ShiftedRight(unit, symbols.At(element.m_Symbol).m_Index) : unit;
            before->m_Duration = std::min(naturalBefore, natural);
            position = AddTime(position, before->m_Duration);
            naturalBefore = natural;
        }
        element.m_Position = position;
        before = &element;
    }
    m_Length = before != nullptr ? std::max(unit * beats, AddTime(position, naturalBefore)) : unit * beats;
    if (before != nullptr)
        before->m_Duration = m_Length - position;
}

int BeatPositions::GetPosition(int column, int& duration, bool& tied) const {
    duration = 0;
    tied = false;
    if (m_Elements.empty()) {
        // Nothing is left that says when, so the bar's columns share its length evenly: at one time for all
        // of them most notes would be lost.
        return static_cast<int>(std::int64_t{m_Length} * column / std::max(m_Width, 1));
    }
    const auto next = m_Elements.upper_bound(column);
    if (next == m_Elements.begin())
        return 0;
    const BeatColumn& element = std::prev(next)->second;
    const int columnAfter = next != m_Elements.end() ? next->first : m_Width;
    // The last element lies inside the range, and so does every column that is asked for.
    const int columns = std::max(columnAfter - element.m_Column, 1);
    const std::int64_t distance = std::int64_t{element.m_Duration} * (column - element.m_Column) / columns;
    return element.m_Position + static_cast<int>(distance);
}

} // namespace Fretline
