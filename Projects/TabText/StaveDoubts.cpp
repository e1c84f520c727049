// What was taken for a stave, and what was not.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/PartsTogether.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <optional>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabFile;
using Fretline::TabStave;

constexpr int kMostLinesOfAStave = 6;

std::string Count(int number, const char* what) {
    return std::to_string(number) + " " + what;
}

// The stave is what was left below one of six lines without a gap.
bool IsRestOfARun(const TabStave* before, const TabStave& stave) {
    return before != nullptr && before->GetEndLine() == stave.GetFirstLine() &&
           stave.GetLineCount() < kMostLinesOfAStave;
}

// The number of lines of the run that the stave at `index` ends.
int LinesOfRun(const std::vector<std::unique_ptr<TabStave>>& staves, std::size_t index) {
    std::size_t first = index;
    while (first > 0 && staves[first - 1]->GetEndLine() == staves[first]->GetFirstLine())
        --first;
    return staves[index]->GetEndLine() - staves[first]->GetFirstLine();
}

bool IsFretBesideDash(std::string_view line, std::size_t at) {
    const bool isFret = Nvr::Ascii::IsDigit(line[at]) || line[at] == 'x' || line[at] == 'X';
    return isFret && ((at > 0 && line[at - 1] == '-') || (at + 1 < line.size() && line[at + 1] == '-'));
}

// The line was drawn as a string: mostly of dashes, with a number or the name of a string.
bool LooksLikeAString(std::string_view line) {
    constexpr int kPercentDrawn = 60;
    int drawn = 0;
    int all = 0;
    bool hasFret = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '\0' || Nvr::Ascii::IsSpace(line[at]))
            continue;
        ++all;
        if (line[at] == '-' || line[at] == '|' || Fretline::IsFretChar(line[at]))
            ++drawn;
        hasFret = hasFret || IsFretBesideDash(line, at);
    }
    const std::vector<Word> words = WordsOf(line);
    const bool hasName = !words.empty() && words.front().Text.size() > 1 && words.front().Text[1] == '|' &&
                         Fretline::IsNoteLetter(words.front().Text[0]);
    const bool hasStrokes =
        line.find("--") != std::string_view::npos || line.find('|') != std::string_view::npos;
    return hasStrokes && (hasFret || hasName) && drawn * 100 >= all * kPercentDrawn;
}

// Lines that were left out, neighbours as one.
std::vector<IgnoredLines> BlocksOfIgnoredLines(const TabReading& reading) {
    std::vector<IgnoredLines> lines = reading.GetIgnoredLines();
    std::sort(lines.begin(), lines.end(),
              [](const IgnoredLines& a, const IgnoredLines& b) { return a.First < b.First; });
    std::vector<IgnoredLines> blocks;
    for (const IgnoredLines& entry : lines) {
        if (!blocks.empty() && entry.First <= blocks.back().Last + 1)
            blocks.back().Last = std::max(blocks.back().Last, entry.Last);
        else
            blocks.push_back(entry);
    }
    return blocks;
}

bool TouchesAStave(const TabReading& reading, const IgnoredLines& block) {
    const Fretline::TabAnalysis& analysis = reading.GetAnalysis();
    return (block.First > 0 && analysis.IsStaveLine(block.First - 1)) || analysis.IsStaveLine(block.Last + 1);
}

// Reports the blocks that look like strings and touch a stave, or those that touch none.
void FindIgnoredStrings(const TabReading& reading, bool touching, DoubtSink& doubts) {
    const TabFile& file = reading.GetFile();
    for (const IgnoredLines& block : BlocksOfIgnoredLines(reading)) {
        if (TouchesAStave(reading, block) != touching)
            continue;
        int strings = 0;
        for (int line = block.First; line <= block.Last; ++line)
            strings += LooksLikeAString(file.GetLine(line)) ? 1 : 0;
        if (strings > 0)
            doubts.Add(block.First, 0, file.GetLineLength(block.First),
                       Count(strings, strings == 1 ? "line that looks like a string was ignored"
                                                   : "lines that look like strings were ignored"));
    }
}

bool IsAnnotation(std::string_view line) {
    if (std::any_of(line.begin(), line.end(), Nvr::Ascii::IsDigit))
        return false;
    static constexpr std::array<std::string_view, 10> kWords{"p.m", "pm-", "palm", "let ring", "n.h",
                                                             "nh-", "a.h", "ah-",  "p.h",      "vib"};
    return std::any_of(kWords.begin(), kWords.end(), [&](std::string_view word) {
        return FindInAnyCase(line, word) != std::string_view::npos;
    });
}

// How many lines of the bar have a "|" in each column; such columns are no barlines, or the bar would end.
std::vector<int> CountStrokes(const TabBar& bar) {
    std::vector<int> strokes(static_cast<std::size_t>(bar.GetWidth()));
    for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
        for (std::size_t column = 0; column < strokes.size(); ++column)
            strokes[column] +=
                bar.GetFile().GetChar(line, bar.GetStartColumn() + static_cast<int>(column)) == '|' ? 1 : 0;
    return strokes;
}

