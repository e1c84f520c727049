#include "Shared/Utils/tree/TreeNodeTextParser.h"

#include "Shared/Utils/tree/TreeNodeExceptions.h"

#include <utility>

namespace Nvr {

TreeNodeTextParser::TreeNodeTextParser(TreeNodeReader& reader, bool unicode, bool bigEndian)
    : m_Reader(reader), m_IsUnicode(unicode), m_IsBigEndian(bigEndian) {}

std::unique_ptr<TreeNodeRoot> TreeNodeTextParser::Parse(std::unique_ptr<TreeNodeRoot> root,
                                                        const String& stopLabel, int stopMode) {
    m_StopLabel = stopLabel;
    m_StopMode = stopMode;
    TreeNodeRoot* const wholeTree = root.get();
    TDeleterHelper<TreeNode> guard(root.release());
    m_Open.push_back(std::move(guard));
    bool hasList = ParseNodeHead();
    for (;;) {
        if (hasList) {
            if (FindNextChild()) {
                OpenChild();
                hasList = ParseNodeHead();
                continue;
            }
            CheckSubTreeStop();
        }
        if (m_Open.size() == 1)
            break;
        AttachLastToParent();
        hasList = true;
    }
    if (m_HasError)
        return nullptr;
    static_cast<void>(m_Open.back().Release());
    return std::unique_ptr<TreeNodeRoot>(wholeTree);
}

bool TreeNodeTextParser::ParseNodeHead() {
    switch (NextToken()) {
    case Token::Label:
        m_Open.back()->SetLabel(TokenText());
        return ParseAfterLabel();
    case Token::Text:
        return ParseAfterText("Unexpected right brace parsing text with no label - no parent node");
    case Token::LeftBrace:
        return true;
    case Token::RightBrace:
        return EndNodeAtRightBrace(
            "Unexpected right brace parsing sublist with no label or text - no parent node");
    case Token::EndMark:
    case Token::Nothing:
        break;
    }
    return false;
}

bool TreeNodeTextParser::ParseAfterLabel() {
    const Token next = NextToken();
    if (next == Token::Text)
        return ParseAfterText("Unexpected right brace parsing text after label - no parent node");
    return EndHead(next, "Unexpected right brace parsing after label - no parent node");
}

bool TreeNodeTextParser::ParseAfterText(const char* rightBraceMessage) {
    m_Open.back()->SetValue(TokenText());
    CheckValueStop();
    return EndHead(NextToken(), rightBraceMessage);
}

// An end mark after label or text is left for the list in which the node stands: there it takes the place of
// the right brace that is missed.
bool TreeNodeTextParser::EndHead(Token next, const char* rightBraceMessage) {
    switch (next) {
    case Token::LeftBrace:
        return true;
    case Token::RightBrace:
        return EndNodeAtRightBrace(rightBraceMessage);
    case Token::Label:
    case Token::Text:
    case Token::EndMark:
        PushBack();
        break;
    case Token::Nothing:
        break;
    }
    return false;
}

bool TreeNodeTextParser::EndNodeAtRightBrace(const char* messageWithoutParent) {
    if (m_Open.size() == 1)
        RaiseError(messageWithoutParent);
    else
        PushBack();
    return false;
}

bool TreeNodeTextParser::FindNextChild() {
    if (m_HasError)
        return false;
    m_IsInList = true;
    switch (NextToken()) {
    case Token::Label:
    case Token::Text:
    case Token::LeftBrace:
        PushBack();
        return true;
    case Token::EndMark:
        RaiseError("Expected right brace parsing sub-list");
        return false;
    case Token::RightBrace:
    case Token::Nothing:
        break;
    }
    return false;
}

void TreeNodeTextParser::OpenChild() {
    // The first token of the child is read, so that the end of this parse is an error in any case.
    if (m_Open.size() > TreeNodeReader::kDeepestLevel)
        RaiseError("Nodes are nested too deeply");
    TDeleterHelper<TreeNode> child(new TreeNode);
    m_Open.push_back(std::move(child));
}

void TreeNodeTextParser::CheckValueStop() const {
    const TreeNode& node = *m_Open.back();
    if (!m_StopLabel.IsEmpty() && m_StopMode == TreeNodeReader::kStopAtValue &&
        node.GetLabel() == m_StopLabel)
        throw TreeNodeLabelFoundException(node.GetValue());
}

void TreeNodeTextParser::CheckSubTreeStop() {
    if (!m_StopLabel.IsEmpty() && m_StopMode == TreeNodeReader::kStopAtSubTree &&
        m_Open.back()->GetLabel() == m_StopLabel)
        throw TreeNodeSubTreeFoundException(m_Open.back().Release());
}

void TreeNodeTextParser::AttachLastToParent() {
    TDeleterHelper<TreeNode> node = std::move(m_Open.back());
    m_Open.pop_back();
    m_Open.back()->AddChild(node.Release());
}

} // namespace Nvr
