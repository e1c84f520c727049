#include "Projects/TabText/SymbolsInWords.h"

#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

using Fretline::TabFile;
using Nvr::Ascii::IsAlnum;
using Nvr::Ascii::IsAlpha;

// As far as a word is looked at on either side of a place: further than that, none is a symbol.
constexpr std::size_t kReach = 40;

bool IsLetterAt(const TabFile& file, int line, int column) {
    return column >= 0 && IsAlpha(file.GetChar(line, column));
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

bool IsPieceOfWords(const Fretline::RiffLabel& label) {
    const TabFile& file = *label.m_File;
    const int before = label.m_StartColumn - 1;
    const bool goesOnBefore =
        before > 0 && file.GetChar(label.m_Line, before) == ' ' && IsLetterAt(file, label.m_Line, before - 1);
    return goesOnBefore || (file.GetChar(label.m_Line, label.m_EndColumn) == ' ' &&
                            IsLetterAt(file, label.m_Line, label.m_EndColumn + 1));
}

std::vector<const Fretline::TabTimeSignature*> TimesInWords(const TabFile& file,
                                                            const Fretline::TabAnalysis& analysis) {
    std::vector<const Fretline::TabTimeSignature*> times;
    int lastLine = -1;
    bool isProse = false;
    for (const auto& time : analysis.GetTimeSignatures()) {
        if (time->m_Line != lastLine)
            isProse = IsOtherProse(file.GetLine(time->m_Line));
        lastLine = time->m_Line;
        if (isProse || TouchesOtherText(file, *time) || MeasuresSomethingElse(file, *time))
            times.push_back(time.get());
    }
    return times;
}

} // namespace TabText
