#include "Projects/Score/LineBreaks.h"

#include <algorithm>

namespace Score {

namespace {

// Of notes and rests across a page, and what a barline takes of them.
constexpr int kMostColumns = 48;
constexpr int kFewestColumns = 14;
constexpr int kColumnsOfABarline = 2;

struct Line {
    std::size_t End = 0;
    int Columns = 0;
};

// Of the part that has the most in that bar.
std::size_t CountPieces(std::span<const std::vector<WrittenBar>> parts, std::size_t bar) {
    std::size_t count = 0;
    for (const std::vector<WrittenBar>& bars : parts)
        count = std::max(count, bars[bar].Pieces.size());
    return count;
}

std::vector<Line> LinesOf(const ScoreModel& score, std::span<const std::vector<WrittenBar>> parts) {
    std::vector<Line> lines;
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar) {
        if (lines.empty() || score.Bars[bar].BeginsLine)
            lines.push_back({});
        lines.back().End = bar + 1;
        lines.back().Columns += static_cast<int>(CountPieces(parts, bar)) + kColumnsOfABarline;
    }
    return lines;
}

} // namespace

std::vector<bool> LineBreaks(const ScoreModel& score, std::span<const std::vector<WrittenBar>> parts) {
    std::vector<bool> breaks(score.Bars.size());
    const std::vector<Line> lines = LinesOf(score, parts);
    if (std::any_of(lines.begin(), lines.end(), [](const Line& line) { return line.Columns > kMostColumns; }))
        return breaks;
    int columns = 0;
    for (std::size_t line = 0; line + 1 < lines.size(); ++line) {
        columns += lines[line].Columns;
        if (columns < kFewestColumns && columns + lines[line + 1].Columns <= kMostColumns)
            continue;
        breaks[lines[line].End - 1] = true;
        columns = 0;
    }
    return breaks;
}

} // namespace Score
