#include "Projects/Explain/Explanation.h"

#include "Projects/Explain/BarNotes.h"
#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/stave/TabChord.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/Fretline/text/TabTuning.h"
#include "Projects/Score/Utf8.h"
#include "Projects/TabText/Doubts.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/PartsTogether.h"
#include "Projects/TabText/Tunings.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>
#include <set>

namespace Explain {

namespace {

using Score::Numbered;

using Fretline::RiffLabel;
using Fretline::TabBar;
using Fretline::TabColumn;
using Fretline::TabStave;

// Lays what was read over the text.
class Explainer {
public:
    Explainer(const TabText::TabReading& reading, const TabText::LineMap* map)
        : m_Places(map), m_Reading(reading), m_File(reading.GetFile()), m_Analysis(reading.GetAnalysis()),
          m_NextBar(reading.GetBars().begin()) {}

    Explanation Explain() {
        CopyText();
        FindParts();
        ExplainIgnoredLines();
        for (const auto& stave : m_Analysis.GetStaves())
            ExplainStave(*stave);
        ExplainLabels();
        for (const auto& signature : m_Analysis.GetTimeSignatures())
            Mark(signature->m_Line, signature->m_StartColumn, signature->m_EndColumn + 1,
                 Recognised::TimeSignature);
        const TabText::Markings markings = TabText::ReadMarkings(m_Reading, m_Places.GetMap());
        ExplainMarkings(markings);
        m_Explanation.Signs = TabText::SignsOf(m_Reading, markings);
        for (const TabText::Doubt& doubt : TabText::FindDoubts(m_Reading, markings))
            ExplainDoubt(doubt);
        return std::move(m_Explanation);
    }

private:
    void CopyText() {
        int known = 0;
        for (int line = 0; line < m_File.GetLineCount(); ++line) {
            ExplainedLine explained;
            // A line that was added stands for one that has its number already.
            const int number = m_Places.LineNumber(line);
            explained.Number = number == known ? 0 : number;
            known = number;
            explained.Text = m_File.GetLine(line);
            explained.Marks.assign(explained.Text.size(), Recognised::Nothing);
            explained.IsDoubtful.assign(explained.Text.size(), false);
            m_Explanation.Lines.push_back(std::move(explained));
        }
    }

    // Where several sound together, the names of those that each stave is of.
    void FindParts() {
        const TabText::PartsTogether together = TabText::FindPartsTogether(m_Reading);
        for (const TabText::BarsTogether& bars : together.Bars)
            for (std::size_t part = 0; part < together.Names.size(); ++part)
                if (bars.Bars[part])
                    m_PartsOfStave[m_Reading.GetBars()[*bars.Bars[part]].Bar->GetFirstLine()].insert(
                        together.Names[part].Name);
    }

    // Columns are absolute; `end` is the first one after the stretch.
    void Mark(int line, int start, int end, Recognised kind) {
        std::vector<Recognised>& marks = m_Explanation.Lines[static_cast<std::size_t>(line)].Marks;
        for (int column = std::max(start, 0); column < std::min(end, static_cast<int>(marks.size()));
             ++column)
            marks[static_cast<std::size_t>(column)] = kind;
    }

    void ExplainIgnoredLines() {
        for (const TabText::IgnoredLines& ignored : m_Reading.GetIgnoredLines()) {
            for (int line = ignored.First; line <= ignored.Last && line < m_File.GetLineCount(); ++line)
                Mark(line, 0, m_File.GetLineLength(line), Recognised::IgnoredLine);
            if (ignored.First < m_File.GetLineCount())
                m_Explanation.Lines[static_cast<std::size_t>(ignored.First)].Notes.push_back(
                    m_Places.InSentence(ignored.Message));
        }
    }

    void ExplainStave(const TabStave& stave) {
        const int last = stave.GetFirstLine() + stave.GetLineCount() - 1;
        for (int line = stave.GetFirstLine(); line <= last; ++line) {
            Mark(line, 0, m_File.GetLineLength(line), Recognised::StaveLine);
            for (const Fretline::TabBarline& barline : stave.GetBarlines())
                Mark(line, barline.m_Column, barline.GetEndColumn(), Recognised::Barline);
        }
        const int tuningColumn =
            Fretline::FindTuningColumn(m_File, stave.GetFirstLine(), stave.GetLineCount());
        for (int line = stave.GetFirstLine(); tuningColumn >= 0 && line <= last; ++line)
            Mark(line, tuningColumn, tuningColumn + 1, Recognised::TuningLetter);
        Explanation::Stave explained;
        explained.LastLine = last;
        explained.Heading = StaveHeading(stave, tuningColumn >= 0) + PartText(stave);
        for (; m_NextBar != m_Reading.GetBars().end() && m_NextBar->Bar->GetFirstLine() <= last; ++m_NextBar)
            explained.Bars.push_back(ExplainBar(*m_NextBar->Bar));
        m_Explanation.Staves.push_back(std::move(explained));
    }

