#include "Projects/Explain/OriginalSpans.h"

#include <algorithm>
#include <map>

namespace Explain {

namespace {

// What each column of one original line was taken for.
struct PaintedLine {
    std::vector<Recognised> Marks;
    std::vector<std::string> Notes;

    void Paint(int start, int end, Recognised kind) {
        if (static_cast<int>(Marks.size()) < end)
            Marks.resize(static_cast<std::size_t>(end), Recognised::Nothing);
        for (int column = std::max(start, 0); column < end; ++column) {
            Recognised& mark = Marks[static_cast<std::size_t>(column)];
            if (mark == Recognised::Nothing || mark == Recognised::StaveLine)
                mark = kind;
        }
    }

    std::vector<OriginalSpan> Spans() const {
        std::vector<OriginalSpan> spans;
        for (int column = 0; column < static_cast<int>(Marks.size()); ++column) {
            const Recognised kind = Marks[static_cast<std::size_t>(column)];
            if (kind == Recognised::Nothing)
                continue;
            if (!spans.empty() && spans.back().EndColumn == column && spans.back().Kind == kind)
                ++spans.back().EndColumn;
            else
                spans.push_back({column, column + 1, kind});
        }
        return spans;
    }
};

TabText::TextPlace ToOriginal(const std::optional<TabText::LineMap>& map, int line, int column) {
    return map ? map->ToOriginal(line, column) : TabText::TextPlace{line, column};
}

} // namespace

std::vector<OriginalLine> OriginalSpans(const Explanation& explanation,
                                        const std::optional<TabText::LineMap>& map) {
    std::map<int, PaintedLine> painted;
    for (int number = 0; number < static_cast<int>(explanation.Lines.size()); ++number) {
        const ExplainedLine& line = explanation.Lines[static_cast<std::size_t>(number)];
        PaintedLine& original = painted[ToOriginal(map, number, 0).Line];
        for (int column = 0; column < static_cast<int>(line.Marks.size()); ++column)
            if (const Recognised kind = line.Marks[static_cast<std::size_t>(column)];
                kind != Recognised::Nothing)
                original.Paint(ToOriginal(map, number, column).Column,
                               ToOriginal(map, number, column + 1).Column, kind);
        original.Notes.insert(original.Notes.end(), line.Notes.begin(), line.Notes.end());
    }
    std::vector<OriginalLine> lines;
    for (const auto& [number, line] : painted)
        if (std::vector<OriginalSpan> spans = line.Spans(); !spans.empty() || !line.Notes.empty())
            lines.push_back({number, std::move(spans), line.Notes});
    return lines;
}

} // namespace Explain
