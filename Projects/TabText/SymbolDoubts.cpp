// Symbols and words above the staves.

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/stave/TabChord.h"
#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/TabText/DoubtFinders.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>

namespace TabText {

namespace {

using Fretline::TabBar;
using Fretline::TabChord;
using Fretline::TabFile;
using Nvr::Ascii::IsAlnum;
using Nvr::Ascii::IsAlpha;

// As far as a word is looked at on either side of a place: further than that, none is a symbol.
constexpr std::size_t kReach = 40;

// The word of the line in which the column stands, which is no blank.
Word WordAt(std::string_view line, int column) {
    const auto isBlank = [](char c) { return c == '\0' || Nvr::Ascii::IsSpace(c); };
    const auto place = static_cast<std::size_t>(column);
    std::size_t start = place;
    std::size_t end = place;
    while (start > 0 && place - start < kReach && !isBlank(line[start - 1]))
        --start;
    while (end < line.size() && end - place < kReach && !isBlank(line[end]))
        ++end;
    return {static_cast<int>(start), line.substr(start, end - start)};
}

// A chord symbol that reached the score, and the word of the text that it was read from.
struct WrittenChord {
    const TabChord* Chord = nullptr;
    int Line = 0;
    Word Origin;

    // All letters and numbers of the word belong to the symbol.
    bool IsWholeWord() const {
        const auto inside = [&](int column) { return column >= Chord->m_Start && column < Chord->m_End; };
        for (std::size_t at = 0; at < Origin.Text.size(); ++at)
            if (IsAlnum(Origin.Text[at]) && !inside(Origin.Column + static_cast<int>(at)))
                return false;
        return true;
    }
    bool IsPartOfAChord() const {
        return IsChordName(Origin.Text) || IsChordName(WithoutPunctuation(Origin).Text);
    }
};

std::vector<WrittenChord> WrittenChords(const TabReading& reading) {
    std::vector<WrittenChord> chords;
    for (const BarReading& bar : reading.GetBars()) {
        const int line = bar.Bar->GetChordLine();
        for (const Fretline::ChordReading& chord : bar.Bar->GetChordReadings()) {
            if (!chord.m_Written)
                continue;
            chords.push_back(
                {chord.m_Chord, line, WordAt(reading.GetFile().GetLine(line), chord.m_Chord->m_Start)});
        }
    }
    return chords;
}

bool WasReadFromWords(const TabFile& file, const WrittenChord& chord, std::map<int, bool>& linesOfChords) {
    if (!chord.IsPartOfAChord())
        return !chord.IsWholeWord();
    const auto [entry, isNew] = linesOfChords.emplace(chord.Line, false);
    if (isNew)
        entry->second = IsLineOfChords(file.GetLine(chord.Line));
    return !entry->second;
}

bool IsLetterAt(const TabFile& file, int line, int column) {
    return column >= 0 && IsAlpha(file.GetChar(line, column));
}

// One blank, and then the text goes on: the label was cut there.
bool GoesOnAfter(const TabFile& file, int line, int end) {
    return file.GetChar(line, end) == ' ' && IsLetterAt(file, line, end + 1);
}

bool GoesOnBefore(const TabFile& file, int line, int start) {
    return start > 1 && file.GetChar(line, start - 1) == ' ' && IsLetterAt(file, line, start - 2);
}

bool TouchesOtherText(const TabFile& file, const Fretline::TabTimeSignature& time) {
    const auto touches = [](char c) { return IsAlnum(c) || c == '/' || c == '.' || c == '#' || c == '-'; };
    return (time.m_StartColumn > 0 && touches(file.GetChar(time.m_Line, time.m_StartColumn - 1))) ||
           IsAlnum(file.GetChar(time.m_Line, time.m_EndColumn + 1)) ||
           file.GetChar(time.m_Line, time.m_EndColumn + 1) == '/';
}

// "1/2 step", "3/4 of the way".
bool MeasuresSomethingElse(const TabFile& file, const Fretline::TabTimeSignature& time) {
    const std::vector<Word> words =
        WordsOf(file.GetLine(time.m_Line).substr(static_cast<std::size_t>(time.m_EndColumn) + 1, kReach));
    return !words.empty() &&
           IsOneOf(WithoutPunctuation(words.front()).Text, {"step", "steps", "tone", "tones", "bend", "bends",
                                                            "of", "way", "hour", "hours", "times"});
}

// A sentence that says nothing of metre.
bool IsOtherProse(std::string_view line) {
    constexpr std::ptrdiff_t kWordsOfASentence = 5;
    for (const std::string_view word :
         {"time", "metre", "meter", "signature", "beat", "tempo", "rhythm", "waltz", "bpm"})
        if (FindInAnyCase(line, word) != std::string_view::npos)
            return false;
    const std::vector<Word> words = WordsOf(line);
    return std::count_if(words.begin(), words.end(), [](const Word& word) {
               return word.Text.size() > 1 && std::all_of(word.Text.begin(), word.Text.end(), IsAlpha) &&
                      !IsChordName(word.Text);
           }) >= kWordsOfASentence;
}

} // namespace

// Said once a line, at the first of them.
void FindChordsFromWords(const TabReading& reading, DoubtSink& doubts) {
    std::map<int, bool> linesOfChords;
    struct Found {
        Word Origin;
        std::string Chords;
    };
    std::map<int, Found> lines;
    for (const WrittenChord& chord : WrittenChords(reading)) {
        if (!WasReadFromWords(reading.GetFile(), chord, linesOfChords))
            continue;
        Found& found = lines.emplace(chord.Line, Found{chord.Origin, {}}).first->second;
        found.Chords += (found.Chords.empty() ? "" : ", ") + std::string(GetChordText(*chord.Chord).CStr());
    }
    for (const auto& [line, found] : lines)
        doubts.Add(line, found.Origin.Column, found.Origin.GetEndColumn(),
                   (found.Chords.find(',') == std::string::npos ? "the chord " : "the chords ") +
                       found.Chords + " came out of the words of this line");
}

void FindCutChords(const TabReading& reading, DoubtSink& doubts) {
    for (const WrittenChord& chord : WrittenChords(reading))
        if (chord.IsPartOfAChord() && !chord.IsWholeWord())
            doubts.Add(chord.Line, chord.Origin.Column, chord.Origin.GetEndColumn(),
                       "\"" + std::string(WithoutPunctuation(chord.Origin).Text) + "\" was read as " +
                           GetChordText(*chord.Chord).CStr());
}

void FindCutLabels(const TabReading& reading, DoubtSink& doubts) {
    const TabFile& file = reading.GetFile();
    for (const BarReading& bar : reading.GetBars()) {
        const Fretline::RiffLabel* label = bar.Bar->GetLabel();
        if (label != nullptr && (GoesOnBefore(file, label->m_Line, label->m_StartColumn) ||
                                 GoesOnAfter(file, label->m_Line, label->m_EndColumn)))
            doubts.Add(label->m_Line, label->m_StartColumn, label->m_EndColumn,
                       std::string("the label \"") + label->GetText().CStr() +
                           "\" is a piece of a longer line");
    }
}

void FindTimesInWords(const TabReading& reading, DoubtSink& doubts) {
    const TabFile& file = reading.GetFile();
    int lastLine = -1;
    bool isProse = false;
    for (const auto& time : reading.GetAnalysis().GetTimeSignatures()) {
        if (time->m_Line != lastLine)
            isProse = IsOtherProse(file.GetLine(time->m_Line));
        lastLine = time->m_Line;
        if (isProse || TouchesOtherText(file, *time) || MeasuresSomethingElse(file, *time))
            doubts.Add(time->m_Line, time->m_StartColumn, time->m_EndColumn + 1,
                       "\"" + std::string(WordAt(file.GetLine(time->m_Line), time->m_Column).Text) +
                           "\" was read as the time signature " + std::to_string(time->m_Numerator) + "/" +
                           std::to_string(time->m_Denominator));
    }
}

} // namespace TabText