    static std::string StaveHeading(const TabStave& stave, bool hasLetters) {
        const std::string text = Numbered("stave of ", stave.GetLineCount()) + " lines, tuned " +
                                 TabText::TuningText(stave.GetTuning());
        return text + (hasLetters ? " by its letters" : " as usual (no letters)");
    }

    std::string PartText(const TabStave& stave) const {
        const auto parts = m_PartsOfStave.find(stave.GetFirstLine());
        if (parts == m_PartsOfStave.end())
            return {};
        std::string names;
        for (const std::string& name : parts->second)
            names += (names.empty() ? "" : " and ") + name;
        return "; part " + names;
    }

    ExplainedBar ExplainBar(const TabBar& bar) {
        for (const TabColumn& column : bar.GetColumns())
            MarkColumn(bar, column);
        MarkRhythmLine(bar);
        MarkChords(bar);
        if (bar.GetLabel() != nullptr)
            m_TakenLabels.insert(bar.GetLabel());
        return DescribeBar(bar, ++m_BarNumber, m_Places);
    }

    void MarkColumn(const TabBar& bar, const TabColumn& column) {
        const int start = bar.GetStartColumn() + column.m_Column + column.m_StartOffset;
        const int end = bar.GetStartColumn() + column.m_Column + column.m_Width;
        for (int line = bar.GetFirstLine(); line < bar.GetFirstLine() + bar.GetLineCount(); ++line) {
            for (int place = start; place < end; ++place) {
                const char character = m_File.GetChar(line, place);
                if (Nvr::Ascii::IsDigit(character))
                    Mark(line, place, place + 1, Recognised::Fret);
                else if (Fretline::IsMuted(character))
                    Mark(line, place, place + 1, Recognised::MutedColumn);
            }
        }
    }

    void MarkRhythmLine(const TabBar& bar) {
        const int line = bar.GetRhythmLine().m_Line;
        for (int column = bar.GetStartColumn(); line >= 0 && column < bar.GetStartColumn() + bar.GetWidth();
             ++column)
            if (const char character = m_File.GetChar(line, column);
                character != 0 && !Nvr::Ascii::IsSpace(character))
                Mark(line, column, column + 1, Recognised::RhythmSymbol);
    }

    void MarkChords(const TabBar& bar) {
        for (const Fretline::ChordReading& reading : bar.GetChordReadings())
            Mark(bar.GetChordLine(), reading.m_Chord->m_Start, reading.m_Chord->m_End,
                 reading.m_Written ? Recognised::ChordSymbol : Recognised::LostChordSymbol);
    }

    void ExplainLabels() {
        for (const auto& label : m_Analysis.GetLabels()) {
            const bool taken = m_TakenLabels.count(label.get()) != 0;
            Mark(label->m_Line, label->m_StartColumn, label->m_EndColumn,
                 taken ? Recognised::Label : Recognised::LostLabel);
        }
    }

    // The bars of the explanation in the order of the reading's.
    std::vector<ExplainedBar*> ExplainedBars() {
        std::vector<ExplainedBar*> bars;
        for (Explanation::Stave& stave : m_Explanation.Staves)
            for (ExplainedBar& bar : stave.Bars)
                bars.push_back(&bar);
        return bars;
    }

    void ExplainMarkings(const TabText::Markings& markings) {
        const std::vector<ExplainedBar*> bars = ExplainedBars();
        for (const TabText::NoteMark& mark : markings.Notes) {
            if (mark.What.Kind != Score::Technique::Dead)
                MarkSign(mark.Line, mark.Column, mark.EndColumn);
            const TabText::TextPlace place = m_Places.At(mark.NoteLine, mark.NoteColumn);
            bars[mark.Bar]->Notes.push_back(Numbered("column ", place.Column + 1) +
                                            Numbered(" of line ", place.Line + 1) + ": " +
                                            WhatIsPlayed(mark.What));
        }
        for (const TabText::BarMark& mark : markings.Bars) {
            for (std::string& note : NotesOfTheWay(mark))
                bars[mark.Bar]->Notes.push_back(std::move(note));
        }
        for (const TabText::SignSpan& sign : markings.BarSigns)
            MarkSign(sign.Line, sign.Column, sign.EndColumn);
    }

