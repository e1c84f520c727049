#include "Projects/Fretline/stave/ChordRoot.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/StaveDetection.h"
#include "Projects/TabText/SymbolsInWords.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/LabelPhrases.h"
#include "Projects/TabText/prepare/LineWords.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>
#include <set>

namespace TabText {

namespace {

using Fretline::TabStave;
using std::string;
using std::string_view;

// The columns of a line from which the plug-in reads chords.
class ChordColumns {
public:
    ChordColumns(const TabStave& stave, int line, std::size_t length) : m_AreRead(length) {
        for (const auto& bar : stave.GetBars())
            if (bar->GetChordLine() == line)
                for (int column = bar->GetStartColumn(); column < bar->GetStartColumn() + bar->GetWidth();
                     ++column)
                    if (static_cast<std::size_t>(column) < length)
                        m_AreRead[static_cast<std::size_t>(column)] = true;
    }

    bool Has(int column) const { return m_AreRead[static_cast<std::size_t>(column)]; }

private:
    std::vector<bool> m_AreRead;
};

// Takes the words out of the way that the plug-in would read as symbols.
class WordCleaner {
public:
    explicit WordCleaner(const Draft& draft) : m_Draft(draft), m_Reading(draft) { m_Reading.ReadBars(); }

    // The lines that are to change, each as long as before.
    std::map<int, string> Clean() {
        for (const auto& stave : m_Reading.GetStaves()) {
            for (const int line : {stave->GetFirstLine() - 1, stave->GetFirstLine() - 2})
                CleanChords(*stave, line);
            CleanRhythms(*stave);
        }
        CleanLabels();
        CleanTimes();
        return std::move(m_Changed);
    }

    const DraftReading& GetReading() const { return m_Reading; }

private:
    bool IsBeside(int line) const {
        return line >= 0 && line < m_Draft.GetLineCount() && !m_Reading.IsStaveLine(line);
    }

    const string& GetLine(int line) const {
        const auto changed = m_Changed.find(line);
        return changed == m_Changed.end() ? m_Draft.GetLine(line) : changed->second;
    }

    void SetLine(int line, string text) {
        if (text != m_Draft.GetLine(line))
            m_Changed[line] = std::move(text);
    }

    void Blank(int line) { SetLine(line, string(m_Draft.GetLine(line).size(), ' ')); }

    static bool HasChordLetter(string_view line, const ChordColumns& columns) {
        for (std::size_t at = 0; at < line.size(); ++at)
            if (columns.Has(static_cast<int>(at)) && Fretline::IsChordRoot(line[at]))
                return true;
        return false;
    }

    void CleanChords(const TabStave& stave, int line) {
        if (!IsBeside(line))
            return;
        const string& text = GetLine(line);
        const ChordColumns columns(stave, line, text.size());
        if (!HasChordLetter(text, columns))
            return;
        const LineWords words(text);
        if (words.IsLineOfSymbols() && !words.SpellsATuning())
            SetLine(line, WithSmallLetters(text, words, columns));
        else if (StatesAFact(text) || HasMarks(text) || HasLabel(line))
            SetLine(line, InSmallLetters(text, columns));
        else
            Blank(line);
    }

    // Small letters are no chords; the words stay for whoever looks for them.
    static string WithSmallLetters(string text, const LineWords& words, const ChordColumns& columns) {
        for (const LineWord& word : words.Get())
            for (int column = word.Place.Column; column < word.Place.GetEndColumn(); ++column)
                if (columns.Has(column) && word.IsMisreadAt(column))
                    MakeSmall(text, column);
        return text;
    }

    static string InSmallLetters(string text, const ChordColumns& columns) {
        for (int column = 0; column < static_cast<int>(text.size()); ++column)
            if (columns.Has(column) && Fretline::IsChordRoot(text[static_cast<std::size_t>(column)]))
                MakeSmall(text, column);
        return text;
    }

    static void MakeSmall(string& text, int column) {
        char& c = text[static_cast<std::size_t>(column)];
        c = Nvr::Ascii::ToLower(c);
    }