void FindBrokenBarlinesIn(const TabBar& bar, DoubtSink& doubts) {
    const std::vector<int> strokes = CountStrokes(bar);
    const int enough = std::max((bar.GetLineCount() + 1) / 2, 2);
    for (std::size_t column = 0; column < strokes.size(); ++column) {
        const int next = column + 1 < strokes.size() ? strokes[column + 1] : 0;
        if (strokes[column] == 0 || strokes[column] + next < enough)
            continue;
        const int place = bar.GetStartColumn() + static_cast<int>(column);
        doubts.Add(bar.GetFirstLine(), place, place + (next > 0 ? 2 : 1),
                   "a \"|\" on some lines only is no barline: the bars beside it were read as one");
        column += next > 0 ? 1 : 0;
    }
}

// More than the quavers of a common bar, and nobody would have written them without a barline.
constexpr std::size_t kMostColumnsOfAPlainBar = 8;

bool LacksBarlines(const StaveBars& stave) {
    const TabBar& bar = *stave.Bars.front().Bar;
    const TabFile& file = bar.GetFile();
    const int line = bar.GetFirstLine();
    const int end = bar.GetStartColumn() + bar.GetWidth();
    const std::string_view rest = file.GetLine(line).substr(
        static_cast<std::size_t>(std::min(bar.GetStartColumn(), file.GetLineLength(line))));
    return stave.Stave->HasSingleBar() && bar.GetColumns().size() > kMostColumnsOfAPlainBar &&
           file.GetChar(line, end) != '|' && rest.find('|') == std::string_view::npos;
}

} // namespace

void FindStaveSizes(const TabReading& reading, DoubtSink& doubts) {
    const std::vector<StaveBars> staves = StavesWithBars(reading);
    std::optional<bool> areTogether;
    const TabStave* before = nullptr;
    for (const StaveBars& entry : staves) {
        const TabStave& stave = *entry.Stave;
        const int first = staves.front().Stave->GetLineCount();
        const bool goesOn = before != nullptr && before->GetLineCount() == stave.GetLineCount();
        const bool isDoubtful = stave.GetLineCount() != first && !goesOn && !IsRestOfARun(before, stave);
        before = &stave;
        if (!isDoubtful)
            continue;
        if (!areTogether)
            areTogether = !FindPartsTogether(reading).Names.empty();
        doubts.Add(stave.GetFirstLine(), 0, reading.GetFile().GetLineLength(stave.GetFirstLine()),
                   "a stave of " + Count(stave.GetLineCount(), "lines was read into the stave of ") +
                       Count(first, "lines that the score has") +
                       (*areTogether ? "; in other formats it is a part of its own" : ""));
        // Of parts that take turns all the way, the first one says it all.
        if (*areTogether)
            return;
    }
}

void FindCutRuns(const TabReading& reading, DoubtSink& doubts) {
    const auto& staves = reading.GetAnalysis().GetStaves();
    for (std::size_t index = 1; index < staves.size(); ++index) {
        const TabStave& stave = *staves[index];
        if (IsRestOfARun(staves[index - 1].get(), stave))
            doubts.Add(stave.GetFirstLine(), 0, reading.GetFile().GetLineLength(stave.GetFirstLine()),
                       Count(LinesOfRun(staves, index), "lines without a gap were cut after each sixth; ") +
                           Count(stave.GetLineCount(), "of them became a stave of its own"));
    }
}

void FindCutLines(const TabReading& reading, DoubtSink& doubts) {
    FindIgnoredStrings(reading, true, doubts);
}

void FindShortRuns(const TabReading& reading, DoubtSink& doubts) {
    FindIgnoredStrings(reading, false, doubts);
}

void FindAnnotations(const TabReading& reading, DoubtSink& doubts) {
    for (const StaveBars& entry : StavesWithBars(reading))
        for (const int line : {entry.Stave->GetFirstLine(), entry.Stave->GetEndLine() - 1})
            if (IsAnnotation(reading.GetFile().GetLine(line)))
                doubts.Add(line, 0, reading.GetFile().GetLineLength(line),
                           "the line was read as a string, which moves the others by one");
}

void FindBrokenBarlines(const TabReading& reading, DoubtSink& doubts) {
    for (const BarReading& reading_ : reading.GetBars())
        FindBrokenBarlinesIn(*reading_.Bar, doubts);
}

void FindStavesWithoutBarlines(const TabReading& reading, DoubtSink& doubts) {
    for (const StaveBars& entry : StavesWithBars(reading)) {
        const TabBar& bar = *entry.Bars.front().Bar;
        if (LacksBarlines(entry))
            doubts.Add(bar.GetFirstLine(), bar.GetStartColumn(),
                       reading.GetFile().GetLineLength(bar.GetFirstLine()),
                       "the stave has no barline: its " +
                           Count(static_cast<int>(bar.GetColumns().size()), "notes and chords became ") +
                           (bar.ScoreBarCount() == 1 ? "one bar" : Count(bar.ScoreBarCount(), "bars")));
    }
}

} // namespace TabText
