#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

namespace TabText {

/// A stretch of a line without blanks, and the absolute column where it begins. The text is the file's.
struct Word {
    int Column = 0;
    std::string_view Text;

    /// The column after its last character.
    int GetEndColumn() const { return Column + static_cast<int>(Text.size()); }
};

/// The words of a line, left to right. White space and zero bytes separate them.
std::vector<Word> WordsOf(std::string_view line);

/// The word without punctuation and brackets at its ends, at the column where the rest begins.
Word WithoutPunctuation(Word word);

/// True when the two are the same but for capitals.
bool IsSameWord(std::string_view a, std::string_view b);

/// True when `word` is one of `list`, which is in lower case.
bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> list);

/// Column of `text`, which is in lower case, in the line from `start` on, in any case; std::string_view::npos
/// when it is not there.
std::size_t FindInAnyCase(std::string_view line, std::string_view text, std::size_t start = 0);

/// True when a musician reads the whole word as the name of a chord, such as "F#m7b5" or "C/G".
bool IsChordName(std::string_view word);

/// True when the line holds names of chords, and not more other words than these. Counts, bar lines, "N.C."
/// and other signs without letters are neither.
bool IsLineOfChords(std::string_view line);

} // namespace TabText
