// How long the notes are.

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/NoteLengths.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/StaveBars.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>

namespace TabText {

namespace {

using Fretline::RhythmLineKind;
using Fretline::TabBar;
using Nvr::Ascii::IsAlpha;
using Nvr::Ascii::IsDigit;

// The length that its time signature gives a bar that keeps one; 0 where there is none.
int MetreOf(const TabBar& bar) {
    return bar.GetTimeSignature() == nullptr ? 0 : bar.GetTimeSignature()->GetLength();
}

// A first bar may be a pickup, and the last may lack what that has.
bool MayBeShort(const std::vector<BarReading>& bars, std::size_t index) {
    return index == 0 ||
           (index + 1 == bars.size() && bars.front().Bar->GetBarLength() < MetreOf(*bars.front().Bar));
}

// Two equal distances between neighbouring columns, and two lengths.
bool HasUnevenLengths(const TabBar& bar) {
    if (!bar.HasRhythms() || bar.GetRhythmLine().m_Kind != RhythmLineKind::None || bar.ScoreBarCount() != 1)
        return false;
    std::map<int, int> lengthOfDistance;
    const Fretline::TabColumn* before = nullptr;
    for (const Fretline::TabColumn& column : bar.GetColumns()) {
        if (before != nullptr) {
            const auto [entry, isNew] =
                lengthOfDistance.emplace(column.m_Column - before->m_Column, before->m_Duration);
            if (!isNew && entry->second != before->m_Duration)
                return true;
        }
        before = &column;
    }
    return false;
}

std::string_view RhythmTextOver(const TabBar& bar) {
    const std::string_view line = bar.GetFile().GetLine(bar.GetRhythmLine().m_Line);
    const std::size_t start = std::min(line.size(), static_cast<std::size_t>(bar.GetStartColumn()));
    return line.substr(start, static_cast<std::size_t>(bar.GetWidth()));
}

// A letter of a note-length line with another letter or a number right after it: "E5", "Hey".
bool HasOtherLetters(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isTie = text[at] == 'x';
        if (IsAlpha(text[at]) && !isTie && Fretline::NoteLengthOf(text[at]) == 0)
            return true;
        if (at > 0 && IsDigit(text[at]) && IsAlpha(text[at - 1]))
            return true;
    }
    return false;
}

// Numbers that begin anywhere and go up by one, or begin again at one; with other signs between them.
bool CountsBeats(std::string_view text) {
    int last = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!IsDigit(text[at]))
            continue;
        int number = 0;
        constexpr int kEnough = 100;
        for (; at < text.size() && IsDigit(text[at]) && number < kEnough; ++at)
            number = number * 10 + (text[at] - '0');
        if (last != 0 && number != last + 1 && number != 1)
            return false;
        last = number;
    }
    return last != 0;
}

// Empty where the line counts time, and where there is none.
std::string WhyNoRhythmLine(const TabBar& bar) {
    const RhythmLineKind kind = bar.GetRhythmLine().m_Kind;
    if (kind == RhythmLineKind::None)
        return {};
    const std::string_view text = RhythmTextOver(bar);
    if (kind == RhythmLineKind::NoteLengths)
        return HasOtherLetters(text) ? "letters of other words or chords were read as note lengths" : "";
    return CountsBeats(text) ? "" : "signs that count no beats were read as points in time";
}

} // namespace

void FindBarLengths(const TabReading& reading, DoubtSink& doubts) {
    const std::vector<BarReading>& bars = reading.GetBars();
    for (std::size_t index = 0; index < bars.size(); ++index) {
        const TabBar& bar = *bars[index].Bar;
        const int metre = MetreOf(bar);
        const bool isRight =
            bar.GetBarLength() == metre || (bar.GetBarLength() < metre && MayBeShort(bars, index));
        if (metre == 0 || !bar.HasRhythms() || isRight)
            continue;
        const Fretline::TabTimeSignature& time = *bar.GetTimeSignature();
        doubts.Add(bar.GetFirstLine(), bar.GetStartColumn(), bar.GetStartColumn() + bar.GetWidth(),
                   "the bar lasts " + std::to_string(bar.GetBarLength()) + " units, a bar of " +
                       std::to_string(time.m_Numerator) + "/" + std::to_string(time.m_Denominator) + " " +
                       std::to_string(metre));
    }
}

void FindUnevenLengths(const TabReading& reading, DoubtSink& doubts) {
    for (const StaveBars& stave : StavesWithBars(reading)) {
        const TabBar* first = nullptr;
        int count = 0;
        for (const BarReading& bar : stave.Bars) {
            if (!HasUnevenLengths(*bar.Bar))
                continue;
            first = first == nullptr ? bar.Bar : first;
            ++count;
        }
        if (first != nullptr)
            doubts.Add(first->GetFirstLine(), first->GetStartColumn(),
                       first->GetStartColumn() + first->GetWidth(),
                       "notes at equal distances got unequal lengths" +
                           (count == 1 ? std::string(" in the bar")
                                       : " in " + std::to_string(count) + " bars of the stave"));
    }
}

void FindShortNotes(const TabReading& reading, DoubtSink& doubts) {
    constexpr int kShortestUsual = Fretline::kUnitsPerWholeNote / 64;
    for (const BarReading& entry : reading.GetBars()) {
        const TabBar& bar = *entry.Bar;
        const auto& columns = bar.GetColumns();
        const auto column = std::find_if(columns.begin(), columns.end(), [](const auto& each) {
            return each.m_Duration % kShortestUsual != 0;
        });
        if (!bar.HasRhythms() || column == columns.end())
            continue;
        const int start = bar.GetStartColumn() + column->m_Column + column->m_StartOffset;
        doubts.Add(bar.GetFirstLine(), start, start + 1,
                   "a note lasts " + std::to_string(column->m_Duration) +
                       " units, which takes values shorter than a 64th (" + std::to_string(kShortestUsual) +
                       " units)");
    }
}

void FindRhythmLines(const TabReading& reading, DoubtSink& doubts) {
    int lastLine = -1;
    for (const BarReading& entry : reading.GetBars()) {
        const TabBar& bar = *entry.Bar;
        const int line = bar.GetRhythmLine().m_Line;
        const std::string why = bar.HasRhythms() && line != lastLine ? WhyNoRhythmLine(bar) : "";
        if (why.empty())
            continue;
        doubts.Add(line, bar.GetStartColumn(), bar.GetStartColumn() + bar.GetWidth(), why);
        lastLine = line;
    }
}

} // namespace TabText
