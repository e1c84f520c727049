#pragma once

#include "Shared/Utils/ByteBuffer.h"
#include "Shared/Utils/DeleterHelper.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeReader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Nvr {

/// One read of the text form, after its byte order mark if it has one. Borrows the reader.
///
/// A document is one node: an optional label, an optional text in double quotes, an optional list of nodes in
/// braces. Labels are letters, digits and -./\_~; a double quote in a text is doubled; white space separates.
/// UTF-16 is converted character by character, and then reads as 8-bit text.
///
/// An error sets the error flag, which ends the parse at the next token, and reports its message with the
/// file, the line (from 0; line ends inside a text do not count) and the start of the current token.
///
/// A list that the end of the source cuts off is taken as it stands, but for a stream, where it is an error.
class TreeNodeTextParser {
public:
    TreeNodeTextParser(TreeNodeReader& reader, bool unicode, bool bigEndian);

    /// Reads the document into `root` and gives it back; null, with a report, when it is wrong or too deep.
    /// Throws what TreeNodeReader::Read does, and the root's own node with it when that is the one found.
    std::unique_ptr<TreeNodeRoot> Parse(std::unique_ptr<TreeNodeRoot> root, const String& stopLabel,
                                        int stopMode);

private:
    enum class Token { Label = 0, Text = 1, LeftBrace = 2, RightBrace = 3, EndMark = 4, Nothing = 5 };

    /// Reads label and text of the last open node; true when its list begins after them.
    bool ParseNodeHead();
    bool ParseAfterLabel();
    bool ParseAfterText(const char* rightBraceMessage);
    /// By the first token after label or text.
    bool EndHead(Token next, const char* rightBraceMessage);
    bool EndNodeAtRightBrace(const char* messageWithoutParent);
    /// In a list: whether a further child begins; its first token is then pushed back.
    bool FindNextChild();
    void OpenChild();
    void CheckValueStop() const;
    void CheckSubTreeStop();
    void AttachLastToParent();

    Token NextToken();
    void PushBack() { m_IsPushedBack = true; }
    Token ReadToken();
    Token ReadTextToken();
    Token ReadLabelToken(int first);
    Token EndOfStream();
    /// The next character as a byte; -1 when there was none left.
    int ReadCharacter() { return m_IsUnicode ? ReadUtf16Character() : Read8BitCharacter(); }
    int Read8BitCharacter();
    int ReadUtf16Character();
    /// Gives back the character after a token, by which its end was seen.
    void SkipBackCharacter() { m_Reader.SkipBack(m_CharacterSize); }
    void Append(int character) { m_TokenText.AppendByte(static_cast<std::uint8_t>(character)); }
    String TokenText() const { return String(m_TokenText.View()); }
    void RaiseError(const char* message);

    TreeNodeReader& m_Reader;
    Token m_Token = Token::EndMark;
    bool m_IsPushedBack = false;
    ByteBuffer m_TokenText;
    bool m_HasError = false;
    std::uint16_t m_Line = 0;
    /// Bytes of the last character read; 0 when there was none left.
    std::size_t m_CharacterSize = 0;
    bool m_IsUnicode;
    bool m_IsBigEndian;
    String m_StopLabel;
    int m_StopMode = 0;
    /// From the root down; each is attached to its parent when it is whole.
    std::vector<TDeleterHelper<TreeNode>> m_Open;
    bool m_IsInList = false;
    std::string m_Converted;
};

} // namespace Nvr