    // The sign, but not the fret that it may stand around.
    void MarkSign(int line, int first, int end) {
        for (int column = first; column < end; ++column)
            if (!m_Analysis.IsStaveLine(line) || !Nvr::Ascii::IsDigit(m_File.GetChar(line, column)))
                Mark(line, column, column + 1, Recognised::PlayingSign);
    }

    static std::string WhatIsPlayed(const Score::ModelTechnique& what) {
        std::string name = Score::NameOf(what.Kind).Name;
        if (what.Kind == Score::Technique::Bend)
            return name + Numbered(" by ", what.Amount) + " quarter tones";
        if (what.Kind == Score::Technique::Trill && what.Amount > 0)
            return name + Numbered(" with fret ", what.Amount);
        return name;
    }

    void ExplainDoubt(const TabText::Doubt& doubt) {
        ExplainedLine& line = m_Explanation.Lines[static_cast<std::size_t>(doubt.Line)];
        const std::size_t end = std::min(line.IsDoubtful.size(), static_cast<std::size_t>(doubt.EndColumn));
        for (auto column = static_cast<std::size_t>(doubt.Column); column < end; ++column)
            line.IsDoubtful[column] = true;
        line.Doubts.push_back(Numbered("column ", m_Places.ColumnNumber(doubt.Line, doubt.Column)) + ", " +
                              TabText::NameOf(doubt.Kind).Name + ": " + doubt.What +
                              ". To try: " + doubt.Try);
    }

    KnownPlaces m_Places;
    const TabText::TabReading& m_Reading;
    const Fretline::TabFile& m_File;
    const Fretline::TabAnalysis& m_Analysis;
    std::vector<TabText::BarReading>::const_iterator m_NextBar;
    Explanation m_Explanation;
    std::set<const RiffLabel*> m_TakenLabels;
    // By first line.
    std::map<int, std::set<std::string>> m_PartsOfStave;
    int m_BarNumber = 0;
};

constexpr RecognisedName kNames[] = {
    {Recognised::Nothing, ' ', "not used", "0", "nothing"},
    {Recognised::StaveLine, '-', "stave line", "2", "stave"},
    {Recognised::Barline, '|', "barline", "1", "barline"},
    {Recognised::TuningLetter, 'T', "tuning letter", "36", "tuning"},
    {Recognised::Fret, 'F', "fret number", "1;32", "fret"},
    {Recognised::MutedColumn, 'x', "time without a note", "32", "muted"},
    {Recognised::RhythmSymbol, 'R', "rhythm line", "1;35", "rhythm"},
    {Recognised::ChordSymbol, 'C', "chord symbol", "1;33", "chord"},
    {Recognised::LostChordSymbol, 'c', "chord symbol that lost its place", "9;33", "lost-chord"},
    {Recognised::Label, 'L', "section label", "1;34", "label"},
    {Recognised::LostLabel, 'l', "label over no bar", "9;34", "lost-label"},
    {Recognised::TimeSignature, 'S', "time signature", "1;36", "time"},
    {Recognised::PlayingSign, 'P', "how it is played", "1;31", "playing"},
    {Recognised::IgnoredLine, '!', "ignored line", "9;31", "ignored"},
};

} // namespace

std::size_t ExplainedLine::EndOfStretch(std::size_t column) const {
    std::size_t end = column + 1;
    while (end < Text.size() && Marks[end] == Marks[column] && IsDoubtful[end] == IsDoubtful[column])
        ++end;
    return end;
}

Explanation Explanation::Of(const TabText::TabReading& reading, const std::optional<TabText::LineMap>& map) {
    return Explainer(reading, map ? &*map : nullptr).Explain();
}

std::span<const RecognisedName> AllRecognised() {
    return kNames;
}

const RecognisedName& NameOf(Recognised kind) {
    return *std::find_if(std::begin(kNames), std::end(kNames),
                         [&](const RecognisedName& row) { return row.Kind == kind; });
}

} // namespace Explain
