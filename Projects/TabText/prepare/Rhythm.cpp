#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/NoteLengths.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/StaveDetection.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/TabText/prepare/Counts.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/RhythmSigns.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <set>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabStave;
using std::string;

// A bar as long as its metre says, or as all others of its line.
constexpr int kPercentOfBarsThatFit = 50;
constexpr int kPercentOfLettersOverNotes = 75;

class RhythmTidier {
public:
    explicit RhythmTidier(Draft& draft) : m_Draft(draft), m_Reading(draft) { m_Reading.ReadBars(); }

    void Run() {
        for (const auto& stave : m_Reading.GetStaves()) {
            BlankStrokes(*stave);
            for (const int line : {stave->GetFirstLine() - 1, stave->GetFirstLine() - 2, stave->GetEndLine(),
                                   stave->GetEndLine() + 1})
                if (IsBeside(line))
                    WriteLettersLarge(*stave, line);
            DivideWhereCountsBeginAnew(*stave);
        }
    }

private:
    // Lines with hyphens are left alone: they tell the plug-in which of their neighbours are strings.
    bool IsBeside(int line) const {
        return line >= 0 && line < m_Draft.GetLineCount() && !m_Reading.IsStaveLine(line) &&
               !Fretline::IsStaveLineCandidate(m_Draft.GetLine(line));
    }

    void BlankStrokes(const TabStave& stave) {
        std::set<int> lines;
        for (const auto& bar : stave.GetBars())
            lines.insert({bar->GetRhythmLine().m_Line, bar->GetChordLine()});
        for (const int line : lines)
            if (IsBeside(line) && IsOfStrokesOrFingers(m_Draft.GetLine(line)))
                m_Draft.Overwrite(line, string(m_Draft.GetLine(line).size(), ' '));
    }

    void WriteLettersLarge(const TabStave& stave, int line) {
        const std::vector<LengthLetter> letters = LengthLettersOf(m_Draft.GetLine(line));
        const bool hasSmall = std::any_of(letters.begin(), letters.end(),
                                          [](const LengthLetter& letter) { return letter.IsSmall; });
        if (!hasSmall || !AreOfShortNotes(letters) || !StandOverNotes(stave, letters) ||
            !FillBars(stave, letters))
            return;
        string text = m_Draft.GetLine(line);
        for (const LengthLetter& letter : letters) {
            char& c = text[static_cast<std::size_t>(letter.Column)];
            c = Nvr::Ascii::ToUpper(c);
        }
        m_Draft.Overwrite(line, std::move(text));
    }

    // A line of nothing but "h" marks hammer-ons, or "t" taps.
    bool AreOfShortNotes(const std::vector<LengthLetter>& letters) const {
        return std::any_of(letters.begin(), letters.end(), [](const LengthLetter& letter) {
            return letter.Length >= Fretline::NoteLengthOf('S') &&
                   letter.Length < Fretline::NoteLengthOf('H');
        });
    }

    bool StandOverNotes(const TabStave& stave, const std::vector<LengthLetter>& letters) const {
        const auto isOverNote = [&](const LengthLetter& letter) {
            for (int line = stave.GetFirstLine(); line < stave.GetEndLine(); ++line)
                for (int column = letter.Column - 1; column <= letter.Column + 1; ++column)
                    if (Fretline::IsFretChar(m_Draft.GetChar(line, column)))
                        return true;
            return false;
        };
        const auto count =
            static_cast<std::size_t>(std::count_if(letters.begin(), letters.end(), isOverNote));
        return count * 100 >= letters.size() * kPercentOfLettersOverNotes;
    }

    bool FillBars(const TabStave& stave, const std::vector<LengthLetter>& letters) const {
        int bars = 0;
        int fitting = 0;
        std::set<int> lengths;
        auto letter = letters.begin();
        for (const auto& bar : stave.GetBars()) {
            int length = 0;
            for (; letter != letters.end() && letter->Column < bar->GetStartColumn() + bar->GetWidth();
                 ++letter)
                if (letter->Column >= bar->GetStartColumn())
                    length = Fretline::AddTime(length, letter->Length);
            if (length == 0)
                continue;
            ++bars;
            fitting += length == LengthByMetre(*bar) ? 1 : 0;
            lengths.insert(length);
        }
        const bool areAlike = bars > 1 && lengths.size() == 1;
        return bars > 0 && (areAlike || fitting * 100 >= bars * kPercentOfBarsThatFit);
    }

    void DivideWhereCountsBeginAnew(const TabStave& stave) {
        std::vector<int> barlines;
        for (const auto& bar : stave.GetBars())
            if (bar->GetTimeSignature() != nullptr &&
                bar->GetRhythmLine().m_Kind == Fretline::RhythmLineKind::BeatPositions)
                AddBarlines(*bar, barlines);
        if (barlines.empty())
            return;
        for (int line = stave.GetFirstLine(); line < stave.GetEndLine(); ++line) {
            string text = m_Draft.GetLine(line);
            for (const int column : barlines)
                text[static_cast<std::size_t>(column)] = '|';
            m_Draft.Overwrite(line, std::move(text));
        }
    }

    // "1 2 3 1 2 3" in a bar of 3/4 is two bars: the plug-in would take it for six quavers.
    void AddBarlines(const TabBar& bar, std::vector<int>& barlines) const {
        const int beats = bar.GetTimeSignature()->m_Numerator;
        std::vector<int> places;
        int expected = 1;
        for (int column = bar.GetStartColumn(); column < bar.GetStartColumn() + bar.GetWidth(); ++column) {
            const char c = m_Draft.GetChar(bar.GetRhythmLine().m_Line, column);
            if (!Nvr::Ascii::IsDigit(c))
                continue;
            if (c - '0' != expected)
                return;
            if (expected == 1)
                places.push_back(column - 1);
            expected = expected % beats + 1;
        }
        if (expected != 1 || places.size() < 2)
            return;
        places.erase(places.begin());
        if (std::all_of(places.begin(), places.end(), [&](int column) { return IsFree(bar, column); }))
            barlines.insert(barlines.end(), places.begin(), places.end());
    }

    bool IsFree(const TabBar& bar, int column) const {
        for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line)
            if (m_Draft.GetChar(line, column) != '-')
                return false;
        return true;
    }

    Draft& m_Draft;
    DraftReading m_Reading;
};

} // namespace

void RunRhythm(Draft& draft) {
    RhythmTidier(draft).Run();
    ThinOutCounts(draft);
}

} // namespace TabText
