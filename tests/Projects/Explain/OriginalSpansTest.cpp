#include "Projects/Explain/OriginalSpans.h"

#include <gtest/gtest.h>

#include <algorithm>

using Explain::ExplainedLine;
using Explain::OriginalLine;
using Explain::Recognised;

namespace {

// A line of the text whose signs (Explain::RecognisedName) say what each character was taken for.
ExplainedLine Line(const std::string& signs, const std::string& note = {}) {
    ExplainedLine line;
    line.Text = signs;
    for (const char sign : signs) {
        const auto all = Explain::AllRecognised();
        const auto row =
            std::find_if(all.begin(), all.end(), [=](const auto& kind) { return kind.Sign == sign; });
        line.Marks.push_back(row == all.end() ? Recognised::Nothing : row->Kind);
    }
    if (!note.empty())
        line.Notes.push_back(note);
    return line;
}

// "line: column-end sign ...; note" for each line.
std::string Told(const std::vector<ExplainedLine>& lines, const std::optional<TabText::LineMap>& map) {
    Explain::Explanation explanation;
    explanation.Lines = lines;
    std::string text;
    for (const OriginalLine& line : Explain::OriginalSpans(explanation, map)) {
        text += std::to_string(line.Line) + ":";
        for (const Explain::OriginalSpan& span : line.Spans)
            text += " " + std::to_string(span.Column) + "-" + std::to_string(span.EndColumn) +
                    NameOf(span.Kind).Sign;
        for (const std::string& note : line.Notes)
            text += "; " + note;
        text += "\n";
    }
    return text;
}

TEST(OriginalSpans, AreTheStretchesOfOneKindWithoutWhatIsNotUsed) {
    EXPECT_EQ(Told({Line("  CC C"), Line("    "), Line("T|-F-", "why")}, std::nullopt),
              "0: 2-4C 5-6C\n2: 0-1T 1-2| 2-3- 3-4F 4-5-; why\n");
}

TEST(OriginalSpans, GoThroughTheMapOfAPreparedText) {
    const struct {
        const char* Why;
        std::vector<ExplainedLine> Lines;
        std::vector<TabText::LineMap::Line> Map;
        const char* Told;
    } rows[] = {
        {"a line moves with its columns", {Line("FF")}, {{7, {}}}, "7: 0-2F\n"},
        {"an added character takes no room", {Line("F-F-")}, {{0, {0, 1, 1, 2}}}, "0: 0-2F 2-3-\n"},
        {"a removed one belongs to what stands before it",
         {Line("F-F")},
         {{0, {0, 3, 4}}},
         "0: 0-3F 3-4- 4-5F\n"},
        {"an added stave line hides nothing",
         {Line("---"), Line("-F-")},
         {{2, {}}, {2, {}}},
         "2: 0-1- 1-2F 2-3-\n"},
        {"neither does one that comes after",
         {Line("-F-"), Line("---")},
         {{2, {}}, {2, {}}},
         "2: 0-1- 1-2F 2-3-\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Told(row.Lines, TabText::LineMap(row.Map)), row.Told) << row.Why;
}

} // namespace
