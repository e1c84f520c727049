#include "Projects/Tools/TemplateBuilder/TextTree.h"

#include "Projects/Tools/TemplateBuilder/BuildError.h"

#include <vector>

namespace TemplateBuilder {

namespace {

bool IsLabelCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '/' || c == '\\' || c == '_' || c == '~';
}

bool IsWhite(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Looks a document over before the reader sees it, and complains by line.
class TextTreeCheck {
public:
    TextTreeCheck(const std::string& file, std::string_view text) : m_File(file), m_Text(text) {}

    void Run() {
        for (; m_At < m_Text.size(); ++m_At) {
            const char c = m_Text[m_At];
            if (c == '\n')
                ++m_Line;
            else if (!IsWhite(c))
                TakeToken(c);
        }
        if (!m_OpenBraces.empty())
            throw BuildError(m_File, m_OpenBraces.back(), "the brace that opens here is never closed");
        if (!m_Started)
            throw BuildError(m_File, "the file holds no node");
    }

private:
    void TakeToken(char c) {
        if (m_Finished)
            throw BuildError(m_File, m_Line, "a second node stands after the one that a file may hold");
        if (c == '{')
            OpenList();
        else if (c == '}')
            CloseList();
        else if (c == '"')
            SkipText();
        else if (IsLabelCharacter(c))
            SkipLabel();
        else
            throw BuildError(m_File, m_Line, std::string("'") + c + "' may stand in a quoted text only");
        m_Started = true;
    }

    void OpenList() {
        m_OpenBraces.push_back(m_Line);
        if (m_OpenBraces.size() > static_cast<std::size_t>(kDeepestNesting))
            throw BuildError(m_File, m_Line, "lists are nested too deeply");
    }

    void CloseList() {
        if (m_OpenBraces.empty())
            throw BuildError(m_File, m_Line, "the brace closes what nothing opened");
        m_OpenBraces.pop_back();
        m_Finished = m_OpenBraces.empty();
    }

    // Ends on the closing quote. A doubled quote ends one text and opens the next, which comes to the same.
    void SkipText() {
        const int firstLine = m_Line;
        for (++m_At; m_At < m_Text.size() && m_Text[m_At] != '"'; ++m_At) {
            if (m_Text[m_At] == '\n')
                ++m_Line;
        }
        if (m_At >= m_Text.size())
            throw BuildError(m_File, firstLine, "the quoted text that opens here is never closed");
    }

    void SkipLabel() {
        while (m_At + 1 < m_Text.size() && IsLabelCharacter(m_Text[m_At + 1]))
            ++m_At;
    }

    const std::string& m_File;
    std::string_view m_Text;
    std::size_t m_At = 0;
    int m_Line = 1;
    bool m_Started = false;
    bool m_Finished = false;
    std::vector<int> m_OpenBraces;
};

} // namespace

std::unique_ptr<Nvr::TreeNodeRoot> ReadTextTree(const std::string& file, std::string_view text) {
    TextTreeCheck(file, text).Run();
    std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromString(Nvr::String(text)));
    if (tree == nullptr)
        throw BuildError(file, "the file cannot be read as a text tree");
    return tree;
}

} // namespace TemplateBuilder
