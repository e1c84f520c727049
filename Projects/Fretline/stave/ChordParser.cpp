#include "Projects/Fretline/stave/ChordParser.h"

#include "Projects/Fretline/stave/ChordRoot.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace Fretline {

namespace {

// A symbol may go on after so many blanks.
constexpr int kMostBlanksInAChord = 3;

enum class CharacterClass { Other, NumberLike, Alphabetic, Blank };

CharacterClass ClassOf(char c) {
    if (c == 0 || Nvr::Ascii::IsSpace(c))
        return CharacterClass::Blank;
    if (Nvr::Ascii::IsDigit(c) || c == '#' || c == 'b' || c == '/')
        return CharacterClass::NumberLike;
    return Nvr::Ascii::IsAlpha(c) ? CharacterClass::Alphabetic : CharacterClass::Other;
}

struct ChordSuffix {
    std::string_view m_Text;
    ChordTokenKind m_Kind;
};

constexpr std::array<ChordSuffix, 10> ChordSuffixTable = {{
    {"maj", ChordTokenKind::Major},
    {"min", ChordTokenKind::Minor},
    {"mi", ChordTokenKind::Minor},
    {"m", ChordTokenKind::Minor},
    {"sus", ChordTokenKind::Suspended},
    {"add", ChordTokenKind::Added},
    {"dim", ChordTokenKind::Diminished},
    {"aug", ChordTokenKind::Augmented},
    {"(", ChordTokenKind::OpenBracket},
    {")", ChordTokenKind::CloseBracket},
}};

bool EqualsIgnoringCase(std::string_view text, std::string_view lowerCase) {
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](char a, char b) { return Nvr::Ascii::ToLower(a) == b; });
}

bool IsAccidental(char c) {
    return c == '#' || c == 'b';
}

bool IsLiteral(std::string_view token) {
    const bool startsRight =
        Nvr::Ascii::IsDigit(token.front()) || (IsAccidental(token.front()) && token.size() > 1);
    return startsRight && std::all_of(token.begin() + 1, token.end(), Nvr::Ascii::IsDigit);
}

// The state machine of ParseChordSymbol: one function a state, and one for blanks in any state.
struct ChordReader {
    enum class State { Root, Suffix, Bass };

    const TabFile& m_File;
    int m_Line;
    int m_Column;
    int m_LastAccepted;
    State m_State = State::Root;
    std::unique_ptr<TabChord> m_Chord;
    std::string m_Token;
    int m_BlankCount = 0;
    CharacterClass m_ClassBefore = CharacterClass::Blank;
    char m_CharBefore = 0;
    bool m_Stop = false;

    ChordReader(const TabFile& file, int line, int column)
        : m_File(file), m_Line(line), m_Column(column), m_LastAccepted(column) {}

    void Read(int endColumn);

    char CharAt(int column) const { return m_File.GetChar(m_Line, column); }
    bool EndToken() { return AddChordToken(*m_Chord, m_Token, m_Column - 1, m_LastAccepted); }
    std::string TakeNote(char letter);

    void ReadBlank();
    void ReadRoot(char c);
    void ReadSuffix(char c, CharacterClass characterClass);
    void ReadSlash();
    void ReadBass(char c);
};

void ChordReader::Read(int endColumn) {
    while (m_Column < endColumn && !m_Stop) {
        const char c = CharAt(m_Column);
        const CharacterClass characterClass = ClassOf(c);
        if (characterClass == CharacterClass::Blank)
            ReadBlank();
        else if (m_State == State::Root)
            ReadRoot(c);
        else if (m_State == State::Suffix)
            ReadSuffix(c, characterClass);
        else
            ReadBass(c);
        // After a note with an accidental the class is that of its letter, the character the accidental.
        m_ClassBefore = characterClass;
        m_CharBefore = CharAt(m_Column);
        ++m_Column;
    }
}

