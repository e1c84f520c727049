#pragma once

#include <string>
#include <vector>

namespace TabText {

/// A line and a column of a text, counted from 0 as in Fretline::TabFile: tabs reach to columns of eight.
struct TextPlace {
    int Line = 0;
    int Column = 0;

    bool operator==(const TextPlace&) const = default;
};

/// A bend of a prepared text whose target a step took away.
struct MappedBend {
    /// Of its sign.
    int Column = 0;
    int QuarterTones = 0;
};

/// From each line and column of a prepared text to those of the original.
///
/// A character that was added stands for the next one of its line that was there. A line that was added
/// stands for the line that it was made for. Columns of the original count characters as an editor shows
/// them, wide ones as two; in a text of ASCII that is what TabFile counts.
class LineMap {
public:
    struct Line {
        int OriginalLine = 0;
        /// The original column of each character, ascending; empty when each stands at its own.
        std::vector<int> Columns;
        /// By column of the prepared line.
        std::vector<MappedBend> Bends = {};
    };

    LineMap() = default;
    explicit LineMap(std::vector<Line> lines) : m_Lines(std::move(lines)) {}

    int GetLineCount() const { return static_cast<int>(m_Lines.size()); }

    /// `line` is one of the prepared text, `column` any from 0 on: those beyond the end of the line go on
    /// beyond that of the original.
    TextPlace ToOriginal(int line, int column) const {
        const Line& entry = m_Lines[static_cast<std::size_t>(line)];
        const std::vector<int>& columns = entry.Columns;
        if (columns.empty())
            return {entry.OriginalLine, column};
        const int last = static_cast<int>(columns.size()) - 1;
        const int known = column < last ? column : last;
        return {entry.OriginalLine, columns[static_cast<std::size_t>(known)] + (column - known)};
    }

    /// How far the bend whose sign stands there goes, where a step took its target away; 0 elsewhere.
    int QuarterTonesOfBend(int line, int column) const {
        for (const MappedBend& bend : m_Lines[static_cast<std::size_t>(line)].Bends)
            if (bend.Column == column)
                return bend.QuarterTones;
        return 0;
    }

private:
    std::vector<Line> m_Lines;
};

/// A sentence that speaks of lines of the prepared text, counted from 1, of those of the original.
std::string WithOriginalLines(const std::string& sentence, const LineMap& map);

} // namespace TabText
