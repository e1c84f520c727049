#include "tests/Projects/Fretline/stave/BarText.h"

namespace Fretline {

namespace {

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        text += (i > 0 ? "\n" : "") + lines[i];
    return text;
}

std::string TextOfItem(const BarItem& item, const TabBar& bar) {
    std::string text = std::to_string(item.m_Position) + '+' + std::to_string(1 << item.m_LogDuration);
    if (item.m_Notes.empty())
        text += " r";
    for (const TabNote& note : item.m_Notes)
        text += ' ' + std::to_string(note.m_String) + ':' +
                std::to_string((note.m_Chrom2 - bar.GetTuning()[note.m_String]) / 2);
    if (item.m_Tied && !item.m_Notes.empty())
        text += '~';
    if (item.m_Chord != nullptr)
        text += ' ' + std::string(GetChordText(*item.m_Chord).View());
    return text;
}

} // namespace

void AppendWord(std::string& text, const std::string& word) {
    if (!text.empty())
        text += ' ';
    text += word;
}

BarText::BarText(const std::vector<std::string>& lines, int rhythmLevel)
    : m_Options(m_NoPath), m_Text(Joined(lines), &m_Options), m_Analysis(m_Text.File) {
    m_Options.SetRhythmLevel(rhythmLevel);
}

TabBar& BarText::BarAt(int firstLine, int lineCount, std::size_t index) {
    m_Stave = std::make_unique<TabStave>(m_Text.File, firstLine, lineCount);
    TabBar& bar = *m_Stave->GetBars().at(index);
    bar.SetBarLength(1024);
    return bar;
}

TabBar& BarText::ReadAt(int firstLine, int lineCount) {
    TabBar& bar = BarAt(firstLine, lineCount);
    bar.ReadBar(nullptr);
    return bar;
}

std::string ColumnsOf(const TabBar& bar) {
    std::string text;
    for (const TabColumn& column : bar.GetColumns()) {
        const std::string width = column.m_Width == 1 ? "" : 'w' + std::to_string(column.m_Width);
        AppendWord(text, std::to_string(column.m_Column) + width + (column.m_StartOffset == -1 ? "<" : ""));
    }
    return text;
}

std::string TimesOf(const TabBar& bar) {
    std::string text;
    for (const TabColumn& column : bar.GetColumns())
        AppendWord(text, std::to_string(column.m_Position) + '+' + std::to_string(column.m_Duration));
    return text;
}

std::string ItemsOf(const TabBar& bar) {
    std::string text;
    for (const std::unique_ptr<ScoreBar>& scoreBar : bar.GetScoreBars()) {
        AppendWord(text, "|");
        const char* separator = " ";
        for (const BarItem& item : scoreBar->m_Items) {
            text += separator + TextOfItem(item, bar);
            separator = ", ";
        }
    }
    return text;
}

std::string ChordsOf(const TabBar& bar) {
    std::string text;
    for (const std::unique_ptr<TabChord>& chord : bar.GetChords())
        AppendWord(text, std::string(GetChordText(*chord).View()));
    return text;
}

TabTimeSignature MakeTimeSignature(int numerator, int denominator) {
    return {0, 0, 0, 0, numerator, denominator};
}

} // namespace Fretline
