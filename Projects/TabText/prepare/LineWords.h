#pragma once

#include "Projects/TabText/Words.h"

#include <string_view>
#include <vector>

namespace TabText {

/// What a word of a line beside a stave says to a musician.
enum class WordKind {
    Chord,
    /// Letters for the length of notes, counts, barlines, "x4" and other signs.
    Sign,
    /// Says how something is played, or names a section: "hold", "N.C.", "Chorus".
    Playing,
    Other,
};

struct LineWord {
    Word Place;
    WordKind Kind = WordKind::Other;

    /// The plug-in would read a chord from the column, though the word is none.
    bool IsMisreadAt(int column) const;
};

/// A line beside a stave, word by word. Refers to the text.
class LineWords {
public:
    explicit LineWords(std::string_view line);

    const std::vector<LineWord>& Get() const { return m_Words; }
    /// Chords, counts and other signs: not more words of another kind than chords.
    bool IsLineOfSymbols() const { return m_Others == 0 || (m_Chords > 0 && m_Chords >= m_Others); }
    /// Begins with a word for a tuning, whose letters are no chords: "Tuning: D A D G A D".
    bool SpellsATuning() const;

private:
    void TellWordsFromChords();

    std::vector<LineWord> m_Words;
    int m_Chords = 0;
    int m_Others = 0;
};

/// True when the line states what others want to read in it: a capo, a tempo, a tuning, a title.
bool StatesAFact(std::string_view line);

/// True when the line says who plays, how often, or marks notes ("x4", "Gtr 2", "PM---", "h = hammer-on").
bool HasMarks(std::string_view line);

} // namespace TabText
