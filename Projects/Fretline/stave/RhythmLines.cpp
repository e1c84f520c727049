#include "Projects/Fretline/stave/RhythmLines.h"

#include "Projects/Fretline/stave/ChordRoot.h"
#include "Projects/Fretline/stave/NoteLengths.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace Fretline {

namespace {

constexpr int kLeastSumOfLetters = 512;
// So many lone Es are quavers rather than chords.
constexpr int kLoneEsOfARhythm = 4;

constexpr int kMostKindsOfBeatSymbol = 3;
// A beat line begins in the first quarter of its bar and goes on past 60 per cent.
constexpr int kFirstBeatBelowPercent = 25;
constexpr int kLastBeatAbovePercent = 60;

// What a line holds over a bar, every digit counting as one symbol.
struct BeatSymbols {
    std::array<int, 256> m_Counts{};
    int m_Total = 0;
    int m_First = 0;
    int m_Last = 0;
    // Two symbols side by side, the right one at column 2 or later, and at column 1.
    bool m_LateAdjacent = false;
    bool m_EarlyAdjacent = false;

    int DistinctCount() const {
        return static_cast<int>(
            std::count_if(m_Counts.begin(), m_Counts.end(), [](int count) { return count > 0; }));
    }
    bool HasRepeats() const {
        return std::any_of(m_Counts.begin(), m_Counts.end(), [](int count) { return count > 1; });
    }
    bool HasChordLetter() const {
        for (char letter = 'A'; letter <= 'G'; ++letter)
            if (m_Counts[static_cast<unsigned char>(letter)] > 0)
                return true;
        return false;
    }
};

BeatSymbols GatherBeatSymbols(const TabFile& file, int line, int startColumn, int width) {
    BeatSymbols symbols;
    bool filledBefore = false;
    const std::string_view cells = file.GetStretch(line, startColumn, width);
    for (int i = 0; i < static_cast<int>(cells.size()); ++i) {
        const char c = cells[static_cast<std::size_t>(i)];
        const bool filled = c != 0 && !Nvr::Ascii::IsSpace(c);
        if (filled) {
            const char symbol = Nvr::Ascii::IsDigit(c) ? '0' : c;
            ++symbols.m_Counts[static_cast<unsigned char>(symbol)];
            if (symbols.m_Total++ == 0)
                symbols.m_First = i;
            symbols.m_Last = i;
            if (filledBefore)
                (i >= 2 ? symbols.m_LateAdjacent : symbols.m_EarlyAdjacent) = true;
        }
        filledBefore = filled;
    }
    return symbols;
}

bool IsSpread(const BeatSymbols& symbols, int width) {
    const std::int64_t columns = std::max(width, 1);
    return std::int64_t{symbols.m_First} * 100 / columns < kFirstBeatBelowPercent &&
           std::int64_t{symbols.m_Last} * 100 / columns > kLastBeatAbovePercent;
}

} // namespace

bool IsLoneLetter(const TabFile& file, int line, int column) {
    if (column > 0 && Nvr::Ascii::IsAlpha(file.GetChar(line, column - 1)))
        return false;
    const char next = file.GetChar(line, column + 1);
    return !Nvr::Ascii::IsAlpha(next) && next != '#';
}

bool IsNoteLengthsLine(const TabFile& file, int line, int firstColumn, int endColumn) {
    std::int64_t sum = 0;
    int loneEs = 0;
    bool lastLetterAlone = false;
    const std::string_view cells = file.GetStretch(line, firstColumn, endColumn - firstColumn);
    for (int column = firstColumn; column < firstColumn + static_cast<int>(cells.size()); ++column) {
        const char c = cells[static_cast<std::size_t>(column - firstColumn)];
        if (c == 'E') {
            // Both a note length and a chord name: only a lone one is taken for a length, and even that does
            // not vouch for the line.
            if (IsLoneLetter(file, line, column)) {
                ++loneEs;
                sum += NoteLengthOf(c);
            }
        } else if (IsChordRoot(c)) {
            return false;
        } else if (const int length = NoteLengthOf(c); length > 0) {
            lastLetterAlone = IsLoneLetter(file, line, column);
            sum += length;
        }
    }
    return (lastLetterAlone || loneEs >= kLoneEsOfARhythm) && sum >= kLeastSumOfLetters;
}

bool IsBeatPositionsLine(const TabBar& bar, int offset) {
    const BeatSymbols symbols =
        GatherBeatSymbols(bar.GetFile(), bar.GetFirstLine() + offset, bar.GetStartColumn(), bar.GetWidth());
    // Most lines are blank.
    if (symbols.m_Total < 2)
        return false;
    const int distinct = symbols.DistinctCount();
    const bool isPair = symbols.m_Total == 2 && distinct == 2;
    return (symbols.HasRepeats() || isPair) && !symbols.m_LateAdjacent && !symbols.HasChordLetter() &&
           (!symbols.m_EarlyAdjacent || symbols.m_Total > 2) && distinct <= kMostKindsOfBeatSymbol &&
           IsSpread(symbols, bar.GetWidth());
}

} // namespace Fretline
