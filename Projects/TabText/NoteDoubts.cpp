// What was read between two barlines.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/ScorePlaces.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <optional>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabColumn;
using Nvr::Ascii::IsDigit;

constexpr int kHighestFretReadAsOneNumber = 22;

// Digits that touch each other on one line of a bar. Columns are absolute.
struct DigitRun {
    int Line = 0;
    int Column = 0;
    std::string_view Digits;

    int GetEndColumn() const { return Column + static_cast<int>(Digits.size()); }
    bool IsOneDigit(char digit) const { return Digits.size() == 1 && Digits[0] == digit; }
    int GetTwoDigitNumber() const { return (Digits[0] - '0') * 10 + (Digits[1] - '0'); }
    // Nobody plays it as one number on one fret.
    bool IsSurelyGlued() const { return Digits.size() > 2 || (Digits.size() == 2 && Digits[0] == '0'); }
    bool IsDoubledDigit() const { return Digits.size() == 2 && Digits[0] == Digits[1]; }
};

// The runs of one line of a bar, left to right, and what they have in common.
struct DigitRuns {
    std::vector<DigitRun> All;
    bool HasSurelyGlued = false;
    // Those of two digits are not all the same number.
    bool HasSeveralHighFrets = false;
};

std::vector<DigitRun> RunsOf(const TabBar& bar, int line) {
    const std::string_view text = bar.GetFile().GetLine(line);
    const std::size_t end =
        std::min(text.size(), static_cast<std::size_t>(bar.GetStartColumn() + bar.GetWidth()));
    std::vector<DigitRun> runs;
    for (auto at = static_cast<std::size_t>(bar.GetStartColumn()); at < end; ++at) {
        const std::size_t start = at;
        while (at < end && IsDigit(text[at]))
            ++at;
        if (at > start)
            runs.push_back({line, static_cast<int>(start), text.substr(start, at - start)});
    }
    return runs;
}

DigitRuns GatherRuns(const TabBar& bar, int line) {
    DigitRuns runs{RunsOf(bar, line)};
    std::string_view highFret;
    for (const DigitRun& run : runs.All) {
        runs.HasSurelyGlued = runs.HasSurelyGlued || run.IsSurelyGlued();
        if (run.Digits.size() != 2)
            continue;
        runs.HasSeveralHighFrets = runs.HasSeveralHighFrets || (!highFret.empty() && highFret != run.Digits);
        highFret = run.Digits;
    }
    return runs;
}

bool WasReadAsOneNumber(const TabBar& bar, const DigitRun& run) {
    const TabColumn* column = ColumnAt(bar, run.Column);
    return column != nullptr && column == ColumnAt(bar, run.GetEndColumn() - 1);
}

// "11" beside a lone "1" on its string, with no other fret of two digits in the bar.
bool RepeatsANeighbour(const DigitRuns& runs, std::size_t index) {
    const DigitRun& run = runs.All[index];
    if (!run.IsDoubledDigit() || runs.HasSeveralHighFrets)
        return false;
    return (index > 0 && runs.All[index - 1].IsOneDigit(run.Digits[0])) ||
           (index + 1 < runs.All.size() && runs.All[index + 1].IsOneDigit(run.Digits[0]));
}

bool CanBeReadTwoWays(const TabBar& bar, const DigitRuns& runs, std::size_t index) {
    const DigitRun& run = runs.All[index];
    if (run.Digits.size() < 2)
        return false;
    return run.IsSurelyGlued() || run.GetTwoDigitNumber() > kHighestFretReadAsOneNumber ||
           runs.HasSurelyGlued || RepeatsANeighbour(runs, index) || !WasReadAsOneNumber(bar, run);
}

std::string HowRead(const TabBar& bar, const DigitRun& run) {
    std::string text = "\"" + std::string(run.Digits) + "\" was read as ";
    if (run.Digits.size() == 2 && WasReadAsOneNumber(bar, run))
        return text + "fret " + std::to_string(run.GetTwoDigitNumber());
    return text + std::to_string(run.Digits.size()) + " notes, one after the other";
}

std::string AndOthers(int count) {
    if (count == 0)
        return {};
    return count == 1 ? "; so was another of the bar"
                      : "; so were " + std::to_string(count) + " others of the bar";
}

// Said once a bar, at the first of them.
void FindGluedDigitsIn(const TabBar& bar, DoubtSink& doubts) {
    std::optional<DigitRun> first;
    int others = 0;
    for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line) {
        const DigitRuns runs = GatherRuns(bar, line);
        for (std::size_t index = 0; index < runs.All.size(); ++index) {
            if (!CanBeReadTwoWays(bar, runs, index))
                continue;
            others += first ? 1 : 0;
            first = first.value_or(runs.All[index]);
        }
    }
    if (first)
        doubts.Add(first->Line, first->Column, first->GetEndColumn(),
                   HowRead(bar, *first) + AndOthers(others));
}

