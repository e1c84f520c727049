#include "Projects/Explain/BarNotes.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/stave/TabChord.h"
#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/Score/Utf8.h"

namespace Explain {

namespace {

using Score::Numbered;

using Fretline::RhythmLineKind;
using Fretline::TabBar;

std::string Timing(const TabBar& bar, const KnownPlaces& places) {
    const Fretline::RhythmLine& line = bar.GetRhythmLine();
    const std::string place =
        line.m_Line < 0 ? std::string() : Numbered(" in line ", places.LineNumber(line.m_Line));
    const std::string unused = bar.HasRhythms() ? "" : " (not used: rhythms are not to be imported)";
    switch (line.m_Kind) {
    case RhythmLineKind::NoteLengths:
        return "rhythm: note-length letters" + place + unused;
    case RhythmLineKind::BeatPositions:
        return "rhythm: beat counts" + place + unused;
    default:
        return bar.HasRhythms() ? "rhythm: by the spacing of the text"
                                : "rhythm: none, each column one quaver";
    }
}

// As the user counts it, in the first line of the bar's stave.
int ColumnNumber(const TabBar& bar, int columnOfBar, const KnownPlaces& places) {
    return places.ColumnNumber(bar.GetFirstLine(), bar.GetStartColumn() + columnOfBar);
}

std::string Columns(const TabBar& bar, const KnownPlaces& places) {
    std::string text;
    for (const Fretline::TabColumn& column : bar.GetColumns())
        text += (text.empty() ? "" : ", ") + std::to_string(ColumnNumber(bar, column.m_Column, places)) +
                " at " + std::to_string(column.m_Position) + " for " + std::to_string(column.m_Duration) +
                (column.m_Tied ? " (tied)" : "");
    return text.empty() ? "no column with a number: a rest" : "columns: " + text;
}

std::string Chord(const TabBar& bar, const Fretline::ChordReading& reading, const KnownPlaces& places) {
    std::string text = std::string("chord ") + Fretline::GetChordText(*reading.m_Chord).CStr();
    if (reading.m_Column == nullptr)
        return text + ": dropped, the bar has no column";
    text += Numbered(": to column ", ColumnNumber(bar, reading.m_Column->m_Column, places));
    if (!reading.m_Attached)
        return text + ", but another chord is nearer there";
    return reading.m_Written ? text : text + ", but another chord sounds with it";
}

} // namespace

ExplainedBar DescribeBar(const TabBar& bar, int number, const KnownPlaces& places) {
    ExplainedBar explained;
    explained.Heading = Numbered(Numbered("bar ", number) + ", columns ", ColumnNumber(bar, 0, places)) +
                        " to " + std::to_string(ColumnNumber(bar, bar.GetWidth() - 1, places)) + ", " +
                        std::to_string(bar.GetBarLength()) + " units";
    if (const Fretline::TabTimeSignature* time = bar.GetTimeSignature())
        explained.Heading += Numbered(Numbered(", ", time->m_Numerator) + "/", time->m_Denominator);
    if (const Fretline::RiffLabel* label = bar.GetLabel())
        explained.Heading += std::string(", \"") + label->GetText().CStr() + "\"";
    if (bar.ScoreBarCount() != 1)
        explained.Heading += Numbered(", gives ", bar.ScoreBarCount()) + " bars of the score";
    explained.Notes.push_back(Timing(bar, places));
    explained.Notes.push_back(Columns(bar, places));
    for (const Fretline::ChordReading& reading : bar.GetChordReadings())
        explained.Notes.push_back(Chord(bar, reading, places));
    return explained;
}

std::vector<std::string> NotesOfTheWay(const TabText::BarMark& mark) {
    std::vector<std::string> notes;
    const auto add = [&](bool isSo, std::string note) {
        if (isSo)
            notes.push_back(std::move(note));
    };
    const Score::ModelRepeats& repeats = mark.Repeats;
    add(repeats.IsStart, "a repeat begins");
    std::string times;
    for (const int time : repeats.Endings)
        times += Numbered(times.empty() ? "" : ", ", time);
    add(!times.empty(), "an ending, played at time " + times);
    add(repeats.IsEnd, Numbered("a repeat ends, played ", repeats.Times) + " times");
    add(mark.Tempo > 0, Numbered("tempo ", mark.Tempo) + " from here");
    add(mark.Way.HasSegno, "begins with the Segno");
    add(mark.Way.HasCoda, "begins with the Coda");
    add(mark.Way.HasToCoda, "from its end, to the Coda");
    add(mark.Way.HasFine, "ends with the Fine");
    add(mark.Way.To != Score::Jump::None, "from its end, " + Score::JumpText(mark.Way));
    return notes;
}

} // namespace Explain
