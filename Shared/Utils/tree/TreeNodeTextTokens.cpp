#include "Shared/Utils/tree/TreeNodeTextParser.h"

#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/tree/TreeNodeEncoding.h"
#include "Shared/Utils/tree/TreeNodeFailure.h"

#include <array>
#include <string_view>

namespace Nvr {

namespace {

constexpr int kNoCharacter = -1;
constexpr int kEndMarkByte = 0xFF;
constexpr int kLongestTextInReport = 50;

enum class CharacterKind : std::uint8_t { Other, Label, Space };

constexpr std::array<CharacterKind, 256> MakeCharacterKinds() {
    std::array<CharacterKind, 256> kinds{};
    for (int c = 0; c < 128; ++c) {
        const char byte = static_cast<char>(c);
        auto& kind = kinds[static_cast<std::size_t>(c)];
        if (Ascii::IsAlnum(byte) || std::string_view("-./\\_~").find(byte) != std::string_view::npos)
            kind = CharacterKind::Label;
        else if (Ascii::IsSpace(byte))
            kind = CharacterKind::Space;
    }
    return kinds;
}

constexpr std::array<CharacterKind, 256> kCharacterKinds = MakeCharacterKinds();

CharacterKind KindOf(int character) {
    return kCharacterKinds[static_cast<std::size_t>(character)];
}

} // namespace

TreeNodeTextParser::Token TreeNodeTextParser::NextToken() {
    if (m_IsPushedBack)
        m_IsPushedBack = false;
    else
        m_Token = ReadToken();
    return m_Token;
}

TreeNodeTextParser::Token TreeNodeTextParser::ReadToken() {
    m_TokenText.Clear();
    bool afterCarriageReturn = false;
    while (!m_HasError && !m_Reader.AtEnd()) {
        const int character = ReadCharacter();
        if (character == '\n' || afterCarriageReturn)
            ++m_Line;
        if (character == kNoCharacter)
            return EndOfStream();
        afterCarriageReturn = character == '\r';
        switch (character) {
        case kEndMarkByte:
            return Token::EndMark;
        case '{':
            Append(character);
            return Token::LeftBrace;
        case '}':
            Append(character);
            return Token::RightBrace;
        case '"':
            return ReadTextToken();
        default:
            break;
        }
        if (KindOf(character) == CharacterKind::Label)
            return ReadLabelToken(character);
        if (KindOf(character) == CharacterKind::Other) {
            RaiseError("Expected ~ _ or alpha numeric character");
            return Token::Nothing;
        }
    }
    return Token::Nothing;
}

TreeNodeTextParser::Token TreeNodeTextParser::ReadTextToken() {
    while (!m_Reader.AtEnd()) {
        int character = ReadCharacter();
        if (character == kNoCharacter)
            break;
        if (character == kEndMarkByte) {
            RaiseError("Unexpected EOF in text string");
            return Token::Nothing;
        }
        if (character == '"') {
            character = ReadCharacter();
            if (character != '"') {
                SkipBackCharacter();
                break;
            }
        }
        Append(character);
    }
    return Token::Text;
}

TreeNodeTextParser::Token TreeNodeTextParser::ReadLabelToken(int first) {
    int character = first;
    do {
        Append(character);
        if (m_Reader.AtEnd())
            return Token::Label;
        character = ReadCharacter();
    } while (character != kNoCharacter && KindOf(character) == CharacterKind::Label);
    SkipBackCharacter();
    return Token::Label;
}

TreeNodeTextParser::Token TreeNodeTextParser::EndOfStream() {
    // What a stream gives after its end is no character of a list.
    if (m_IsInList)
        RaiseError("Expected ~ _ or alpha numeric character");
    return Token::Nothing;
}

int TreeNodeTextParser::Read8BitCharacter() {
    const int byte = m_Reader.ReadByte();
    m_CharacterSize = byte < 0 ? 0 : 1;
    return byte;
}

int TreeNodeTextParser::ReadUtf16Character() {
    std::array<std::uint8_t, 2> bytes{};
    m_CharacterSize = 0;
    while (m_CharacterSize < bytes.size()) {
        const int byte = m_Reader.ReadByte();
        if (byte < 0)
            break;
        bytes[m_CharacterSize++] = static_cast<std::uint8_t>(byte);
    }
    if (m_CharacterSize == 0)
        return kNoCharacter;
    const char16_t unit =
        m_IsBigEndian ? UnitFromBytes(bytes[0], bytes[1]) : UnitFromBytes(bytes[1], bytes[0]);
    ConvertFromUtf16({&unit, 1}, m_Converted);
    if (m_Converted.size() > 1) {
        ReportTreeFailure("Trying to read a Unicode text TreeNode that has characters that translate to "
                          "multibyte chars and we can't copy with this\n",
                          __FILE__, __LINE__);
    }
    return m_Converted.empty() ? 0 : static_cast<unsigned char>(m_Converted.front());
}

void TreeNodeTextParser::RaiseError(const char* message) {
    m_HasError = true;
    const String text(m_TokenText.View().substr(0, kLongestTextInReport));
    const String line = String::FromInt(m_Line) + " - current text " + text;
    const String place = m_Reader.GetFileName().IsEmpty()
                             ? " at line " + line
                             : " in file " + m_Reader.GetFileName() + " line " + line;
    ReportTreeFailure(message + place, __FILE__, __LINE__);
}

} // namespace Nvr