    bool HasLabel(int line) const {
        const auto& labels = m_Reading.GetAnalysis().GetLabels();
        const auto first = std::partition_point(labels.begin(), labels.end(),
                                                [&](const auto& label) { return label->m_Line < line; });
        return first != labels.end() && (*first)->m_Line == line && !IsPieceOfWords(**first);
    }

    void CleanRhythms(const TabStave& stave) {
        std::set<int> lines;
        for (const auto& bar : stave.GetBars())
            if (bar->GetRhythmLine().m_Line >= 0)
                lines.insert(bar->GetRhythmLine().m_Line);
        for (const int line : lines)
            if (!LineWords(GetLine(line)).IsLineOfSymbols())
                Blank(line);
    }

    void CleanLabels() {
        const auto& labels = m_Reading.GetAnalysis().GetLabels();
        for (auto first = labels.begin(); first != labels.end();) {
            const int line = (*first)->m_Line;
            const auto end = std::find_if(first, labels.end(),
                                          [line](const auto& label) { return label->m_Line != line; });
            if (IsBeside(line) && !StatesAFact(GetLine(line)))
                CleanLabelsOf(line, first, end);
            first = end;
        }
    }

    template <typename Label>
    void CleanLabelsOf(int line, Label first, Label end) {
        LabelPhrases phrases(GetLine(line));
        for (; first != end; ++first)
            if (IsPieceOfWords(**first))
                phrases.Shorten((*first)->m_StartColumn);
        SetLine(line, phrases.GetText());
    }

    void CleanTimes() {
        const auto times = TimesInWords(m_Reading.GetFile(), m_Reading.GetAnalysis());
        for (auto first = times.begin(); first != times.end();) {
            const int line = (*first)->m_Line;
            string text = GetLine(line);
            for (; first != times.end() && (*first)->m_Line == line; ++first)
                BlankTime((*first)->m_Column, text);
            SetLine(line, std::move(text));
        }
    }

    // `column` is that of the slash.
    static void BlankTime(int column, string& text) {
        if (text[static_cast<std::size_t>(column)] == ' ')
            return;
        const Word word = WordAt(text, column);
        const int slash = column - word.Column;
        // Of "Csus2/4" the chord stays.
        const int kept = IsChordName(word.Text.substr(0, static_cast<std::size_t>(slash))) ? slash : 0;
        const int start = word.Column + kept;
        const std::size_t length = word.Text.size() - static_cast<std::size_t>(kept);
        text.replace(static_cast<std::size_t>(start), length, length, ' ');
    }

    const Draft& m_Draft;
    DraftReading m_Reading;
    std::map<int, string> m_Changed;
};

bool HaveSameStaves(const DraftReading& a, const DraftReading& b) {
    return std::equal(a.GetStaves().begin(), a.GetStaves().end(), b.GetStaves().begin(), b.GetStaves().end(),
                      [](const auto& left, const auto& right) {
                          return left->GetFirstLine() == right->GetFirstLine() &&
                                 left->GetLineCount() == right->GetLineCount();
                      });
}

string TextWith(const Draft& draft, const std::map<int, string>& changed) {
    string text;
    for (int line = 0; line < draft.GetLineCount(); ++line) {
        const auto found = changed.find(line);
        text += found == changed.end() ? draft.GetLine(line) : found->second;
        text += '\n';
    }
    return text;
}

// Lines with hyphens tell the plug-in which lines of their run are strings, also where they are none
// themselves: they stay when other staves would come of it.
void KeepStaves(const Draft& draft, const DraftReading& reading, std::map<int, string>& changed) {
    const auto isCandidate = [&](const auto& entry) {
        return Fretline::IsStaveLineCandidate(draft.GetLine(entry.first));
    };
    if (std::none_of(changed.begin(), changed.end(), isCandidate))
        return;
    const Draft trial(TextWith(draft, changed));
    if (!HaveSameStaves(reading, DraftReading(trial)))
        std::erase_if(changed, isCandidate);
}

} // namespace

void RunText(Draft& draft) {
    WordCleaner cleaner(draft);
    std::map<int, string> changed = cleaner.Clean();
    KeepStaves(draft, cleaner.GetReading(), changed);
    for (auto& [line, text] : changed)
        draft.Overwrite(line, std::move(text));
}

} // namespace TabText