bool IsBendSign(char c) {
    return c == 'b' || c == 'r' || c == '^';
}

// A fret, the sign of a bend, a release or a trill, and another fret, perhaps in brackets.
void FindBendTargetsIn(const TabBar& bar, int line, DoubtSink& doubts) {
    const std::vector<DigitRun> runs = RunsOf(bar, line);
    for (std::size_t index = 1; index < runs.size(); ++index) {
        const DigitRun& target = runs[index];
        const int start = runs[index - 1].GetEndColumn();
        std::string_view between = bar.GetFile().GetLine(line).substr(
            static_cast<std::size_t>(start), static_cast<std::size_t>(target.Column - start));
        if (between.size() > 1 && between.back() == '(')
            between.remove_suffix(1);
        if ((between.size() == 1 && IsBendSign(between[0])) || IsSameWord(between, "tr"))
            doubts.Add(line, target.Column, target.GetEndColumn(),
                       "the number after \"" + std::string(between) + "\" was read as a note of its own");
    }
}

// The notes of a bar that share their string and their time with another, after the first of each. Columns
// sound together when each but the last of them lasts no time.
std::vector<StruckNote> FindSecondNotes(const TabBar& bar) {
    const std::vector<StruckNote> notes = StruckNotesOf(bar);
    std::vector<StruckNote> seconds;
    std::vector<int> groupOfLast(static_cast<std::size_t>(bar.GetLineCount()), -1);
    int group = 0;
    auto note = notes.begin();
    for (const TabColumn& column : bar.GetColumns()) {
        for (; note != notes.end() && note->Time == &column; ++note) {
            int& last = groupOfLast[static_cast<std::size_t>(note->String)];
            if (last == group)
                seconds.push_back(*note);
            last = group;
        }
        group += column.m_Duration == 0 ? 0 : 1;
    }
    return seconds;
}

std::string CountNotes(std::size_t count, const char* one, const char* several) {
    return count == 1 ? std::string("a note ") + one : std::to_string(count) + " notes " + several;
}

// The numbers that no column of the reading covers: those that a rhythm line put at the start of the bar.
std::vector<DigitRun> FindDroppedNumbers(const TabBar& bar) {
    std::vector<DigitRun> dropped;
    for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
        for (const DigitRun& run : RunsOf(bar, line))
            if (ColumnAt(bar, run.Column) == nullptr)
                dropped.push_back(run);
    return dropped;
}

// The last notes of a bar when no time is left for them.
std::vector<StruckNote> FindNotesAfterTheEnd(const TabBar& bar) {
    std::vector<StruckNote> lost;
    if (bar.GetColumns().empty() || bar.GetColumns().back().m_Duration > 0)
        return lost;
    const TabColumn* last = &bar.GetColumns().back();
    for (const StruckNote& note : StruckNotesOf(bar))
        if (note.Time == last)
            lost.push_back(note);
    return lost;
}

} // namespace

void FindGluedDigits(const TabReading& reading, DoubtSink& doubts) {
    for (const BarReading& bar : reading.GetBars())
        FindGluedDigitsIn(*bar.Bar, doubts);
}

void FindBendTargets(const TabReading& reading, DoubtSink& doubts) {
    for (const BarReading& entry : reading.GetBars()) {
        const TabBar& bar = *entry.Bar;
        for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
            FindBendTargetsIn(bar, line, doubts);
    }
}

void FindMergedNotes(const TabReading& reading, DoubtSink& doubts) {
    for (const BarReading& bar : reading.GetBars()) {
        const std::vector<StruckNote> notes = FindSecondNotes(*bar.Bar);
        if (!notes.empty())
            doubts.Add(notes.front().Line, notes.front().Column, notes.front().EndColumn,
                       CountNotes(notes.size(), "was", "were") +
                           " put on a string that sounds another at that time");
    }
}

void FindLostNotes(const TabReading& reading, DoubtSink& doubts) {
    for (const BarReading& bar : reading.GetBars()) {
        if (const std::vector<DigitRun> dropped = FindDroppedNumbers(*bar.Bar); !dropped.empty())
            doubts.Add(dropped.front().Line, dropped.front().Column, dropped.front().GetEndColumn(),
                       CountNotes(dropped.size(), "was", "were") +
                           " left out: the rhythm line puts another column at the start of the bar too");
        if (const std::vector<StruckNote> late = FindNotesAfterTheEnd(*bar.Bar); !late.empty())
            doubts.Add(late.front().Line, late.front().Column, late.front().EndColumn,
                       CountNotes(late.size(), "was", "were") +
                           " left out: no time is left for it in the bar");
    }
}

} // namespace TabText