// The letter and the accidental after it, if there is one, also where that lies after the end column.
std::string ChordReader::TakeNote(char letter) {
    std::string note(1, letter);
    if (const char next = CharAt(m_Column + 1); IsAccidental(next)) {
        ++m_Column;
        note += next;
    }
    m_LastAccepted = m_Column;
    return note;
}

void ChordReader::ReadBlank() {
    if (m_State == State::Suffix)
        m_Stop = EndToken();
    ++m_BlankCount;
    if (m_BlankCount > kMostBlanksInAChord && m_State != State::Root)
        m_Stop = true;
}

void ChordReader::ReadRoot(char c) {
    m_BlankCount = 0;
    if (!IsChordRoot(c))
        return;
    m_Chord = std::make_unique<TabChord>();
    m_Chord->m_Start = m_Column;
    m_Chord->m_Root = TakeNote(c);
    m_State = State::Suffix;
}

void ChordReader::ReadSuffix(char c, CharacterClass characterClass) {
    m_BlankCount = 0;
    if (c == '/') {
        ReadSlash();
        return;
    }
    if (characterClass != m_ClassBefore)
        m_Stop = EndToken();
    if (IsChordRoot(c))
        m_Stop = true;
    m_Token += c;
}

void ChordReader::ReadSlash() {
    if (m_CharBefore == '6' && CharAt(m_Column + 1) == '9') {
        m_Token += '/';
        return;
    }
    // The bass counts also after a token that is none; only that token is lost.
    static_cast<void>(EndToken());
    m_State = State::Bass;
}

void ChordReader::ReadBass(char c) {
    m_BlankCount = 0;
    if (IsChordRoot(c))
        m_Chord->m_Bass = TakeNote(c);
    m_Stop = true;
}

} // namespace

std::unique_ptr<TabChord> ParseChordSymbol(const TabFile& file, int line, int& column, int endColumn) {
    ChordReader reader(file, line, column);
    reader.Read(endColumn);
    if (reader.m_Chord != nullptr)
        FinishChord(*reader.m_Chord, reader.m_LastAccepted);
    column = reader.m_LastAccepted + 1;
    if (reader.m_Chord != nullptr)
        reader.m_Chord->m_End = column;
    return std::move(reader.m_Chord);
}

bool AddChordToken(TabChord& chord, std::string& token, int column, int& lastAccepted) {
    const std::string text = std::exchange(token, {});
    if (text.empty())
        return false;
    const auto accept = [&](ChordTokenKind kind, const std::string& literal) {
        chord.m_Tokens.push_back({kind, literal, column});
        lastAccepted = column;
        return false;
    };
    if (text == "6/9")
        return accept(ChordTokenKind::SixNine, {});
    if (IsLiteral(text))
        return accept(ChordTokenKind::Literal, text);
    for (const ChordSuffix& suffix : ChordSuffixTable)
        if (EqualsIgnoringCase(text, suffix.m_Text))
            return accept(suffix.m_Kind, {});
    return true;
}

void FinishChord(TabChord& chord, int& lastAccepted) {
    std::vector<int> openBrackets;
    bool cut = false;
    for (const ChordToken& token : chord.m_Tokens) {
        if (token.m_Kind == ChordTokenKind::OpenBracket) {
            openBrackets.push_back(token.m_Column);
        } else if (token.m_Kind == ChordTokenKind::CloseBracket) {
            if (openBrackets.empty()) {
                lastAccepted = std::min(lastAccepted, token.m_Column);
                cut = true;
                break;
            }
            openBrackets.pop_back();
        }
    }
    if (openBrackets.size() > 1)
        openBrackets.pop_back();
    if (openBrackets.size() == 1) {
        lastAccepted = openBrackets.front();
        cut = true;
    }
    if (cut) {
        const auto first =
            std::find_if(chord.m_Tokens.begin(), chord.m_Tokens.end(),
                         [&](const ChordToken& token) { return token.m_Column >= lastAccepted; });
        chord.m_Tokens.erase(first, chord.m_Tokens.end());
    }
}

} // namespace Fretline
