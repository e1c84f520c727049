#include "Shared/Utils/tree/TreeNodeTextWriter.h"

#include "Shared/Utils/tree/TreeNode.h"

#include <algorithm>
#include <vector>

namespace Nvr {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

} // namespace

void TreeNodeTextWriter::Write(const TreeNode& root, int depth) {
    struct Opened {
        const TreeNode* Node;
        int NextChild;
    };
    const auto rootDepth = static_cast<std::size_t>(std::max(depth, 0));
    std::vector<Opened> path;
    const TreeNode* node = &root;
    while (m_Output.PassOnBlocks()) {
        if (node != nullptr) {
            WriteHead(*node, rootDepth + path.size());
            if (node->GetChildCount() != 0) {
                WriteLine('{', rootDepth + path.size());
                path.push_back({node, 0});
            }
        } else {
            path.pop_back();
            WriteLine('}', rootDepth + path.size());
        }
        if (path.empty())
            return;
        node = path.back().Node->GetChild(path.back().NextChild++);
    }
}

void TreeNodeTextWriter::WriteHead(const TreeNode& node, std::size_t depth) {
    m_Output.Append(depth, '\t');
    m_Output.Append(node.GetLabel().View());
    std::string_view value = node.GetValue().View();
    if (!value.empty()) {
        std::size_t quote = value.find('"');
        if (quote == std::string_view::npos || m_QuotedValues == QuotedValues::AfterBlank)
            m_Output.Append(' ');
        m_Output.Append('"');
        for (; quote != std::string_view::npos; quote = value.find('"')) {
            m_Output.Append(value.substr(0, quote + 1));
            m_Output.Append('"');
            value.remove_prefix(quote + 1);
        }
        m_Output.Append(value);
        m_Output.Append('"');
    }
    m_Output.Append(kLineEnd);
}

void TreeNodeTextWriter::WriteLine(char character, std::size_t depth) {
    m_Output.Append(depth, '\t');
    m_Output.Append(character);
    m_Output.Append(kLineEnd);
}

} // namespace Nvr
